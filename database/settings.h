#pragma once

#include <array>
#include <string>

#include "database/program_settings.h"
#include "jet/table.h"
#include "marks/settings.h"

namespace tarvex::database {

inline constexpr int kDualLanes = 10;

// The settings row of the meet, as far as rules and reports read it. Members are named as the fields of
// `Meet`. Numbers that limit something mean "no limit" when they are 0. Days are counted from 1899-12-30, 0 =
// none.
struct MeetSettings {
  std::string Meet_name1, Meet_name2, Meet_location;
  double Meet_start = 0, Meet_end = 0;
  double Calc_date = 0;  // the age-up date: athletes compete at the age of this day

  int Meet_kind = 1;       // 1 Track and Field / CC, 2 Swim-Bike-Run, 3 Lifeguard, 4 Wheelchair
  int Meet_class = 1;      // 1 High School, 2 College, 3 USATF, 4 IAAF, 5 Masters/Veterans, 6 Other
  int Meet_meettype = 1;   // divisions: 1 Standard, 2 By Event, 3 By Team, 4 By Entry
  int meet_meetstyle = 1;  // 1 Standard, 2 two-team dual, 3 double dual
  char meet_arena = 'O';   // 'I' indoor, 'O' outdoor
  int Meet_course = 1;     // units proposed for new events: 1 metric, 2 English
  int meet_numlanes = 0;
  int Meet_idformat = 1;  // registration numbers: 1 free text, 2 digits only
  bool Read_Only = false;

  // Athletes, teams, competitor numbers, limits of entries.
  int compno_uniqueness = 1;  // competitor numbers are unique 1 in the meet, 2 per sex
  bool use_compnumbers = false, autoinc_compno = false;
  int entrymax_total = 0, trkmax_perath = 0, fldmax_perath = 0;
  bool entrylimits_warn = false, entryqual_faster = false;
  bool linkteams_todivisions = false, usedivision_birthdateranges = false;
  bool allowsameevent_duprelaynames = false, anyone_onrelay = false;
  bool use_declarationmethod = false;

  // Marks.
  bool check_times = false;
  bool converthand_toFAT = false;
  bool rounddown_toevencentimeter = false;
  bool roundresults_uptotenths = false;
  bool useX_forFoul = false;
  bool record_windreadings = false;

  // Seeding.
  char timedfinal_randrule = 'A', round1_randrule = 'A', round234_randrule = 'A';  // 'A' to 'E'
  bool round1_closegaps = false, ncaa_rule105a = false;
  int prelimheats_circle = 0;  // how many of the fastest heats are dealt in serpentine; 0 = all
  bool timedfinal_circleseed = false;
  bool foreign_infinal = false, exh_infinal = false, seed_exhlast = false;
  bool random_select = false;
  bool showfinishplace_withentry = false;  // places of the 1st round are shown with the entries of the next
  int indmaxadvance_perteam = 0, relmaxadvance_perteam = 0;
  // Dual meets: which team owns lane i + 1, 0 = none.
  std::array<int, kDualLanes> dualteam_lane = {};
  int team_evenlanes = 0, team_oddlanes = 0;
  bool dual_evenodd = false, strict_evenodd = false, strict_evenoddfastestheatonly = false;
  bool Dual_InLaneRacesOnly = false, dualseeding_altunusedlane = false;

  // Places and points.
  bool exhibition_getfinalsrank = false, foreign_treatasexhibition = false;
  bool foreign_getteampoints = false;
  bool A_Relaysonly = false, score_Arelayonly = false, score_fastestheatonly = false;
  bool scoreonly_ifexceedqualtime = false, addqtrrelaypts_toindscore = false;
  bool diffpts_malefemale = false, diffpts_eachdivision = false;
  bool useeventsex_teamscore = false, thrucurrentevt_teamscore = false;
  int indmaxscorers_perteam = 0, relmaxscorers_perteam = 0;
  bool fieldevent_relays = false, runningevent_relays = false, FieldRelayUnderSize_CanScore = false;
  int fldrelnumber_teamscorers = 0, runrelnumber_teamscorers = 0, xrrnumber_teamscorers = 0;
  int xrrTopMany_ExcludeFromAgeResults = 0;

  // Cross-country.
  bool ccnonteam_displace = false, ccdynamic_scoring = false, xccPenaltyPts_LastPlusOne = false;
  int xccminimum_onteam = 0, xccmaxscorers_perteam = 0, xccnumberdisplacers_perteam = 0;
  int xccpenalty_points = 0;

  // How lists show things.
  bool Lastname_first = false, firstname_asinitial = false, show_initial = false;
  bool showbirthyear_insteadofage = false, suppress_age = false, showathlete_status = false;
  bool Use_hometown = false, show_hometownandteam = false, Show_countrycode = false;
  bool Use_AltTeamAbbr = false, suppress_UNATeamName = false;
  bool suppress_Arelay = false, suppress_smallx = false, Suppress_X = false, suppress_jd = false;
  bool Suppress_TimeStdAbbr = false, showFieldEvent_Conversions = false, RelaysShow_TotalDistance = false;
  bool showAlternate_EventNumbers = false, under_eventname = false, noteswith_eachentry = false;
  bool Display_ActualEntryTime = false, DisplayNTfor_TimesUnder5Sec = false, under120_asseconds = false;
  bool Scores_afterevt = false, military_time = false;
  bool report_excludemeetname = false, report_excludemeetname2 = false, report_excludelocation = false;
  int incl_meetdate = 1;
  char open_senior_none = 'N', apnews_team = 'S';
};

// The row of the table `Meet`. Blank and unknown codes read as their first value, a blank arena as outdoor, a
// blank or unknown rule letter as 'A'; a field that the table lacks keeps its default. Fault::NotFound when
// there is no row.
Expected<MeetSettings> LoadSettings(const jet::Table& meet);

// What the rules of marks take from the meet's and the program's settings.
marks::MarkSettings MarkSettingsOf(const MeetSettings& meet, const ProgramSettings& program);

}  // namespace tarvex::database
