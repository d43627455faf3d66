#include "base/columns.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "running/place_again.h"
#include "setup/edit_athlete.h"
#include "setup/edit_division.h"
#include "setup/edit_entry.h"
#include "setup/edit_event.h"
#include "setup/edit_row.h"
#include "setup/edit_team.h"
#include "setup/event_name.h"
#include "setup/event_status.h"
#include "setup/import_entries.h"
#include "setup/roster_store.h"
#include "setup/scratch.h"

namespace tarvex::cli {
namespace {

struct SetupArguments {
  std::string path, file, action, key, event;
  std::vector<std::string> fields, keys;
  bool dry_run = false, skip_bad = false, undo = false;
};

int Import(Context& context, const SetupArguments& arguments) {
  const auto csv = ReadFile(arguments.file);
  if (!csv.ok()) {
    context.user().Tell(InputUnreadable(csv.status().detail));
    return context.Print({}, "", kWrongUsage);
  }
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  setup::ImportReport report;
  const setup::ImportOptions options{arguments.dry_run, arguments.skip_bad};
  code = context.Finish(setup::ImportEntries(*meet, *csv, options, context.user(), report));
  Json rows = Json::array();
  for (const setup::RowFate& row : report.rows) {
    rows.push_back({{"line", row.line}, {"fate", setup::FateName(row.fate)}, {"reason", row.reason}});
  }
  const setup::ImportCounts& made = report.counts;
  Columns table({{"made"}, {"", Align::Right}});
  table.AddRow({"teams", std::to_string(made.teams)});
  table.AddRow({"athletes", std::to_string(made.athletes)});
  table.AddRow({"events", std::to_string(made.events)});
  table.AddRow({"entries", std::to_string(made.entries)});
  table.AddRow({"relays", std::to_string(made.relays)});
  return context.Print({{"rows", std::move(rows)},
                        {"teams", made.teams},
                        {"athletes", made.athletes},
                        {"events", made.events},
                        {"entries", made.entries},
                        {"relays", made.relays}},
                       code == kDone ? table.ToText() : "", code);
}

Status ListEvents(const database::Meet& meet, Json& rows, Columns& table) {
  TRY_ASSIGN(const auto events, setup::LoadEvents(meet));
  for (const setup::StoredEvent& stored : events) {
    const setup::Event& event = stored.row;
    TRY_ASSIGN(const std::string name, setup::NameOf(meet, event));
    TRY_ASSIGN(const int entries, setup::CountEntries(meet, event.event_ptr, event.ind_rel == 'R'));
    const std::string status = setup::LongStatus(event.event_stat, event.event_rounds);
    table.AddRow({setup::EventLabel(event), name, std::to_string(event.event_rounds), status,
                  std::to_string(entries)});
    rows.push_back({{"event_no", event.event_no},
                    {"event_ltr", event.event_ltr},
                    {"name", name},
                    {"event_rounds", event.event_rounds},
                    {"event_stat", std::string(1, event.event_stat)},
                    {"status", status},
                    {"entries", entries}});
  }
  return Ok();
}

int Events(Context& context, const SetupArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  Columns table(
      {{"Event", Align::Right}, {"Name"}, {"Rounds", Align::Right}, {"Status"}, {"Entries", Align::Right}});
  Json rows = Json::array();
  if (Status status = ListEvents(*meet, rows, table); !status.ok())
    return context.Print({}, "", context.Fail(status));
  return context.Print({{"rows", std::move(rows)}}, table.ToText());
}

// Entries that come or go in a round with results change the places of the others.
setup::AfterChange PlacingAgain(const database::Meet& meet) {
  return [&meet](auto& write, int event_ptr) { return running::PlaceAgain(write, meet, event_ptr); };
}

// What an editing command is: one of setup's, all with the same shape.
using Editor = std::function<Outcome(database::Meet&, setup::Edit, const std::string& key,
                                     std::span<const database::FieldText>, UserInterface&)>;

int EditOne(Context& context, const SetupArguments& arguments, const Editor& editor) {
  std::vector<database::FieldText> fields;
  for (const std::string& typed : arguments.fields) {
    const size_t equals = typed.find('=');
    if (equals == std::string::npos) {
      context.user().Tell(FieldIsNoAssignment(typed));
      return context.Print({}, "", kWrongUsage);
    }
    fields.push_back({typed.substr(0, equals), typed.substr(equals + 1)});
  }
  const setup::Edit edit = arguments.action == "add"   ? setup::Edit::Add
                           : arguments.action == "set" ? setup::Edit::Set
                                                       : setup::Edit::Delete;
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  return context.Print({}, "", context.Finish(editor(*meet, edit, arguments.key, fields, context.user())));
}

int ScratchEntries(Context& context, const SetupArguments& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(arguments.path, code);
  if (!meet) return context.Print({}, "", code);
  return context.Print({}, "",
                       context.Finish(setup::Scratch(*meet, arguments.event, arguments.keys, arguments.undo,
                                                     PlacingAgain(*meet))));
}

struct EditCommand {
  const char* name;
  const char* what;
  const char* key;
  Editor editor;
};

std::vector<EditCommand> EditCommands() {
  using database::FieldText;
  using database::Meet;
  using Fields = std::span<const FieldText>;
  return {
      {"event", "Adds, changes or deletes an event", "EVENT",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface&) {
         return setup::EditEvent(m, e, k, f);
       }},
      {"division", "Adds, changes or deletes a division", "NUMBER",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface& u) {
         return setup::EditDivision(m, e, k, f, u);
       }},
      {"team", "Adds, changes or deletes a team", "ABBREVIATION",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface&) {
         return setup::EditTeam(m, e, k, f);
       }},
      {"athlete", "Adds, changes or deletes an athlete", "COMPETITOR|#ATH_NO",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface&) {
         return setup::EditAthlete(m, e, k, f);
       }},
      {"entry", "Adds, changes or deletes an entry", "EVENT:COMPETITOR|#ATH_NO",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface& u) {
         return setup::EditEntry(m, e, k, f, u, PlacingAgain(m));
       }},
      {"relay", "Adds, changes or deletes a relay", "EVENT:TEAM-LETTER",
       [](Meet& m, setup::Edit e, const std::string& k, Fields f, UserInterface& u) {
         return setup::EditRelay(m, e, k, f, u, PlacingAgain(m));
       }},
  };
}

}  // namespace

void AddSetupCommands(CLI::App& app, Command& chosen) {
  const auto arguments = std::make_shared<SetupArguments>();
  auto* entries = app.add_subcommand("import", "Imports entries from a CSV file");
  entries->add_option("MEET.mdb", arguments->path)->required();
  entries->add_option("FILE.csv", arguments->file)->required();
  entries->add_flag("--dry-run", arguments->dry_run, "Checks and reports, writes nothing");
  entries->add_flag("--skip-bad", arguments->skip_bad, "Leaves faulty rows out and lists them");
  entries->callback([=, &chosen] { chosen = [=](Context& c) { return Import(c, *arguments); }; });

  auto* events = app.add_subcommand("events", "Lists the events");
  events->add_option("MEET.mdb", arguments->path)->required();
  events->callback([=, &chosen] { chosen = [=](Context& c) { return Events(c, *arguments); }; });

  for (const EditCommand& command : EditCommands()) {
    auto* edit = app.add_subcommand(command.name, command.what);
    edit->add_option("MEET.mdb", arguments->path)->required();
    edit->add_option("ACTION", arguments->action, "add, set or delete")
        ->required()
        ->check(CLI::IsMember({"add", "set", "delete"}));
    edit->add_option(command.key, arguments->key)->required();
    edit->add_option("FIELD=VALUE", arguments->fields);
    edit->callback([=, &chosen, editor = command.editor] {
      chosen = [=](Context& c) { return EditOne(c, *arguments, editor); };
    });
  }

  auto* scratch = app.add_subcommand("scratch", "Scratches entries or relays of an event");
  scratch->add_option("MEET.mdb", arguments->path)->required();
  scratch->add_option("EVENT", arguments->event)->required();
  scratch->add_option("KEY", arguments->keys)->required();
  scratch->add_flag("--undo", arguments->undo, "Takes scratches back");
  scratch->callback([=, &chosen] { chosen = [=](Context& c) { return ScratchEntries(c, *arguments); }; });
}

}  // namespace tarvex::cli
