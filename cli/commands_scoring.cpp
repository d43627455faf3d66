#include <filesystem>
#include <fstream>

#include "base/columns.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "print/csv.h"
#include "print/html.h"
#include "print/text.h"
#include "reports/build.h"
#include "scoring/edit_points.h"
#include "scoring/messages.h"
#include "scoring/points_store.h"
#include "scoring/points_text.h"
#include "scoring/team_scores.h"

namespace tarvex::cli {
namespace {

struct ScoringArguments {
  std::string path, thru, gender, kind, round, format = "text", output;
  int division = 0;
  std::optional<std::string> default_places;
  std::vector<std::string> places, events;
};

int Points(Context& context, const ScoringArguments& arguments) {
  scoring::PointsChange change{arguments.division, arguments.default_places, {}};
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  for (const std::string& typed : arguments.places) {
    const auto read = scoring::ReadPlacePoints(typed);
    if (const auto* notice = std::get_if<Notice>(&read))
      return context.Print({}, "", context.Refuse(*notice));
    change.places.push_back(std::get<scoring::PlacePoints>(read));
  }
  if (change.default_places || !change.places.empty()) {
    code = context.Finish(scoring::ChangePoints(*meet, change));
    if (code != kDone) return context.Print({}, "", code);
  }
  const auto stored = scoring::LoadScoringRows(*meet);
  if (!stored.ok()) return context.Print({}, "", context.Fail(stored.status()));
  Columns table({{"Div", Align::Right},
                 {"Sex"},
                 {"Place", Align::Right},
                 {"Individual", Align::Right},
                 {"Relay", Align::Right},
                 {"CombEvt", Align::Right}});
  Json rows = Json::array();
  for (const auto& [id, row] : *stored) {
    if (row.score_divno != arguments.division) continue;
    table.AddRow({std::to_string(row.score_divno), std::string(1, row.score_sex),
                  std::to_string(row.score_place), scoring::PointsText(row.ind_score),
                  scoring::PointsText(row.rel_score), scoring::PointsText(row.combevt_score)});
    rows.push_back({{"score_divno", row.score_divno},
                    {"score_sex", std::string(1, row.score_sex)},
                    {"score_place", row.score_place},
                    {"ind_score", Number(row.ind_score)},
                    {"rel_score", Number(row.rel_score)},
                    {"combevt_score", Number(row.combevt_score)}});
  }
  return context.Print({{"rows", std::move(rows)}}, table.ToText());
}

const char* GroupName(scoring::Group group) {
  switch (group) {
    case scoring::Group::Male:
      return "Male";
    case scoring::Group::Female:
      return "Female";
    default:
      return "Combined";
  }
}

int Scores(Context& context, const ScoringArguments& arguments) {
  scoring::TeamScoresRequest request;
  if (!arguments.thru.empty()) {
    const auto number = setup::ReadEventNumber(arguments.thru);
    if (const auto* notice = std::get_if<Notice>(&number))
      return context.Print({}, "", context.Refuse(*notice));
    request.thru_event = std::get<setup::EventNumber>(number);
  }
  const std::string gender = Lower(arguments.gender);
  if (gender == "m") request.group = scoring::Group::Male;
  if (gender == "f") request.group = scoring::Group::Female;
  if (gender == "c") request.group = scoring::Group::Combined;
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  const auto lines = scoring::LoadTeamScores(*meet, request);
  if (!lines.ok()) return context.Print({}, "", context.Fail(lines.status()));
  if (lines->empty()) context.user().Tell(scoring::NoScoresFound());
  std::string text = request.thru_event ? scoring::TeamScoresThruEvent(arguments.thru).text + "\n"
                                        : scoring::TeamScoresAllEvents().text + "\n";
  Json rows = Json::array();
  for (const auto group : {scoring::Group::Male, scoring::Group::Female, scoring::Group::Combined}) {
    Columns table({{"", Align::Right}, {""}, {""}, {"", Align::Right}});
    for (const scoring::TeamScoreLine& line : *lines) {
      if (line.total.group != group) continue;
      const std::string points = scoring::PointsText(line.total.points);
      table.AddRow({std::to_string(line.total.rank), line.total.name, line.team_abbr, points});
      rows.push_back({{"gender", std::string(1, GroupName(group)[0])},
                      {"place", line.total.rank},
                      {"team_abbr", line.team_abbr},
                      {"team_name", line.total.name},
                      {"points", Number(line.total.points.ToSingle())}});
    }
    if (!table.IsEmpty()) text += std::string("\n") + GroupName(group) + "\n" + table.ToText("  ");
  }
  return context.Print({{"rows", std::move(rows)}}, lines->empty() ? "" : text);
}

// Writes a text to a file that is put in place only when it is whole.
bool WriteFile(const std::string& path, const std::string& text) {
  const std::string unfinished = path + ".part";
  std::ofstream file(unfinished, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  std::error_code error;
  if (file) std::filesystem::rename(unfinished, path, error);
  if (!file || error) std::filesystem::remove(unfinished, error);
  return file && !error;
}

int Report(Context& context, const ScoringArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  reports::EventChoice choice;
  if (!arguments.events.empty()) {
    const auto events = EventsNamed(*meet, arguments.events, false);
    if (!events.ok()) return context.Print({}, "", context.Fail(events.status()));
    if (const auto* notice = std::get_if<Notice>(&*events))
      return context.Print({}, "", context.Refuse(*notice));
    choice.events = std::get<std::vector<setup::StoredEvent>>(*events);
  }
  if (!arguments.round.empty()) {
    choice.round = setup::RoundFromLetter(static_cast<char>(std::toupper(arguments.round[0])));
  }
  const auto report = reports::BuildReport(*meet, *reports::KindFromName(arguments.kind), choice);
  if (!report.ok()) return context.Print({}, "", context.Fail(report.status()));
  const std::string text = arguments.format == "html"  ? print::ToHtml(*report)
                           : arguments.format == "csv" ? print::ToCsv(*report)
                                                       : print::ToText(*report);
  if (arguments.output.empty()) return context.Print({{"text", text}}, text);
  if (!WriteFile(arguments.output, text)) {
    context.user().Tell(OutputUnwritable(arguments.output));
    return context.Print({}, "", kFailed);
  }
  return context.Print({{"file", arguments.output}}, "");
}

}  // namespace

void AddScoringCommands(CLI::App& app, Command& chosen) {
  const auto arguments = std::make_shared<ScoringArguments>();
  auto* points = app.add_subcommand("points", "Shows or changes the scoring points table");
  points->add_option("MEET.mdb", arguments->path)->required();
  points->add_option("--division", arguments->division, "The division's number; 0 is every division");
  points->add_option("--default", arguments->default_places, "Refills the table for so many places")
      ->option_text("PLACES");
  points->add_option("--set", arguments->places, "The points of one place; may be repeated")
      ->option_text("PLACE=IND,REL,COMB");
  points->callback([=, &chosen] { chosen = [=](Context& c) { return Points(c, *arguments); }; });

  auto* scores = app.add_subcommand("scores", "Shows the team scores");
  scores->add_option("MEET.mdb", arguments->path)->required();
  scores->add_option("--thru", arguments->thru, "Events up to this one only")->option_text("EVENT");
  scores->add_option("--gender", arguments->gender, "One group only")
      ->check(CLI::IsMember({"M", "F", "C"}, CLI::ignore_case));
  scores->callback([=, &chosen] { chosen = [=](Context& c) { return Scores(c, *arguments); }; });

  auto* report = app.add_subcommand("report", "Prints start lists, results, team scores or entries");
  report->add_option("MEET.mdb", arguments->path)->required();
  report->add_option("KIND", arguments->kind)
      ->required()
      ->check(CLI::IsMember({"start-list", "results", "team-scores", "entries", "meet-program"}));
  report->add_option("EVENT", arguments->events);
  report->add_option("--round", arguments->round)
      ->check(CLI::IsMember({"P", "Q", "S", "F"}, CLI::ignore_case));
  report->add_option("--format", arguments->format)->check(CLI::IsMember({"text", "html", "csv"}));
  report->add_option("-o", arguments->output, "The file to write; else standard output")->option_text("FILE");
  report->callback([=, &chosen] { chosen = [=](Context& c) { return Report(c, *arguments); }; });
}

}  // namespace tarvex::cli
