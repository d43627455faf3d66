#include "base/columns.h"
#include "base/platform.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/sheet_output.h"
#include "running/purge.h"
#include "seeding/seed_event.h"
#include "seeding/seed_store.h"
#include "setup/event_name.h"
#include "setup/lane_text.h"
#include "setup/names.h"

namespace tarvex::cli {
namespace {

struct SeedArguments {
  std::string path, round;
  std::vector<std::string> events;
  bool all = false, no_prompt = false, preview = false, results = false;
  std::optional<uint64_t> draw;
};

// The events that a command works on; empty when it cannot go on, with the exit code in `code`.
std::optional<std::vector<setup::StoredEvent>> ChooseEvents(Context& context, const database::Meet& meet,
                                                            const SeedArguments& arguments, int& code) {
  if (arguments.events.empty() && !arguments.all) {
    context.user().Tell(NameEventsOrAll());
    code = kWrongUsage;
    return std::nullopt;
  }
  auto events = EventsNamed(meet, arguments.events, arguments.all);
  if (!events.ok()) {
    code = context.Fail(events.status());
    return std::nullopt;
  }
  if (const auto* notice = std::get_if<Notice>(&*events)) {
    code = context.Refuse(*notice);
    return std::nullopt;
  }
  return std::get<std::vector<setup::StoredEvent>>(std::move(*events));
}

std::optional<setup::Round> RoundOf(const std::string& letter) {
  return letter.empty() ? std::nullopt : setup::RoundFromLetter(static_cast<char>(std::toupper(letter[0])));
}

// Heats and lanes of a seeding that was not written.
Status DescribePreview(const database::Meet& meet, const std::vector<seeding::SeededRound>& rounds,
                       Json& rows, std::string& text) {
  TRY_ASSIGN(const setup::Roster roster, setup::LoadRoster(meet));
  TRY_ASSIGN(const setup::NameStyle style, setup::LoadNameStyle(meet));
  for (const seeding::SeededRound& seeded : rounds) {
    const setup::Event& event = seeded.event;
    TRY_ASSIGN(const std::string name, setup::NameOf(meet, event));
    TRY_ASSIGN(const auto entries, seeding::LoadSeedRows(meet, event, seeded.round));
    text += "Event " + setup::EventLabel(event) + "  " + name + "\n";
    Columns table({{"Heat", Align::Right}, {"Lane", Align::Right}, {"Name"}, {"Team"}});
    for (const seeding::Place& place : seeded.places) {
      const setup::Athlete* athlete = event.ind_rel == 'R' ? nullptr : roster.athlete(place.id);
      const setup::Team* team = roster.team_of(athlete);
      std::string who = athlete ? setup::AthleteName(*athlete, style) : "";
      for (const auto& entry : entries) {
        if (event.ind_rel != 'R' || entry.row.id != place.id) continue;
        team = roster.team(entry.row.team_no);
        if (team) who = setup::NameOfRelay(*team, entry.row.team_ltr, style);
      }
      const std::string lane =
          event.trk_field == 'F' ? std::to_string(place.lane) : setup::LaneText(place.lane, event.std_lanes);
      table.AddRow({std::to_string(place.heat), lane, who, team ? setup::TeamAbbr(*team, style) : ""});
      rows.push_back({{"event_no", event.event_no},
                      {"event_ltr", event.event_ltr},
                      {"round", std::string(1, Letter(seeded.round))},
                      {"heat", place.heat},
                      {"lane", place.lane},
                      {"lane_text", lane},
                      {event.ind_rel == 'R' ? "relay_no" : "ath_no", place.id},
                      {"name", who},
                      {"team_abbr", team ? setup::TeamAbbr(*team, style) : ""}});
    }
    text += table.ToText("  ") + "\n";
  }
  return Ok();
}

int Seed(Context& context, const SeedArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  const auto events = ChooseEvents(context, *meet, arguments, code);
  if (!events) return context.Print({}, "", code);
  seeding::SeedOptions options;
  options.prompt_if_reseed = !arguments.no_prompt;
  options.preview = arguments.preview;
  options.round = RoundOf(arguments.round);
  options.draw = arguments.draw.value_or(platform::RandomBits());
  const seeding::SeedingRun run = seeding::SeedEvents(*meet, *events, options, context.user());
  code = context.Finish(run.outcome);
  Json rows = Json::array();
  std::string text;
  if (arguments.preview && code == kDone) {
    if (Status status = DescribePreview(*meet, run.seeded, rows, text); !status.ok())
      code = context.Fail(status);
    return context.Print({{"rows", std::move(rows)}}, text, code);
  }
  for (const seeding::SeededRound& seeded : run.seeded) {
    int heats = 0;
    for (const seeding::Place& place : seeded.places) heats = std::max(heats, place.heat);
    rows.push_back({{"event_no", seeded.event.event_no},
                    {"event_ltr", seeded.event.event_ltr},
                    {"round", std::string(1, Letter(seeded.round))},
                    {"heats", heats},
                    {"entries", seeded.places.size()}});
  }
  return context.Print({{"rows", std::move(rows)}}, text, code);
}

int Purge(Context& context, const SeedArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  const auto events = ChooseEvents(context, *meet, arguments, code);
  if (!events) return context.Print({}, "", code);
  const running::PurgeOptions options{arguments.results, RoundOf(arguments.round)};
  return context.Print({}, "", context.Finish(running::PurgeRounds(*meet, *events, options, context.user())));
}

int StartList(Context& context, const SeedArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  return PrintSheet(context, *meet, arguments.events.front(), arguments.round, SheetKind::StartList);
}

}  // namespace

void AddSeedingCommands(CLI::App& app, Command& chosen) {
  const auto arguments = std::make_shared<SeedArguments>();
  const auto round = [&](CLI::App* command) {
    command->add_option("--round", arguments->round, "P, Q, S or F; else the event's current round")
        ->check(CLI::IsMember({"P", "Q", "S", "F"}, CLI::ignore_case));
  };
  auto* seed = app.add_subcommand("seed", "Seeds events into heats, flights and lanes");
  seed->add_option("MEET.mdb", arguments->path)->required();
  seed->add_option("EVENT", arguments->events);
  seed->add_flag("--all", arguments->all, "Every event of the meet");
  seed->add_option("--draw-seed", arguments->draw, "Makes the draw repeatable")->option_text("N");
  seed->add_flag("--no-prompt", arguments->no_prompt, "Re-seeds without asking");
  seed->add_flag("--preview", arguments->preview, "Shows the heats and writes nothing");
  round(seed);
  seed->callback([=, &chosen] { chosen = [=](Context& c) { return Seed(c, *arguments); }; });

  auto* purge = app.add_subcommand("purge", "Takes a round's seeding, or only its results, away");
  purge->add_option("MEET.mdb", arguments->path)->required();
  purge->add_option("EVENT", arguments->events)->required();
  purge->add_flag("--results", arguments->results, "Only the results");
  round(purge);
  purge->callback([=, &chosen] { chosen = [=](Context& c) { return Purge(c, *arguments); }; });

  auto* list = app.add_subcommand("start-list", "Shows heats or flights with lanes");
  list->add_option("MEET.mdb", arguments->path)->required();
  list->add_option("EVENT", arguments->events)->required()->expected(1);
  round(list);
  list->callback([=, &chosen] { chosen = [=](Context& c) { return StartList(c, *arguments); }; });
}

}  // namespace tarvex::cli
