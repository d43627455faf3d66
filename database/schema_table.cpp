#include "database/schema.h"

namespace tarvex::database {
namespace {

using jet::ColumnType;

constexpr FieldType Text(int characters) {
  return {ColumnType::Text, characters};
}
constexpr FieldType kLong{ColumnType::Long};
constexpr FieldType kInteger{ColumnType::Integer};
constexpr FieldType kBoolean{ColumnType::Boolean};
constexpr FieldType kSingle{ColumnType::Single};
constexpr FieldType kCurrency{ColumnType::Currency};
constexpr FieldType kDate{ColumnType::Date};
constexpr FieldType kCounter{ColumnType::Long, 0, true};
constexpr bool kPrimary = true;

constexpr SchemaField kAgegroupFields[] = {
    {"Low_age", kInteger},
    {"High_age", kInteger},
};

constexpr SchemaField kAthleteFields[] = {
    {"Ath_no", kCounter},         {"Last_name", Text(20)},     {"First_name", Text(20)},
    {"Initial", Text(1)},         {"Ath_Sex", Text(1)},        {"Birth_date", kDate},
    {"Team_no", kLong},           {"Schl_yr", Text(2)},        {"Ath_age", kInteger},
    {"Reg_no", Text(15)},         {"Ath_stat", Text(1)},       {"Div_no", kLong},
    {"Comp_no", kLong},           {"Pref_name", Text(20)},     {"Home_addr1", Text(30)},
    {"Home_addr2", Text(30)},     {"Home_city", Text(30)},     {"Home_prov", Text(30)},
    {"Home_state", Text(3)},      {"Home_zip", Text(10)},      {"Home_cntry", Text(3)},
    {"Home_daytele", Text(20)},   {"Home_evetele", Text(20)},  {"Home_faxtele", Text(20)},
    {"Home_email", Text(40)},     {"Citizen_of", Text(3)},     {"Picture_bmp", Text(30)},
    {"Shirt_size", Text(4)},      {"Fee1_no", kInteger},       {"Fee1_due", kCurrency},
    {"Fee1_pd", kCurrency},       {"Fee2_no", kInteger},       {"Fee2_due", kCurrency},
    {"Fee2_pd", kCurrency},       {"Fee3_no", kInteger},       {"Fee3_due", kCurrency},
    {"Fee3_pd", kCurrency},       {"Fee4_no", kInteger},       {"Fee4_due", kCurrency},
    {"Fee4_pd", kCurrency},       {"Fee5_no", kInteger},       {"Fee5_due", kCurrency},
    {"Fee5_pd", kCurrency},       {"Fee6_no", kInteger},       {"Fee6_due", kCurrency},
    {"Fee6_pd", kCurrency},       {"Fee7_no", kInteger},       {"Fee7_due", kCurrency},
    {"Fee7_pd", kCurrency},       {"Fee8_no", kInteger},       {"Fee8_due", kCurrency},
    {"Fee8_pd", kCurrency},       {"Fee9_no", kInteger},       {"Fee9_due", kCurrency},
    {"Fee9_pd", kCurrency},       {"Fee10_no", kInteger},      {"Fee10_due", kCurrency},
    {"Fee10_pd", kCurrency},      {"Logical_1", kBoolean},     {"Logical_2", kBoolean},
    {"Logical_3", kBoolean},      {"Logical_4", kBoolean},     {"Club_name", Text(30)},
    {"DA_RegNo", Text(25)},       {"Home_celltele", Text(20)}, {"Home_emergcontact", Text(30)},
    {"Home_emergtele", Text(20)}, {"athGUID_strg", Text(36)},
};
constexpr SchemaIndex kAthleteIndexes[] = {
    {"athno", {"ath_no"}, kPrimary},          {"athteam", {"team_no"}},
    {"athlastname", {"last_name"}},           {"athcompno", {"comp_no"}},
    {"athsexcompno", {"ath_sex", "comp_no"}},
};

constexpr SchemaField kCCNamesFields[] = {
    {"Event_ptr", kLong}, {"Team_no", kLong},       {"Team_ltr", Text(255)}, {"Ath_no", kLong},
    {"Pos_no", kInteger}, {"Event_round", Text(1)}, {"Relay_no", kLong},
};

constexpr SchemaField kCCrankFields[] = {
    {"Event_ptr", kLong},     {"Ath_no", kLong},         {"Ath_sex", Text(1)},     {"Ath_stat", Text(1)},
    {"Team_no", kLong},       {"Chute_rank", kLong},     {"Chute_no", kInteger},   {"Div_no", kLong},
    {"Ev_score", kLong},      {"JDEv_score", kLong},     {"score_stat", Text(1)},  {"multi_age", kInteger},
    {"Fin_hand", kBoolean},   {"Fin_stat", Text(1)},     {"Fin_Time", kSingle},    {"Fin_course", Text(1)},
    {"Fin_place", kInteger},  {"Fin_jdplace", kInteger}, {"Fin_award", kInteger},  {"Fin_exh", Text(1)},
    {"Fin_points", kInteger}, {"Fin_agegrade", kSingle}, {"Fin_percent", kSingle}, {"Team_ltr", Text(1)},
};
constexpr SchemaIndex kCCrankIndexes[] = {
    {"CCevtptr", {"event_ptr"}},
    {"CCathno", {"ath_no"}},
    {"CCevtptrathno", {"event_ptr", "ath_no"}},
    {"ccrankevtchutenorank", {"event_ptr", "chute_no", "chute_rank"}},
    {"ccrankathnoevt", {"ath_no", "event_ptr"}},
    {"ccrankevtteamplace", {"event_ptr", "team_no", "fin_place"}},
    {"ccrankevtsexteamplace", {"event_ptr", "ath_sex", "team_no", "fin_place"}},
    {"ccrankevtplace", {"event_ptr", "fin_place"}},
    {"ccrankevtplacechuteno", {"event_ptr", "fin_place", "chute_no"}},
};

constexpr SchemaField kCCTeamScoresFields[] = {
    {"Event_ptr", kLong},  {"team_no", kLong},     {"team_place", kLong},
    {"team_score", kLong}, {"Fin_hand", kBoolean},
};
constexpr SchemaIndex kCCTeamScoresIndexes[] = {
    {"evtptrteamno", {"event_ptr", "team_no"}},
};

constexpr SchemaField kCCtimeFields[] = {
    {"Event_ptr", kLong},   {"Ath_no", kLong},     {"Chute_rank", kLong}, {"Chute_no", kInteger},
    {"Fin_hand", kBoolean}, {"Fin_stat", Text(1)}, {"Fin_Time", kSingle},
};
constexpr SchemaIndex kCCtimeIndexes[] = {
    {"ccevtchutetime", {"event_ptr", "chute_no", "fin_time"}},
    {"ccchuterank", {"chute_rank"}},
    {"ccevttime", {"event_ptr", "fin_time"}},
    {"ccevtchuterank", {"event_ptr", "chute_no", "chute_rank"}},
};

constexpr SchemaField kChipIDFields[] = {
    {"Ath_no", kLong},      {"Comp_no", kLong},    {"Chip_id1", Text(12)},
    {"Chip_id2", Text(12)}, {"is_used", kBoolean},
};
constexpr SchemaIndex kChipIDIndexes[] = {
    {"athno", {"ath_no"}},
    {"compno", {"comp_no"}},
    {"Chipid1", {"Chip_id1"}},
    {"Chipid2", {"Chip_id2"}},
    {"isused", {"is_used"}, !kPrimary, Made::AtFirstOpening},
};

constexpr SchemaField kConversionsFields[] = {
    {"Event_ptr", kLong},  {"Conv_ltr", Text(1)}, {"Conv_name", Text(12)}, {"sign_1", Text(1)},
    {"factor_1", kSingle}, {"sign_2", Text(1)},   {"factor_2", kSingle},
};
constexpr SchemaIndex kConversionsIndexes[] = {
    {"ConvEvtPtrLtr", {"event_ptr", "conv_ltr"}, kPrimary},
};

constexpr SchemaField kCustomAlleysFields[] = {
    {"event_ptr", kLong},
    {"order_no", kInteger},
    {"alley_name", Text(3)},
};
constexpr SchemaIndex kCustomAlleysIndexes[] = {
    {"custalleyevtord", {"event_ptr", "order_no"}, kPrimary},
};

constexpr SchemaField kCustomLanesFields[] = {
    {"event_ptr", kLong},   {"tot_lanes", kInteger}, {"order_01", kInteger}, {"order_02", kInteger},
    {"order_03", kInteger}, {"order_04", kInteger},  {"order_05", kInteger}, {"order_06", kInteger},
    {"order_07", kInteger}, {"order_08", kInteger},  {"order_09", kInteger}, {"order_10", kInteger},
    {"order_11", kInteger}, {"order_12", kInteger},
};
constexpr SchemaIndex kCustomLanesIndexes[] = {
    {"custlaneevtlane", {"event_ptr", "tot_lanes"}, kPrimary},
};

constexpr SchemaField kDivisionsFields[] = {
    {"Div_no", kLong},      {"Div_abbr", Text(3)},     {"Div_name", Text(20)},     {"low_age", kInteger},
    {"high_age", kInteger}, {"low_yeardate", Text(1)}, {"high_yeardate", Text(1)}, {"beg_date", kDate},
    {"end_date", kDate},    {"max_entries", kInteger},
};

constexpr SchemaField kDualteamsFields[] = {
    {"team_gender", Text(1)},
    {"ateam_no", kLong},
    {"bteam_no", kLong},
};

constexpr SchemaField kEntrymultiFields[] = {
    {"Event_ptr", kLong},        {"Mult_ptr", kLong},          {"Ath_no", kLong},
    {"ActSeed_course", Text(1)}, {"ActualSeed_time", kSingle}, {"ConvSeed_course", Text(1)},
    {"ConvSeed_time", kSingle},  {"Hand_time", kBoolean},      {"Seed_place", kLong},
    {"dq_type", Text(1)},        {"Fin_heat", kInteger},       {"Fin_lane", kInteger},
    {"unFin_heat", kInteger},    {"unFin_lane", kInteger},     {"Fin_hand", kBoolean},
    {"Fin_group", kInteger},     {"Fin_stat", Text(1)},        {"Fin_time", kSingle},
    {"Fin_course", Text(1)},     {"Fin_heatplace", kInteger},  {"Fin_jdheatplace", kInteger},
    {"Fin_place", kInteger},     {"Fin_jdplace", kInteger},    {"Fin_ptsplace", kInteger},
    {"Fin_award", kInteger},     {"Fin_exh", Text(1)},         {"Fin_wind", Text(5)},
    {"Fin_points", kInteger},    {"Fin_agegrade", kSingle},    {"Fin_percent", kSingle},
    {"Fin_note", Text(20)},      {"Fin_video", kBoolean},      {"Video_time", kBoolean},
};
constexpr SchemaIndex kEntrymultiIndexes[] = {
    {"entmultimultptr", {"mult_ptr"}},
    {"entmultiathno", {"ath_no"}},
    {"entmultiathnomultptr", {"ath_no", "mult_ptr"}},
};

constexpr SchemaField kEntryFields[] = {
    {"Event_ptr", kLong},
    {"Ath_no", kLong},
    {"ActSeed_course", Text(1)},
    {"ActualSeed_time", kSingle},
    {"ConvSeed_course", Text(1)},
    {"ConvSeed_time", kSingle},
    {"Hand_time", kBoolean},
    {"Video_time", kBoolean},
    {"Team_age", kInteger},
    {"Conv_ltr", Text(1)},
    {"Seed_place", kLong},
    {"Scr_stat", kBoolean},
    {"Spec_stat", Text(1)},
    {"Dec_stat", Text(1)},
    {"Alt_stat", kBoolean},
    {"Bonus_event", kBoolean},
    {"Div_no", kLong},
    {"Ev_score", kSingle},
    {"JDEv_score", kSingle},
    {"dq_type", Text(1)},
    {"Pre_heat", kInteger},
    {"Pre_lane", kInteger},
    {"unPre_heat", kInteger},
    {"unPre_lane", kInteger},
    {"Pre_hand", kBoolean},
    {"Pre_video", kBoolean},
    {"Pre_stat", Text(1)},
    {"Pre_Time", kSingle},
    {"Pre_course", Text(1)},
    {"Pre_heatplace", kInteger},
    {"Pre_jdheatplace", kInteger},
    {"Pre_place", kInteger},
    {"Pre_jdplace", kInteger},
    {"Pre_exh", Text(1)},
    {"Pre_wind", Text(5)},
    {"Pre_points", kInteger},
    {"Pre_agegrade", kSingle},
    {"Pre_percent", kSingle},
    {"Fin_heat", kInteger},
    {"Fin_lane", kInteger},
    {"unFin_heat", kInteger},
    {"unFin_lane", kInteger},
    {"Fin_hand", kBoolean},
    {"Fin_video", kBoolean},
    {"Fin_group", kInteger},
    {"Fin_stat", Text(1)},
    {"Fin_Time", kSingle},
    {"Fin_course", Text(1)},
    {"Fin_heatplace", kInteger},
    {"Fin_jdheatplace", kInteger},
    {"Fin_place", kInteger},
    {"Fin_jdplace", kInteger},
    {"Fin_ptsplace", kInteger},
    {"Fin_award", kInteger},
    {"Fin_exh", Text(1)},
    {"Fin_wind", Text(5)},
    {"Fin_points", kInteger},
    {"Fin_agegrade", kSingle},
    {"Fin_percent", kSingle},
    {"Sem_heat", kInteger},
    {"Sem_lane", kInteger},
    {"unSem_heat", kInteger},
    {"unSem_lane", kInteger},
    {"Sem_hand", kBoolean},
    {"Sem_video", kBoolean},
    {"Sem_stat", Text(1)},
    {"Sem_Time", kSingle},
    {"Sem_course", Text(1)},
    {"Sem_heatplace", kInteger},
    {"sem_jdheatplace", kInteger},
    {"Sem_place", kInteger},
    {"Sem_jdplace", kInteger},
    {"Sem_exh", Text(1)},
    {"Sem_wind", Text(5)},
    {"Sem_points", kInteger},
    {"Sem_agegrade", kSingle},
    {"Sem_percent", kSingle},
    {"Qtr_heat", kInteger},
    {"Qtr_lane", kInteger},
    {"unQtr_heat", kInteger},
    {"unQtr_lane", kInteger},
    {"Qtr_hand", kBoolean},
    {"Qtr_video", kBoolean},
    {"Qtr_stat", Text(1)},
    {"Qtr_Time", kSingle},
    {"Qtr_course", Text(1)},
    {"Qtr_heatplace", kInteger},
    {"Qtr_jdheatplace", kInteger},
    {"Qtr_place", kInteger},
    {"Qtr_jdplace", kInteger},
    {"Qtr_exh", Text(1)},
    {"Qtr_wind", Text(5)},
    {"Qtr_points", kInteger},
    {"Qtr_agegrade", kSingle},
    {"Qtr_percent", kSingle},
    {"entry_note", Text(60)},
    {"Team_ltr", Text(1)},
    {"Pre_note", Text(20)},
    {"Qtr_note", Text(20)},
    {"Sem_note", Text(20)},
    {"Fin_note", Text(20)},
};
constexpr SchemaIndex kEntryIndexes[] = {
    {"entevtptr", {"event_ptr"}},
    {"entathno", {"ath_no"}},
    {"entathnoevtptr", {"ath_no", "event_ptr"}},
    {"entevtptrseed", {"event_ptr", "ConvSeed_time"}},
};

constexpr SchemaField kEventmultiFields[] = {
    {"MultiEvent_no", kInteger},
    {"Event_ptr", kLong},
    {"Mult_ptr", kCounter},
    {"Multi_table", Text(1)},
    {"Event_dist", kSingle},
    {"Event_stroke", Text(1)},
    {"Event_stat", Text(1)},
    {"Serp_Type", Text(1)},
    {"Trk_Field", Text(1)},
    {"Res_Meas", Text(1)},
    {"Num_finlanes", kInteger},
    {"Std_lanes", Text(1)},
    {"Finheat_order", Text(1)},
    {"Comm_1", Text(63)},
    {"Comm_2", Text(63)},
    {"Is_locked", kBoolean},
    {"Locked_by", Text(20)},
    {"Locked_list", Text(12)},
    {"event_note", Text(12)},
    {"Auto_seed", kBoolean},
    {"add_sponsor", kBoolean},
    {"Seed_Meas", Text(1)},
    {"Fin_AwardsPrinted", kBoolean},
};
constexpr SchemaIndex kEventmultiIndexes[] = {
    {"multiptr", {"mult_ptr"}, kPrimary},
    {"multptrevtptr", {"event_ptr", "mult_ptr"}},
};

constexpr SchemaField kEventFields[] = {
    {"Event_no", kInteger},
    {"Event_ltr", Text(1)},
    {"Event_ptr", kCounter},
    {"Ind_rel", Text(1)},
    {"Event_sex", Text(1)},
    {"Event_gender", Text(1)},
    {"Event_dist", kSingle},
    {"Event_stroke", Text(1)},
    {"Low_age", kInteger},
    {"High_Age", kInteger},
    {"Multi_age", kBoolean},
    {"Event_stat", Text(1)},
    {"Unseeded_stat", Text(1)},
    {"Adv_How", Text(1)},
    {"Serp_Type", Text(1)},
    {"Trk_Field", Text(1)},
    {"Seed_Meas", Text(1)},
    {"Res_Meas", Text(1)},
    {"Event_rounds", kInteger},
    {"Num_prelanes", kInteger},
    {"Num_finlanes", kInteger},
    {"Finals_setup", Text(1)},
    {"Heats_infinal", kInteger},
    {"Heats_insemi", kInteger},
    {"Heats_inqtr", kInteger},
    {"Std_lanes", Text(1)},
    {"Auto_seed", kBoolean},
    {"Preheat_order", Text(1)},
    {"Finheat_order", Text(1)},
    {"Score_event", kBoolean},
    {"Div_no", kInteger},
    {"Relay_size", kInteger},
    {"Comm_1", Text(63)},
    {"Comm_2", Text(63)},
    {"Comm_3", Text(63)},
    {"Comm_4", Text(63)},
    {"Entry_fee", kCurrency},
    {"Is_locked", kBoolean},
    {"Locked_by", Text(20)},
    {"Event_Type", Text(1)},
    {"Locked_list", Text(12)},
    {"Rnd1_alleys", kInteger},
    {"Rnd2_alleys", kInteger},
    {"Rnd3_alleys", kInteger},
    {"Rnd4_alleys", kInteger},
    {"Pre_time", Text(8)},
    {"Qtr_time", Text(8)},
    {"Sem_time", Text(8)},
    {"Fin_time", Text(8)},
    {"event_note", Text(12)},
    {"Top_no1", kInteger},
    {"Next_Best1", kInteger},
    {"Heatsin_Rnd1", kInteger},
    {"Top_no2", kInteger},
    {"Next_Best2", kInteger},
    {"Heatsin_Rnd2", kInteger},
    {"Top_no3", kInteger},
    {"Next_Best3", kInteger},
    {"Heatsin_Rnd3", kInteger},
    {"add_sponsor", kBoolean},
    {"Fin_AwardsPrinted", kBoolean},
    {"Pre_AwardsPrinted", kBoolean},
    {"Sem_AwardsPrinted", kBoolean},
    {"Qtr_AwardsPrinted", kBoolean},
    {"CCracestart_date", kDate},
    {"CCracestart_time", kSingle},
    {"Num_qtrlanes", kInteger},
    {"Num_semlanes", kInteger},
    {"Event_Type2", Text(1)},
};
constexpr SchemaIndex kEventIndexes[] = {
    {"eventptr", {"event_ptr"}, kPrimary},
};

constexpr SchemaField kVANTRELOPTIONSFields[] = {
    {"VantrelMeetID", kLong},
    {"AgencyID", Text(40)},
    {"EV5_uploaded", kBoolean},
    {"Heatpsych_uploaded", kBoolean},
    {"Heatsheet_amount", kSingle},
    {"Teamscoring_choice", kInteger},
    {"Contract_agreed", kBoolean},
    {"DoNotShow_timeline", kBoolean},
    {"HeatPsych_choice", kInteger},
    {"Contract_PersonName", Text(40)},
    {"Contract_PersonBirth", kDate},
    {"LastName", Text(50)},
    {"FirstName", Text(50)},
    {"Phone", Text(20)},
    {"EMail", Text(50)},
    {"TeamName", Text(50)},
    {"Addr", Text(50)},
    {"SecAddr", Text(30)},
    {"City", Text(30)},
    {"State", Text(3)},
    {"Zip", Text(10)},
    {"Cntry", Text(3)},
    {"TimeZone", Text(50)},
    {"PayTo", Text(50)},
    {"Classification", Text(50)},
    {"WebSite", Text(50)},
    {"Token", Text(80)},
    {"OMEWebSite", Text(100)},
    {"NoShowActiveComSetup", kBoolean},
    {"NotInterestedIn_Vantrel", kBoolean},
    {"HeatSheetsAre_Free", kBoolean},
    {"DoNotShow_MobileEntryMarks", kBoolean},
};

constexpr SchemaField kMeetFields[] = {
    {"win_tftvx", kBoolean},
    {"Meet_name1", Text(45)},
    {"Meet_name2", Text(45)},
    {"Meet_location", Text(45)},
    {"Meet_start", kDate},
    {"Meet_end", kDate},
    {"Meet_kind", kInteger},
    {"Meet_class", kInteger},
    {"Meet_meettype", kInteger},
    {"meet_meetstyle", kInteger},
    {"usedivision_birthdateranges", kBoolean},
    {"fieldevent_relays", kBoolean},
    {"runningevent_relays", kBoolean},
    {"random_select", kBoolean},
    {"Enter_ages", kBoolean},
    {"Enter_birthdate", kBoolean},
    {"Calc_date", kDate},
    {"Enter_schoolyr", kBoolean},
    {"enter_middleinitial", kBoolean},
    {"show_initial", kBoolean},
    {"enter_athstat", kBoolean},
    {"showathlete_status", kBoolean},
    {"enter_regno", kBoolean},
    {"enter_citizenof", kBoolean},
    {"Use_hometown", kBoolean},
    {"Show_countrycode", kBoolean},
    {"Lastname_first", kBoolean},
    {"firstname_asinitial", kBoolean},
    {"showbirthyear_insteadofage", kBoolean},
    {"Punct_names", kBoolean},
    {"Punct_teams", kBoolean},
    {"ucase_names", kBoolean},
    {"ucase_teams", kBoolean},
    {"open_senior_none", Text(1)},
    {"Punct_recholders", kBoolean},
    {"ucase_recholders", kBoolean},
    {"language_choice", Text(20)},
    {"military_time", kBoolean},
    {"enterkey_astab", kBoolean},
    {"A_Relaysonly", kBoolean},
    {"allowsameevent_duprelaynames", kBoolean},
    {"anyone_onrelay", kBoolean},
    {"suppress_Arelay", kBoolean},
    {"score_Arelayonly", kBoolean},
    {"foreign_infinal", kBoolean},
    {"foreign_getteampoints", kBoolean},
    {"exh_infinal", kBoolean},
    {"seed_exhlast", kBoolean},
    {"exhibition_getfinalsrank", kBoolean},
    {"foreign_treatasexhibition", kBoolean},
    {"dual_evenodd", kBoolean},
    {"strict_evenodd", kBoolean},
    {"team_evenlanes", kLong},
    {"team_oddlanes", kLong},
    {"Scores_afterevt", kBoolean},
    {"useeventsex_teamscore", kBoolean},
    {"thrucurrentevt_teamscore", kBoolean},
    {"diffpts_malefemale", kBoolean},
    {"diffpts_eachdivision", kBoolean},
    {"scoreonly_ifexceedqualtime", kBoolean},
    {"score_fastestheatonly", kBoolean},
    {"addqtrrelaypts_toindscore", kBoolean},
    {"compno_uniqueness", kInteger},
    {"use_compnumbers", kBoolean},
    {"autoinc_compno", kBoolean},
    {"entryqual_faster", kBoolean},
    {"indentryfee_surcharge", kCurrency},
    {"swimmer_surcharge", kCurrency},
    {"indmaxscorers_perteam", kInteger},
    {"relmaxscorers_perteam", kInteger},
    {"indtopmany_awards", kInteger},
    {"reltopmany_awards", kInteger},
    {"entrymax_total", kInteger},
    {"trkmax_perath", kInteger},
    {"fldmax_perath", kInteger},
    {"entrylimits_warn", kBoolean},
    {"check_times", kBoolean},
    {"report_excludemeetname", kBoolean},
    {"report_excludemeetname2", kBoolean},
    {"report_excludelocation", kBoolean},
    {"under120_asseconds", kBoolean},
    {"showAlternate_EventNumbers", kBoolean},
    {"under_eventname", kBoolean},
    {"suppress_smallx", kBoolean},
    {"showFieldEvent_Conversions", kBoolean},
    {"record_windreadings", kBoolean},
    {"converthand_toFAT", kBoolean},
    {"use_declarationmethod", kBoolean},
    {"noteswith_eachentry", kBoolean},
    {"showfinishplace_withentry", kBoolean},
    {"roundresults_uptotenths", kBoolean},
    {"rounddown_toevencentimeter", kBoolean},
    {"rank_agegraded", kBoolean},
    {"stdevt_oneyragegrade", kBoolean},
    {"multievt_fiveyragegrade", kBoolean},
    {"show_AgeGrade", kBoolean},
    {"ccnonteam_displace", kBoolean},
    {"ccdynamic_scoring", kBoolean},
    {"xccminimum_onteam", kInteger},
    {"xccmaxscorers_perteam", kInteger},
    {"xccnumberdisplacers_perteam", kInteger},
    {"xccpenalty_points", kInteger},
    {"xrrnumber_teamscorers", kInteger},
    {"fldrelnumber_teamscorers", kInteger},
    {"runrelnumber_teamscorers", kInteger},
    {"Meet_idformat", kInteger},
    {"Meet_course", kInteger},
    {"meet_numlanes", kInteger},
    {"prelimheats_circle", kInteger},
    {"timedfinal_circleseed", kBoolean},
    {"timedfinal_randrule", Text(1)},
    {"round1_randrule", Text(1)},
    {"round234_randrule", Text(1)},
    {"round1_closegaps", kBoolean},
    {"ncaa_rule105a", kBoolean},
    {"apnews_team", Text(1)},
    {"suppress_age", kBoolean},
    {"suppress_jd", kBoolean},
    {"linkteams_todivisions", kBoolean},
    {"team_surcharge", kCurrency},
    {"meet_arena", Text(1)},
    {"show_hometownandteam", kBoolean},
    {"incl_meetdate", kInteger},
    {"Use_AltTeamAbbr", kBoolean},
    {"FieldRelayUnderSize_CanScore", kBoolean},
    {"suppress_UNATeamName", kBoolean},
    {"DA_meethandle", kLong},
    {"DA_unpubmeethandle", kLong},
    {"DA_meetsport", Text(10)},
    {"Read_Only", kBoolean},
    {"dualteam_lane", kLong},
    {"dualteam_lane1", kLong},
    {"dualteam_lane2", kLong},
    {"dualteam_lane3", kLong},
    {"dualteam_lane4", kLong},
    {"dualteam_lane5", kLong},
    {"dualteam_lane6", kLong},
    {"dualteam_lane7", kLong},
    {"dualteam_lane8", kLong},
    {"dualteam_lane9", kLong},
    {"dualteam_lane10", kLong},
    {"strict_evenoddfastestheatonly", kBoolean},
    {"dualseeding_altunusedlane", kBoolean},
    {"Display_ActualEntryTime", kBoolean},
    {"indmaxadvance_perteam", kInteger},
    {"relmaxadvance_perteam", kInteger},
    {"Facility_Surcharge", kCurrency},
    {"Suppress_X", kBoolean},
    {"Suppress_TimeStdAbbr", kBoolean},
    {"Dual_InLaneRacesOnly", kBoolean},
    {"xccPenaltyPts_LastPlusOne", kBoolean},
    {"xrrTopMany_ExcludeFromAgeResults", kInteger},
    {"useX_forFoul", kBoolean},
    {"Show_ChipID", kBoolean},
    {"Enter_birthcentury", kBoolean},
    {"DisplayNTfor_TimesUnder5Sec", kBoolean},
    {"SortTeamCombos_ByTeamName", kBoolean},
    {"RelaysShow_TotalDistance", kBoolean},
    {"Meet_addr1", Text(30)},
    {"Meet_addr2", Text(30)},
    {"Meet_city", Text(30)},
    {"Meet_state", Text(3)},
    {"Meet_zip", Text(10)},
    {"Meet_country", Text(3)},
};

constexpr SchemaField kMemorizedReportsFields[] = {
    {"Mem_Name", Text(40)},
    {"Mem_Type", Text(20)},
    {"Mem_Ptr", kCounter},
    {"Num_Columns", kInteger},
    {"Sort_Order", kInteger},
    {"Date_Time", kBoolean},
    {"ID_Type", kInteger},
    {"Top_HowMany", kInteger},
    {"Num_RelayNames", kInteger},
    {"Show_StartTimes", kBoolean},
    {"Incl_Records", kBoolean},
    {"Incl_TimeStds", kBoolean},
    {"Incl_QualTimes", kBoolean},
    {"Incl_EvtComments", kBoolean},
    {"Line_ForResults", kBoolean},
    {"Incl_NoEntries", kBoolean},
    {"Incl_PriorResults", kBoolean},
    {"Incl_Rnd1Alt", kBoolean},
    {"Incl_EmptyLanes", kBoolean},
    {"Show_SeedTimes", kBoolean},
    {"Sep_ABFinal", kBoolean},
    {"OneEvent_PerPage", kBoolean},
    {"EntryDec_Format", kInteger},
    {"OneHeat_PerPage", kBoolean},
    {"Dbl_Space", kBoolean},
    {"Show_Ranks", kBoolean},
    {"MultiAge_Split", kBoolean},
    {"Incl_QualifiedAlts", kBoolean},
    {"ScrAltExhSpec_Filters", kInteger},
    {"Incl_Scratches", kBoolean},
    {"Ignore_Psych", kBoolean},
    {"Sess_Row", kInteger},
    {"Evt_Gender", Text(1)},
    {"Evt_LowAge", kInteger},
    {"Evt_HighAge", kInteger},
    {"Team_Abbr", Text(30)},
    {"Evt_Round", Text(1)},
    {"Evt_IndivOrRelay", Text(1)},
    {"Report_Type", kInteger},
    {"Sort_OrderAthAge", kInteger},
    {"Incl_AthNoEntries", kBoolean},
    {"Incl_AthNoEntries4Col", kBoolean},
    {"AddApost_ClassYear", kBoolean},
    {"Incl_CompNo", kBoolean},
    {"Incl_CompNo4Col", kBoolean},
    {"AddrSort_ByTeam", kBoolean},
    {"AddrSort_ByZip", kBoolean},
    {"Incl_ScrInEntryCount", kBoolean},
    {"Incl_AltInEntryCount", kBoolean},
    {"Incl_BirthDate", kBoolean},
    {"Incl_TeamAddr", kBoolean},
    {"Incl_Coaches", kBoolean},
    {"AthUseAbbr_ForTeam", kBoolean},
    {"Div_Abbr", Text(3)},
    {"Report_Format", kInteger},
    {"Incl_HeatLane", kBoolean},
    {"Add_LineSpace", kBoolean},
    {"Incl_RegID", kBoolean},
    {"Show_CheckIn", kBoolean},
    {"NumAth_PerPage", kInteger},
    {"Splits_Choice", kInteger},
    {"Results_ByHeat", kBoolean},
    {"Page_Break", kInteger},
    {"Incl_SpecPts", kBoolean},
    {"Incl_TimeTrials", kBoolean},
    {"Incl_NoShows", kBoolean},
    {"Incl_TeamPts", kBoolean},
    {"Low_Lane", kInteger},
    {"High_Lane", kInteger},
    {"Score_Female", kBoolean},
    {"Score_Male", kBoolean},
    {"Score_Combined", kBoolean},
    {"Score_CombinedBoth", kBoolean},
    {"BAG_CATS", kBoolean},
    {"Flat_HTML", kBoolean},
    {"DotMatrix_LabelChoice", kInteger},
    {"Laser_LabelChoice", kInteger},
    {"Incl_TeamScore", kBoolean},
    {"Incl_FemaleTeamScore", kBoolean},
    {"Incl_MaleTeamScore", kBoolean},
    {"CombineDivisions_ForTeamPoints", kBoolean},
    {"Incl_DQCodes", kBoolean},
    {"Incl_ReactionTimes", kBoolean},
    {"Incl_Backups", kBoolean},
    {"UseLaser_Label", kBoolean},
    {"Region_Abbr", Text(2)},
    {"OneColumn_Only", kBoolean},
    {"InclIf_NoCompNo", kBoolean},
    {"Evt_StartTimes", kBoolean},
    {"Incl_EntryFee", kBoolean},
    {"Use_AltEvtNum", kBoolean},
    {"Incl_EntryStat", kBoolean},
    {"Incl_AdvFormula", kBoolean},
    {"Incl_SigLine", kBoolean},
    {"Sort_ByTeam", kBoolean},
    {"Landscape_Vertical", kBoolean},
    {"Incl_LogosinFooter", kBoolean},
    {"Incl_Splits", kBoolean},
};
constexpr SchemaIndex kMemorizedReportsIndexes[] = {
    {"memptr", {"mem_ptr"}, kPrimary},
};

constexpr SchemaField kMultiageFields[] = {
    {"event_ptr", kLong},
    {"low_age", kInteger},
    {"high_age", kInteger},
    {"Heats_infinal", Text(1)},
};

constexpr SchemaField kRecordsbyEventFields[] = {
    {"tag_ptr", kLong},          {"event_ptr", kLong},
    {"low_age", kInteger},       {"high_Age", kInteger},
    {"Div_abbr", Text(3)},       {"Record_month", kInteger},
    {"Record_day", kInteger},    {"Record_year", kInteger},
    {"Record_Holder", Text(39)}, {"Record_Holderteam", Text(24)},
    {"Relay_Names", Text(50)},   {"Record_Time", kSingle},
    {"Record_course", Text(1)},  {"Record_handtime", kBoolean},
    {"tag_gender", Text(1)},     {"hide_me", kBoolean},
    {"Mult_ptr", kLong},
};
constexpr SchemaIndex kRecordsbyEventIndexes[] = {
    {"recordevt", {"event_ptr"}},
    {"multnorecordevt", {"event_ptr", "mult_ptr"}},
    {"divbyevtmultptr",
     {"tag_ptr", "tag_gender", "event_ptr", "mult_ptr", "low_age", "high_age", "div_abbr"}},
    {"notdivbyevtmultptr", {"tag_ptr", "tag_gender", "event_ptr", "mult_ptr", "low_age", "high_age"}},
    {"divbyevtusingbirthmultptr", {"tag_ptr", "tag_gender", "event_ptr", "mult_ptr", "div_abbr"}},
};

constexpr SchemaField kRecordTagsFields[] = {
    {"tag_ptr", kCounter}, {"tag_order", kInteger}, {"tag_name", Text(12)},        {"tag_flag", Text(1)},
    {"team_no", kLong},    {"allow_exh", kBoolean}, {"allow_foreigner", kBoolean},
};

constexpr SchemaField kRegionsFields[] = {
    {"Reg_no", kLong},      {"Reg_abbr", Text(2)},   {"Reg_name", Text(20)},
    {"fem_size", kInteger}, {"male_size", kInteger}, {"combined_size", kInteger},
};

constexpr SchemaField kRelayFields[] = {
    {"Event_ptr", kLong},          {"Team_no", kLong},
    {"Team_ltr", Text(1)},         {"Relay_no", kCounter},
    {"Rel_age", kInteger},         {"Rel_sex", Text(1)},
    {"ActSeed_course", Text(1)},   {"ActualSeed_time", kSingle},
    {"ConvSeed_course", Text(1)},  {"ConvSeed_time", kSingle},
    {"Hand_time", kBoolean},       {"Video_time", kBoolean},
    {"Conv_ltr", Text(1)},         {"Seed_place", kLong},
    {"Scr_stat", kBoolean},        {"Spec_stat", Text(1)},
    {"Dec_stat", Text(1)},         {"Alt_stat", kBoolean},
    {"Bonus_event", kBoolean},     {"Div_no", kLong},
    {"Ev_score", kSingle},         {"JDEv_score", kSingle},
    {"dq_type", Text(1)},          {"entry_note", Text(60)},
    {"Pre_heat", kInteger},        {"Pre_lane", kInteger},
    {"unPre_heat", kInteger},      {"unPre_lane", kInteger},
    {"Pre_hand", kBoolean},        {"Pre_video", kBoolean},
    {"Pre_stat", Text(1)},         {"Pre_Time", kSingle},
    {"Pre_course", Text(1)},       {"Pre_heatplace", kInteger},
    {"Pre_jdheatplace", kInteger}, {"Pre_place", kInteger},
    {"Pre_jdplace", kInteger},     {"Pre_exh", Text(1)},
    {"Pre_wind", Text(5)},         {"Pre_points", kInteger},
    {"Fin_heat", kInteger},        {"Fin_lane", kInteger},
    {"unFin_heat", kInteger},      {"unFin_lane", kInteger},
    {"Fin_hand", kBoolean},        {"Fin_video", kBoolean},
    {"Fin_group", kInteger},       {"Fin_stat", Text(1)},
    {"Fin_Time", kSingle},         {"Fin_course", Text(1)},
    {"Fin_heatplace", kInteger},   {"Fin_jdheatplace", kInteger},
    {"Fin_place", kInteger},       {"Fin_jdplace", kInteger},
    {"Fin_ptsplace", kInteger},    {"Fin_award", kInteger},
    {"Fin_exh", Text(1)},          {"Fin_wind", Text(5)},
    {"Fin_points", kInteger},      {"Sem_heat", kInteger},
    {"Sem_lane", kInteger},        {"unSem_heat", kInteger},
    {"unSem_lane", kInteger},      {"Sem_hand", kBoolean},
    {"Sem_video", kBoolean},       {"Sem_stat", Text(1)},
    {"Sem_Time", kSingle},         {"Sem_course", Text(1)},
    {"Sem_heatplace", kInteger},   {"Sem_jdheatplace", kInteger},
    {"Sem_place", kInteger},       {"Sem_jdplace", kInteger},
    {"Sem_exh", Text(1)},          {"Sem_wind", Text(5)},
    {"Sem_points", kInteger},      {"Qtr_heat", kInteger},
    {"Qtr_lane", kInteger},        {"unQtr_heat", kInteger},
    {"unQtr_lane", kInteger},      {"Qtr_hand", kBoolean},
    {"Qtr_video", kBoolean},       {"Qtr_stat", Text(1)},
    {"Qtr_Time", kSingle},         {"Qtr_course", Text(1)},
    {"Qtr_heatplace", kInteger},   {"Qtr_jdheatplace", kInteger},
    {"Qtr_place", kInteger},       {"Qtr_jdplace", kInteger},
    {"Qtr_exh", Text(1)},          {"Qtr_wind", Text(5)},
    {"Qtr_points", kInteger},      {"Relay_Compno", kLong},
    {"Pre_note", Text(20)},        {"Qtr_note", Text(20)},
    {"Sem_note", Text(20)},        {"Fin_note", Text(20)},
};
constexpr SchemaIndex kRelayIndexes[] = {
    {"relevtptr", {"event_ptr"}},
    {"relteamno", {"team_no"}},
    {"relteamltr", {"team_ltr"}},
    {"relrelayno", {"relay_no"}},
    {"relevtptrseed", {"event_ptr", "ConvSeed_time"}},
};

constexpr SchemaField kRelayNamesFields[] = {
    {"Event_ptr", kLong}, {"Team_no", kLong},       {"Team_ltr", Text(255)}, {"Ath_no", kLong},
    {"Pos_no", kInteger}, {"Event_round", Text(1)}, {"Relay_no", kLong},
};
constexpr SchemaIndex kRelayNamesIndexes[] = {
    {"relnamevtptr", {"event_ptr"}}, {"relnameteamno", {"team_no"}},   {"relnameteamltr", {"team_ltr"}},
    {"relathno", {"ath_no"}},        {"relnamerelayno", {"relay_no"}},
};

constexpr SchemaField kScoringFields[] = {
    {"score_divno", kInteger}, {"score_sex", Text(1)}, {"score_place", kInteger},
    {"ind_score", kSingle},    {"rel_score", kSingle}, {"combevt_score", kSingle},
};
constexpr SchemaIndex kScoringIndexes[] = {
    {"scordiv", {"score_divno", "score_sex", "score_place"}},
};

constexpr SchemaField kSeriesHorizFields[] = {
    {"Event_ptr", kLong},  {"Mult_ptr", kLong},   {"Ath_no", kLong},     {"Rnd_ltr", Text(1)},
    {"Res_dist", kSingle}, {"Res_stat", Text(1)}, {"Res_wind", Text(5)}, {"Attempt_no", kInteger},
};
constexpr SchemaIndex kSeriesHorizIndexes[] = {
    {"horizevtptr", {"event_ptr"}},
    {"horizathno", {"ath_no", "event_ptr", "mult_ptr", "rnd_ltr", "attempt_no"}},
};

constexpr SchemaField kSeriesVerticalFields[] = {
    {"Event_ptr", kLong},   {"Mult_ptr", kLong}, {"Ath_no", kLong},     {"Rnd_ltr", Text(1)},
    {"Res_dist", kInteger}, {"Res_xx", Text(3)}, {"Res_col", kInteger},
};
constexpr SchemaIndex kSeriesVerticalIndexes[] = {
    {"vertevtptr", {"event_ptr"}},
    {"vertathno", {"ath_no", "event_ptr", "mult_ptr", "rnd_ltr", "res_dist"}},
    {"vertathnocol", {"ath_no", "event_ptr", "mult_ptr", "rnd_ltr", "res_col"}},
};

constexpr SchemaField kSeriesVertColumnsFields[] = {
    {"Event_ptr", kLong},   {"Mult_ptr", kLong},    {"flight_no", kInteger}, {"Rnd_ltr", Text(1)},
    {"h1_dist", kInteger},  {"h2_dist", kInteger},  {"h3_dist", kInteger},   {"h4_dist", kInteger},
    {"h5_dist", kInteger},  {"h6_dist", kInteger},  {"h7_dist", kInteger},   {"h8_dist", kInteger},
    {"h9_dist", kInteger},  {"h10_dist", kInteger}, {"h11_dist", kInteger},  {"h12_dist", kInteger},
    {"h13_dist", kInteger}, {"h14_dist", kInteger}, {"h15_dist", kInteger},  {"h16_dist", kInteger},
    {"h17_dist", kInteger}, {"h18_dist", kInteger}, {"h19_dist", kInteger},  {"h20_dist", kInteger},
    {"h21_dist", kInteger}, {"h22_dist", kInteger}, {"h23_dist", kInteger},  {"h24_dist", kInteger},
    {"h25_dist", kInteger}, {"h26_dist", kInteger}, {"h27_dist", kInteger},  {"h28_dist", kInteger},
    {"h29_dist", kInteger}, {"h30_dist", kInteger}, {"h31_dist", kInteger},  {"h32_dist", kInteger},
    {"h33_dist", kInteger}, {"h34_dist", kInteger}, {"h35_dist", kInteger},  {"h36_dist", kInteger},
    {"h37_dist", kInteger}, {"h38_dist", kInteger}, {"h39_dist", kInteger},  {"h40_dist", kInteger},
};
constexpr SchemaIndex kSeriesVertColumnsIndexes[] = {
    {"vertcolevtptr", {"event_ptr", "mult_ptr", "rnd_ltr", "flight_no"}},
};

constexpr SchemaField kSessionFields[] = {
    {"Sess_no", kInteger},   {"Sess_ltr", Text(1)},       {"Sess_ptr", kCounter},
    {"Sess_day", kInteger},  {"Sess_starttime", kLong},   {"Sess_entrymax", kInteger},
    {"Sess_name", Text(60)}, {"Sess_interval", kInteger}, {"Sess_course", Text(1)},
};
constexpr SchemaIndex kSessionIndexes[] = {
    {"sessptr", {"sess_ptr"}, kPrimary},
};

constexpr SchemaField kSessitemFields[] = {
    {"Sess_order", kLong},     {"Sess_ptr", kLong},    {"Event_ptr", kLong},
    {"Multi_ptr", kLong},      {"Sess_rnd", Text(1)},  {"Rept_type", Text(1)},
    {"Start_time", Text(5)},   {"am_pm", Text(2)},     {"Timed_finalheats", kInteger},
    {"Delay_seconds", kLong},  {"Alt_With", kBoolean}, {"AltEvent_no", kInteger},
    {"AltEvent_ltr", Text(1)},
};
constexpr SchemaIndex kSessitemIndexes[] = {
    {"sessptr", {"sess_ptr"}},
    {"sessevtptr", {"event_ptr"}},
    {"sessevtrnd", {"event_ptr", "sess_rnd"}},
};

constexpr SchemaField kSplitFields[] = {
    {"Event_ptr", kLong}, {"Mult_ptr", kLong},    {"Rnd_ltr", Text(1)},     {"Ath_no", kLong},
    {"Relay_no", kLong},  {"Split_no", kInteger}, {"Split_Time", Text(30)},
};
constexpr SchemaIndex kSplitIndexes[] = {
    {"athsplit", {"event_ptr", "mult_ptr", "ath_no", "rnd_ltr", "split_no"}},
    {"relaynosplit", {"relay_no", "rnd_ltr", "split_no"}},
};

constexpr SchemaField kSplitCCFields[] = {
    {"Event_ptr", kLong}, {"Mult_ptr", kLong},    {"Rnd_ltr", Text(1)},     {"Ath_no", kLong},
    {"Relay_no", kLong},  {"Split_no", kInteger}, {"Split_Time", Text(30)},
};
constexpr SchemaIndex kSplitCCIndexes[] = {
    {"athsplitcc", {"event_ptr", "mult_ptr", "ath_no", "rnd_ltr", "split_no"}},
};

constexpr SchemaField kStdAlleysFields[] = {
    {"tot_lanes", kInteger}, {"order_01", kInteger}, {"order_02", kInteger}, {"order_03", kInteger},
    {"order_04", kInteger},  {"order_05", kInteger}, {"order_06", kInteger}, {"order_07", kInteger},
    {"order_08", kInteger},  {"order_09", kInteger}, {"order_10", kInteger}, {"order_11", kInteger},
    {"order_12", kInteger},
};
constexpr SchemaIndex kStdAlleysIndexes[] = {
    {"stdalleyord", {"tot_lanes"}, kPrimary},
};

constexpr SchemaField kStdLanesFields[] = {
    {"tot_lanes", kInteger}, {"order_01", kInteger}, {"order_02", kInteger}, {"order_03", kInteger},
    {"order_04", kInteger},  {"order_05", kInteger}, {"order_06", kInteger}, {"order_07", kInteger},
    {"order_08", kInteger},  {"order_09", kInteger}, {"order_10", kInteger}, {"order_11", kInteger},
    {"order_12", kInteger},
};
constexpr SchemaIndex kStdLanesIndexes[] = {
    {"stdlaneord", {"tot_lanes"}, kPrimary},
};

constexpr SchemaField kTagNamesFields[] = {
    {"tag_ptr", kCounter},       {"tag_name", Text(4)},     {"for_scoring", kBoolean},
    {"for_entryqual", kBoolean}, {"for_timestd", kBoolean}, {"tag_desc", Text(20)},
};

constexpr SchemaField kTeamFields[] = {
    {"Team_no", kCounter},       {"Team_name", Text(30)},     {"Team_short", Text(16)},
    {"Team_abbr", Text(5)},      {"Team_stat", Text(1)},      {"Team_lsc", Text(2)},
    {"Team_div", kInteger},      {"Team_region", kInteger},   {"Team_head", Text(30)},
    {"Team_asst", Text(30)},     {"Team_addr1", Text(30)},    {"Team_addr2", Text(30)},
    {"Team_city", Text(30)},     {"Team_prov", Text(30)},     {"Team_state", Text(3)},
    {"Team_zip", Text(10)},      {"Team_cntry", Text(3)},     {"Team_daytele", Text(20)},
    {"Team_evetele", Text(20)},  {"Team_faxtele", Text(20)},  {"Team_email", Text(50)},
    {"Team_c3", Text(30)},       {"Team_c4", Text(30)},       {"Team_c5", Text(30)},
    {"Team_c6", Text(30)},       {"Team_c7", Text(30)},       {"Team_c8", Text(30)},
    {"Team_c9", Text(30)},       {"Team_c10", Text(30)},      {"Team_altabbr", Text(6)},
    {"Team_NoPoints", kBoolean}, {"Team_Selected", kBoolean}, {"TeamGUID_strg", Text(36)},
};
constexpr SchemaIndex kTeamIndexes[] = {
    {"tmteamno", {"team_no"}, kPrimary},
    {"teamabbr", {"team_abbr"}},
    {"teamname", {"team_name"}},
};

constexpr SchemaField kTeamCoachesFields[] = {
    {"Coach_no", kCounter},
    {"Team_no", kLong},
    {"Coach_LastName", Text(20)},
    {"Coach_FirstName", Text(20)},
    {"Coach_Title", Text(15)},
    {"Primary_MaleHeadCoach", kBoolean},
    {"Primary_FemaleHeadCoach", kBoolean},
    {"MaleCoach_Only", kBoolean},
    {"FemaleCoach_Only", kBoolean},
    {"Coach_Phone", Text(20)},
    {"Coach_Cell", Text(20)},
    {"Coach_EMail", Text(36)},
    {"Coach_Cert1", Text(15)},
    {"Coach_Cert2", Text(15)},
    {"Coach_Cert3", Text(15)},
    {"Coach_Cert4", Text(15)},
    {"Coach_ExpDate1", kDate},
    {"Coach_ExpDate2", kDate},
    {"Coach_ExpDate3", kDate},
    {"Coach_ExpDate4", kDate},
};
constexpr SchemaIndex kTeamCoachesIndexes[] = {
    {"Coachno", {"Coach_no"}, kPrimary},
    {"teamno", {"team_no"}},
};

constexpr SchemaField kTimeStdFields[] = {
    {"tag_ptr", kLong},    {"tag_gender", Text(1)}, {"event_ptr", kLong},
    {"low_age", kInteger}, {"high_Age", kInteger},  {"Div_abbr", Text(3)},
    {"tag_time", kSingle}, {"tag_course", Text(1)}, {"Mult_ptr", kLong, Made::AtFirstOpening},
};
constexpr SchemaIndex kTimeStdIndexes[] = {
    {"timestdtag", {"tag_ptr"}},
};

constexpr SchemaField kWaterfallFields[] = {
    {"Pos_no", kLong},
    {"Rank_no", kLong},
};
constexpr SchemaIndex kWaterfallIndexes[] = {
    {"waterrank", {"pos_no"}},
};

constexpr SchemaField kWindreadingFields[] = {
    {"event_ptr", kLong}, {"Mult_ptr", kInteger},    {"Heat_no", kInteger},
    {"Rnd_ltr", Text(1)}, {"wind_reading", Text(4)},
};
constexpr SchemaIndex kWindreadingIndexes[] = {
    {"wind", {"event_ptr"}},
};

constexpr SchemaTable kTables[] = {
    {"Agegroup", kAgegroupFields, {}},
    {"Athlete", kAthleteFields, kAthleteIndexes},
    {"CCNames", kCCNamesFields, {}, Made::AtFirstOpening},
    {"CCrank", kCCrankFields, kCCrankIndexes},
    {"CCTeamScores", kCCTeamScoresFields, kCCTeamScoresIndexes, Made::AtFirstOpening},
    {"CCtime", kCCtimeFields, kCCtimeIndexes},
    {"ChipID", kChipIDFields, kChipIDIndexes},
    {"Conversions", kConversionsFields, kConversionsIndexes},
    {"CustomAlleys", kCustomAlleysFields, kCustomAlleysIndexes},
    {"CustomLanes", kCustomLanesFields, kCustomLanesIndexes},
    {"Divisions", kDivisionsFields, {}},
    {"Dualteams", kDualteamsFields, {}},
    {"Entrymulti", kEntrymultiFields, kEntrymultiIndexes},
    {"Entry", kEntryFields, kEntryIndexes},
    {"Eventmulti", kEventmultiFields, kEventmultiIndexes},
    {"Event", kEventFields, kEventIndexes},
    {"VANTRELOPTIONS", kVANTRELOPTIONSFields, {}, Made::AtFirstOpening},
    {"Meet", kMeetFields, {}},
    {"MemorizedReports", kMemorizedReportsFields, kMemorizedReportsIndexes},
    {"Multiage", kMultiageFields, {}},
    {"RecordsbyEvent", kRecordsbyEventFields, kRecordsbyEventIndexes},
    {"RecordTags", kRecordTagsFields, {}},
    {"Regions", kRegionsFields, {}},
    {"Relay", kRelayFields, kRelayIndexes},
    {"RelayNames", kRelayNamesFields, kRelayNamesIndexes},
    {"Scoring", kScoringFields, kScoringIndexes},
    {"SeriesHoriz", kSeriesHorizFields, kSeriesHorizIndexes},
    {"SeriesVertical", kSeriesVerticalFields, kSeriesVerticalIndexes},
    {"SeriesVertColumns", kSeriesVertColumnsFields, kSeriesVertColumnsIndexes},
    {"Session", kSessionFields, kSessionIndexes},
    {"Sessitem", kSessitemFields, kSessitemIndexes},
    {"Split", kSplitFields, kSplitIndexes},
    {"SplitCC", kSplitCCFields, kSplitCCIndexes, Made::AtFirstOpening},
    {"StdAlleys", kStdAlleysFields, kStdAlleysIndexes},
    {"StdLanes", kStdLanesFields, kStdLanesIndexes},
    {"TagNames", kTagNamesFields, {}},
    {"Team", kTeamFields, kTeamIndexes},
    {"TeamCoaches", kTeamCoachesFields, kTeamCoachesIndexes},
    {"TimeStd", kTimeStdFields, kTimeStdIndexes},
    {"Waterfall", kWaterfallFields, kWaterfallIndexes},
    {"Windreading", kWindreadingFields, kWindreadingIndexes},
};

constexpr std::string_view kTablesToCheck[] = {
    "AGEGROUP",
    "ATHLETE",
    "CCNAMES",
    "CCRANK",
    "CCTEAMSCORES",
    "CCTIME",
    "CHIPID",
    "CONVERSIONS",
    "CUSTOMALLEYS",
    "CUSTOMLANES",
    "DIVISIONS",
    "DUALTEAMS",
    "ENTRY",
    "ENTRYMULTI",
    "EVENT",
    "EVENTMULTI",
    "MEET",
    "VANTRELOPTIONS",
    "MEMORIZEDREPORTS",
    "MULTIAGE",
    "RECORDSBYEVENT",
    "RECORDTAGS",
    "REGIONS",
    "RELAY",
    "RELAYNAMES",
    "SCORING",
    "SERIESHORIZ",
    "SERIESVERTICAL",
    "SERIESVERTCOLUMNS",
    "SESSION",
    "SESSITEM",
    "SPLIT",
    "SPLITCC",
    "STDALLEYS",
    "STDLANES",
    "TAGNAMES",
    "TEAM",
    "TEAMCOACHES",
    "TIMESTD",
    "WATERFALL",
    "WINDREADING",
};

}  // namespace

std::span<const SchemaTable> Schema() {
  return kTables;
}

std::span<const std::string_view> TablesToCheck() {
  return kTablesToCheck;
}

}  // namespace tarvex::database
