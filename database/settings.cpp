#include "database/settings.h"

#include <span>
#include <string>
#include <vector>

#include "database/binding.h"

namespace tarvex::database {
namespace {

#define FIELD(name) \
  { #name, &MeetSettings::name }
constexpr Binding<MeetSettings> kFields[] = {
    FIELD(Meet_name1),
    FIELD(Meet_name2),
    FIELD(Meet_location),
    FIELD(Meet_start),
    FIELD(Meet_end),
    FIELD(Calc_date),
    FIELD(Meet_kind),
    FIELD(Meet_class),
    FIELD(Meet_meettype),
    FIELD(meet_meetstyle),
    FIELD(meet_arena),
    FIELD(Meet_course),
    FIELD(meet_numlanes),
    FIELD(Meet_idformat),
    FIELD(Read_Only),
    FIELD(compno_uniqueness),
    FIELD(use_compnumbers),
    FIELD(autoinc_compno),
    FIELD(entrymax_total),
    FIELD(trkmax_perath),
    FIELD(fldmax_perath),
    FIELD(entrylimits_warn),
    FIELD(entryqual_faster),
    FIELD(linkteams_todivisions),
    FIELD(usedivision_birthdateranges),
    FIELD(allowsameevent_duprelaynames),
    FIELD(anyone_onrelay),
    FIELD(use_declarationmethod),
    FIELD(check_times),
    FIELD(converthand_toFAT),
    FIELD(rounddown_toevencentimeter),
    FIELD(roundresults_uptotenths),
    FIELD(useX_forFoul),
    FIELD(record_windreadings),
    FIELD(timedfinal_randrule),
    FIELD(round1_randrule),
    FIELD(round234_randrule),
    FIELD(round1_closegaps),
    FIELD(ncaa_rule105a),
    FIELD(prelimheats_circle),
    FIELD(timedfinal_circleseed),
    FIELD(foreign_infinal),
    FIELD(exh_infinal),
    FIELD(seed_exhlast),
    FIELD(random_select),
    FIELD(showfinishplace_withentry),
    FIELD(indmaxadvance_perteam),
    FIELD(relmaxadvance_perteam),
    FIELD(team_evenlanes),
    FIELD(team_oddlanes),
    FIELD(dual_evenodd),
    FIELD(strict_evenodd),
    FIELD(strict_evenoddfastestheatonly),
    FIELD(Dual_InLaneRacesOnly),
    FIELD(dualseeding_altunusedlane),
    FIELD(exhibition_getfinalsrank),
    FIELD(foreign_treatasexhibition),
    FIELD(foreign_getteampoints),
    FIELD(A_Relaysonly),
    FIELD(score_Arelayonly),
    FIELD(score_fastestheatonly),
    FIELD(scoreonly_ifexceedqualtime),
    FIELD(addqtrrelaypts_toindscore),
    FIELD(diffpts_malefemale),
    FIELD(diffpts_eachdivision),
    FIELD(useeventsex_teamscore),
    FIELD(thrucurrentevt_teamscore),
    FIELD(indmaxscorers_perteam),
    FIELD(relmaxscorers_perteam),
    FIELD(fieldevent_relays),
    FIELD(runningevent_relays),
    FIELD(FieldRelayUnderSize_CanScore),
    FIELD(fldrelnumber_teamscorers),
    FIELD(runrelnumber_teamscorers),
    FIELD(xrrnumber_teamscorers),
    FIELD(xrrTopMany_ExcludeFromAgeResults),
    FIELD(ccnonteam_displace),
    FIELD(ccdynamic_scoring),
    FIELD(xccPenaltyPts_LastPlusOne),
    FIELD(xccminimum_onteam),
    FIELD(xccmaxscorers_perteam),
    FIELD(xccnumberdisplacers_perteam),
    FIELD(xccpenalty_points),
    FIELD(Lastname_first),
    FIELD(firstname_asinitial),
    FIELD(show_initial),
    FIELD(showbirthyear_insteadofage),
    FIELD(suppress_age),
    FIELD(showathlete_status),
    FIELD(Use_hometown),
    FIELD(show_hometownandteam),
    FIELD(Show_countrycode),
    FIELD(Use_AltTeamAbbr),
    FIELD(suppress_UNATeamName),
    FIELD(suppress_Arelay),
    FIELD(suppress_smallx),
    FIELD(Suppress_X),
    FIELD(suppress_jd),
    FIELD(Suppress_TimeStdAbbr),
    FIELD(showFieldEvent_Conversions),
    FIELD(RelaysShow_TotalDistance),
    FIELD(showAlternate_EventNumbers),
    FIELD(under_eventname),
    FIELD(noteswith_eachentry),
    FIELD(Display_ActualEntryTime),
    FIELD(DisplayNTfor_TimesUnder5Sec),
    FIELD(under120_asseconds),
    FIELD(Scores_afterevt),
    FIELD(military_time),
    FIELD(report_excludemeetname),
    FIELD(report_excludemeetname2),
    FIELD(report_excludelocation),
    FIELD(incl_meetdate),
    FIELD(open_senior_none),
    FIELD(apnews_team),
};
#undef FIELD

// A file of an older layout lacks some of the fields.
std::vector<Binding<MeetSettings>> FieldsOf(const jet::Table& meet) {
  std::vector<Binding<MeetSettings>> present;
  for (const Binding<MeetSettings>& binding : kFields) {
    if (meet.Column(binding.field) >= 0) present.push_back(binding);
  }
  return present;
}

int KnownCode(int code, int last) {
  return code >= 1 && code <= last ? code : 1;
}

char KnownRule(char letter) {
  return letter >= 'A' && letter <= 'E' ? letter : 'A';
}

void ReadUnknownAsFirst(MeetSettings& settings) {
  settings.Meet_kind = KnownCode(settings.Meet_kind, 4);
  settings.Meet_class = KnownCode(settings.Meet_class, 6);
  settings.Meet_meettype = KnownCode(settings.Meet_meettype, 4);
  settings.meet_meetstyle = KnownCode(settings.meet_meetstyle, 3);
  settings.Meet_course = KnownCode(settings.Meet_course, 2);
  settings.Meet_idformat = KnownCode(settings.Meet_idformat, 2);
  settings.compno_uniqueness = KnownCode(settings.compno_uniqueness, 2);
  if (settings.meet_arena != 'I') settings.meet_arena = 'O';
  settings.timedfinal_randrule = KnownRule(settings.timedfinal_randrule);
  settings.round1_randrule = KnownRule(settings.round1_randrule);
  settings.round234_randrule = KnownRule(settings.round234_randrule);
}

}  // namespace

Expected<MeetSettings> LoadSettings(const jet::Table& meet) {
  jet::TableScan scan = meet.Scan();
  TRY_ASSIGN(const bool found, scan.Next());
  if (!found) return Status{Fault::NotFound, "the table " + meet.name() + " has no row"};
  const jet::Record& record = scan.record();
  const auto bindings = FieldsOf(meet);
  TRY_ASSIGN(const auto fields, BoundFields<MeetSettings>::Of(meet, bindings));
  MeetSettings settings = fields.Load(record);
  for (int lane = 1; lane <= kDualLanes; ++lane) {
    const int column = meet.Column("dualteam_lane" + std::to_string(lane));
    if (column >= 0) settings.dualteam_lane[static_cast<size_t>(lane - 1)] = record.Long(column);
  }
  TRY(record.status());
  ReadUnknownAsFirst(settings);
  return settings;
}

marks::MarkSettings MarkSettingsOf(const MeetSettings& meet, const ProgramSettings& program) {
  marks::MarkSettings marks;
  marks.decimal_separator = program.decimal_separator;
  marks.thousandths = program.thousandths;
  marks.check_ranges = meet.check_times;
  marks.convert_hand_times = meet.converthand_toFAT;
  marks.hand_rule = meet.Meet_class;
  marks.meet_class = meet.Meet_class;
  marks.even_centimetre = meet.rounddown_toevencentimeter;
  marks.whole_inch = meet.rounddown_toevencentimeter;
  marks.short_attempt_form = meet.useX_forFoul;
  marks.round_to_tenths = meet.roundresults_uptotenths;
  marks.meet_type = marks::MeetTypeLetter(meet.Meet_kind);
  marks.suppress_x = meet.Suppress_X;
  marks.suppress_small_x = meet.suppress_smallx;
  return marks;
}

}  // namespace tarvex::database
