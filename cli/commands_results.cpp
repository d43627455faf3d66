#include <algorithm>

#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/sheet_output.h"
#include "running/enter_results.h"
#include "running/judge_event.h"
#include "running/messages.h"
#include "running/score_event.h"

namespace tarvex::cli {
namespace {

struct ResultArguments {
  std::string path, event, round, file;
  std::vector<std::string> events, decisions;
  bool all = false, reset = false;
};

// The event and round that the arguments name; empty when there is none, with the exit code in `code`.
struct ChosenRound {
  setup::StoredEvent event;
  setup::Round round;
};
std::optional<ChosenRound> ChooseRound(Context& context, const database::Meet& meet,
                                       const ResultArguments& arguments, int& code) {
  const auto events = EventsNamed(meet, {arguments.event}, false);
  if (!events.ok()) {
    code = context.Fail(events.status());
    return std::nullopt;
  }
  if (const auto* notice = std::get_if<Notice>(&*events)) {
    code = context.Refuse(*notice);
    return std::nullopt;
  }
  const setup::StoredEvent& event = std::get<std::vector<setup::StoredEvent>>(*events).front();
  const auto round = RoundNamed(event.row, arguments.round);
  if (const auto* notice = std::get_if<Notice>(&round)) {
    code = context.Refuse(*notice);
    return std::nullopt;
  }
  return ChosenRound{event, std::get<setup::Round>(round)};
}

int Results(Context& context, const ResultArguments& arguments) {
  std::string csv;
  if (!arguments.file.empty()) {
    auto text = ReadFile(arguments.file);
    if (!text.ok()) {
      context.user().Tell(InputUnreadable(text.status().detail));
      return context.Print({}, "", kWrongUsage);
    }
    csv = std::move(*text);
  }
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  if (!arguments.file.empty()) {
    const auto chosen = ChooseRound(context, *meet, arguments, code);
    if (!chosen) return context.Print({}, "", code);
    code = context.Finish(running::EnterResults(*meet, chosen->event, chosen->round, csv, context.user()));
    if (code != kDone) return context.Print({}, "", code);
  }
  return PrintSheet(context, *meet, arguments.event, arguments.round, SheetKind::Results);
}

// Splits "KEY place=N heatplace=N points=X KEY ..." at the keys.
std::variant<std::vector<running::Decision>, Notice> ReadDecisions(const std::vector<std::string>& words) {
  std::vector<running::Decision> decisions;
  for (const std::string& word : words) {
    const size_t equals = word.find('=');
    if (equals == std::string::npos) {
      decisions.push_back({word, {}, {}, {}});
      continue;
    }
    if (decisions.empty()) return DecisionWithoutKey(word);
    const std::string name = Lower(word.substr(0, equals));
    running::Decision& decision = decisions.back();
    std::optional<std::string>* const cell = name == "place"       ? &decision.place
                                             : name == "heatplace" ? &decision.heat_place
                                             : name == "points"    ? &decision.points
                                                                   : nullptr;
    if (!cell) return running::UnknownDecision(word);
    *cell = word.substr(equals + 1);
  }
  return decisions;
}

int Judge(Context& context, const ResultArguments& arguments) {
  const auto decisions = ReadDecisions(arguments.decisions);
  if (const auto* notice = std::get_if<Notice>(&decisions)) {
    context.user().Tell(*notice);
    return context.Print({}, "", kWrongUsage);
  }
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  if (arguments.reset || !arguments.decisions.empty()) {
    const auto chosen = ChooseRound(context, *meet, arguments, code);
    if (!chosen) return context.Print({}, "", code);
    code = context.Finish(running::JudgeEvent(*meet, chosen->event, chosen->round, arguments.reset,
                                              std::get<std::vector<running::Decision>>(decisions)));
    if (code != kDone) return context.Print({}, "", code);
  }
  return PrintSheet(context, *meet, arguments.event, arguments.round, SheetKind::Results);
}

int Score(Context& context, const ResultArguments& arguments) {
  if (arguments.events.empty() && !arguments.all) {
    context.user().Tell(NameEventsOrAll());
    return context.Print({}, "", kWrongUsage);
  }
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  const auto named = EventsNamed(*meet, arguments.events, arguments.all);
  if (!named.ok()) return context.Print({}, "", context.Fail(named.status()));
  if (const auto* notice = std::get_if<Notice>(&*named))
    return context.Print({}, "", context.Refuse(*notice));
  std::vector<setup::StoredEvent> events = std::get<std::vector<setup::StoredEvent>>(*named);
  if (arguments.all) events = running::EventsToScore(events);
  code = context.Finish(running::ScoreEvents(*meet, events, arguments.all, context.user()));
  return context.Print({}, "", code);
}

}  // namespace

void AddResultCommands(CLI::App& app, Command& chosen) {
  const auto arguments = std::make_shared<ResultArguments>();
  const auto one_round = [&](CLI::App* command) {
    command->add_option("MEET.mdb", arguments->path)->required();
    command->add_option("EVENT", arguments->event)->required();
    command->add_option("--round", arguments->round, "P, Q, S or F; else the event's current round")
        ->check(CLI::IsMember({"P", "Q", "S", "F"}, CLI::ignore_case));
  };
  auto* results = app.add_subcommand("results", "Shows, or enters and places, results");
  one_round(results);
  results->add_option("--enter", arguments->file, "A CSV file of results")->option_text("FILE.csv");
  results->callback([=, &chosen] { chosen = [=](Context& c) { return Results(c, *arguments); }; });

  auto* jd = app.add_subcommand("jd", "Shows, enters or takes back judges' decisions");
  one_round(jd);
  jd->add_option("--set", arguments->decisions, "KEY, then place=N, heatplace=N or points=X; may be repeated")
      ->option_text("KEY [place=N] [heatplace=N] [points=X]");
  jd->add_flag("--reset", arguments->reset, "Takes all decisions of the round away first");
  jd->callback([=, &chosen] { chosen = [=](Context& c) { return Judge(c, *arguments); }; });

  auto* score = app.add_subcommand("score", "Places and scores final rounds");
  score->add_option("MEET.mdb", arguments->path)->required();
  score->add_option("EVENT", arguments->events);
  score->add_flag("--all", arguments->all, "Every event whose last round is done or scored");
  score->callback([=, &chosen] { chosen = [=](Context& c) { return Score(c, *arguments); }; });
}

}  // namespace tarvex::cli
