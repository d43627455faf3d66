#include "database/settings.h"

#include "database/settings_fields.h"
#include "tests/database/test_meet.h"

namespace tarvex::database {
namespace {

using SettingsTest = MeetFileTest;

TEST_F(SettingsTest, AreReadFromTheRow) {
  auto meet = CurrentMeet();
  const FieldText kChanges[] = {
      {"meet_CLASS", "5"},        {"Meet_start", "2024-06-01"}, {"dualteam_lane1", "7"},
      {"dualteam_lane10", "9"},   {"meet_arena", "i"},          {"round1_randrule", "c"},
      {"Use_AltTeamAbbr", "Yes"}, {"prelimheats_circle", "3"},  {"Meet_location", "Oslo"}};
  ASSERT_TRUE(IsDone(ChangeSettings(*meet, kChanges)));
  const MeetSettings& settings = meet->settings();
  EXPECT_EQ(settings.Meet_class, 5);
  EXPECT_EQ(settings.Meet_start, kMay10th2024 + 22);
  EXPECT_EQ(settings.dualteam_lane, (std::array{7, 0, 0, 0, 0, 0, 0, 0, 0, 9}));
  EXPECT_EQ(settings.meet_arena, 'I');
  EXPECT_EQ(settings.round1_randrule, 'C');
  EXPECT_TRUE(settings.Use_AltTeamAbbr);
  EXPECT_EQ(settings.prelimheats_circle, 3);
  EXPECT_EQ(settings.Meet_location, "Oslo");
  EXPECT_EQ(settings.Meet_name1, "Demo Meet");
}

TEST_F(SettingsTest, BlankAndUnknownCodesReadAsTheFirst) {
  auto meet = CurrentMeet();
  const FieldText kChanges[] = {
      {"Meet_kind", "5"},       {"Meet_class", ""},    {"Meet_meettype", "0"}, {"meet_meetstyle", "-1"},
      {"Meet_course", "3"},     {"Meet_idformat", ""}, {"meet_arena", ""},     {"timedfinal_randrule", " "},
      {"round1_randrule", "F"}, {"Meet_start", ""},    {"Meet_name2", ""}};
  ASSERT_TRUE(IsDone(ChangeSettings(*meet, kChanges)));
  const MeetSettings& settings = meet->settings();
  for (const int code : {settings.Meet_kind, settings.Meet_class, settings.Meet_meettype,
                         settings.meet_meetstyle, settings.Meet_course, settings.Meet_idformat}) {
    EXPECT_EQ(code, 1);
  }
  EXPECT_EQ(settings.meet_arena, 'O');
  EXPECT_EQ(settings.timedfinal_randrule, 'A');
  EXPECT_EQ(settings.round1_randrule, 'A');
  EXPECT_EQ(settings.Meet_start, 0);
  EXPECT_EQ(settings.Meet_name2, "");
}

TEST_F(SettingsTest, OneBadFieldKeepsAllFromBeingWritten) {
  auto meet = CurrentMeet();
  const std::pair<FieldText, std::string> kBad[] = {
      {{"meet_lanes", "8"}, "There is no field meet_lanes in the table Meet"},
      {{"meet_numlanes", "32768"}, "meet_numlanes: please give a whole number from -32768 to 32767"},
      {{"MEET_NAME1", "again"}, "Meet_name1 is given twice"}};
  const std::string before = Bytes();
  for (const auto& [bad, text] : kBad) {
    const FieldText kChanges[] = {{"Meet_name1", "Spring Open"}, bad};
    const Outcome outcome = ChangeSettings(*meet, kChanges);
    EXPECT_TRUE(std::holds_alternative<Refusal>(outcome));
    EXPECT_EQ(TextOf(outcome), text);
  }
  EXPECT_TRUE(Bytes() == before);
}

TEST_F(SettingsTest, AreShownByNameOrAllInOrder) {
  const auto meet = CurrentMeet();
  std::vector<Setting> shown;
  const std::string kNames[] = {"CALC_DATE", "meet_numlanes"};
  ASSERT_TRUE(IsDone(ShowSettings(*meet, kNames, shown)));
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[0].field, "Calc_date");
  EXPECT_EQ(shown[0].text, "2024-05-10");
  EXPECT_EQ(shown[1].value, jet::Value(8));
  ASSERT_TRUE(IsDone(ShowSettings(*meet, {}, shown)));
  EXPECT_EQ(shown.size(), 164u);
  EXPECT_EQ(shown[0].field, "win_tftvx");
  const std::string kUnknown[] = {"Meet_name1", "colour"};
  EXPECT_EQ(TextOf(ShowSettings(*meet, kUnknown, shown)), "There is no field colour in the table Meet");
  EXPECT_TRUE(shown.empty());
}

TEST_F(SettingsTest, EmptyNamesAndAddressesAreStoredAsOneBlank) {
  const auto meet = CurrentMeet();
  const FieldText kChanges[] = {{"meet_name1", ""}, {"Meet_city", ""}, {"language_choice", ""}};
  ASSERT_TRUE(IsDone(ChangeSettings(*meet, kChanges)));
  const auto row = Rows(meet->file(), "Meet").at(0);
  EXPECT_EQ(row.at("Meet_name1"), " ");
  EXPECT_EQ(row.at("Meet_city"), " ");
  EXPECT_EQ(row.at("language_choice"), "");
}

TEST(MarkSettingsOf, JoinsTheMeetsAndTheProgramsSettings) {
  MeetSettings meet;
  meet.Meet_class = 4;
  meet.Meet_kind = 3;
  meet.check_times = true;
  meet.converthand_toFAT = true;
  meet.rounddown_toevencentimeter = true;
  ProgramSettings program;
  program.decimal_separator = ',';
  program.thousandths = true;
  const marks::MarkSettings marks = MarkSettingsOf(meet, program);
  EXPECT_EQ(marks.decimal_separator, ',');
  EXPECT_TRUE(marks.thousandths && marks.check_ranges && marks.convert_hand_times);
  EXPECT_TRUE(marks.even_centimetre && marks.whole_inch);
  EXPECT_FALSE(marks.short_attempt_form || marks.round_to_tenths || marks.suppress_x ||
               marks.suppress_small_x);
  EXPECT_EQ(marks.hand_rule, 4);
  EXPECT_EQ(marks.meet_class, 4);
  EXPECT_EQ(marks.meet_type, 'L');
}

TEST(ProgramSettings, AreReadLineByLine) {
  struct Case {
    std::string_view text;
    bool multi_user;
    char separator;
    bool thousandths, login;
  };
  const Case kCases[] = {
      {"", false, '.', false, false},
      {"MultiUser=1\nDecimalSep=,\nThousandths=1\nUserLogin=1\n", true, ',', true, true},
      {"thousandths = 1 \r\n DECIMALSEP=,\r\n", false, ',', true, false},
      {"UserLogin=1", false, '.', false, true},
      {"MultiUser=yes\nDecimalSep=;\nThousandths=\n=1\nLastFile=/a=b.mdb\nnonsense", false, '.', false,
       false},
      {"MultiUser=1\nMultiUser=0", false, '.', false, false},
  };
  for (const Case& c : kCases) {
    const ProgramSettings settings = ParseProgramSettings(c.text);
    EXPECT_EQ(settings.multi_user, c.multi_user) << c.text;
    EXPECT_EQ(settings.decimal_separator, c.separator) << c.text;
    EXPECT_EQ(settings.thousandths, c.thousandths) << c.text;
    EXPECT_EQ(settings.user_login, c.login) << c.text;
  }
}

}  // namespace
}  // namespace tarvex::database
