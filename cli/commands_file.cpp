#include <ostream>

#include "base/columns.h"
#include "base/platform.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/value_json.h"
#include "database/create.h"
#include "database/field_text.h"
#include "database/meet_path.h"
#include "database/open.h"
#include "database/settings_fields.h"
#include "demo/demo_meet.h"
#include "jet/verify.h"

namespace tarvex::cli {
namespace {

int Create(Context& context, const std::string& path) {
  const std::string absolute = AbsoluteMeetPath(path);
  const Outcome created = database::CreateMeet(platform::Files(), absolute, context.session());
  if (const auto* status = std::get_if<Status>(&created)) {
    context.user().Tell(database::CreatingFailure(*status));
    return context.Print({}, "", kFailed);
  }
  int code = context.Finish(created);
  if (code != kDone) return context.Print({}, "", code);
  const auto meet = context.OpenMeet(path, code);
  return context.Print({}, "", code);
}

int Open(Context& context, const std::string& path) {
  const std::string absolute = AbsoluteMeetPath(path);
  database::Opened opened =
      database::OpenMeet(platform::Files(), absolute, context.session(), context.user());
  int code = kDone;
  if (const auto* status = std::get_if<Status>(&opened.outcome)) {
    context.user().Tell(database::OpeningFailure(absolute, *status, false));
    code = kFailed;
  } else {
    code = context.Finish(opened.outcome);
    // A file that is no meet database fails as a file; a path that none may have is refused.
    if (code == kRefused && !database::CheckMeetPath(absolute)) code = kFailed;
  }
  std::string text;
  for (const std::string& change : opened.changes) text += change + "\n";
  return context.Print({{"changes", opened.changes}}, text, code);
}

int Verify(Context& context, const std::string& path) {
  const auto findings = jet::VerifyFile(platform::Files(), path);
  if (!findings.ok()) return context.Print({}, "", context.Fail(findings.status()));
  bool is_sound = true;
  std::string text;
  Json faults = Json::array();
  for (const jet::Finding& finding : *findings) {
    is_sound &= finding.severity != 'E';
    text += std::string(1, finding.severity) + " page " + std::to_string(finding.page) + ": " + finding.text +
            "\n";
    faults.push_back(
        {{"severity", std::string(1, finding.severity)}, {"page", finding.page}, {"text", finding.text}});
  }
  return context.Print({{"sound", is_sound}, {"faults", std::move(faults)}}, text,
                       is_sound ? kDone : kRefused);
}

int DumpNames(Context& context, jet::Database& file) {
  const auto names = file.TableNames();
  if (!names.ok()) return context.Print({}, "", context.Fail(names.status()));
  std::string text;
  for (const std::string& name : *names) text += name + "\n";
  return context.Print({{"rows", *names}}, text);
}

// Rows go out one by one: a table may be larger than the memory that one wants to spend on it.
int DumpRows(Context& context, const jet::Table& table) {
  const auto& columns = table.def().columns;
  std::ostream& out = context.out();
  if (context.json()) {
    out << "{\"table\": " << Json(table.name()).dump() << ", \"rows\": [";
  } else {
    for (size_t i = 0; i < columns.size(); ++i) out << (i > 0 ? "\t" : "") << columns[i].name;
    out << "\n";
  }
  Status status;
  bool is_first = true;
  jet::TableScan scan = table.Scan();
  while (true) {
    const auto more = scan.Next();
    if (!more.ok()) status = more.status();
    if (!more.ok() || !*more) break;
    Json row = Json::object();
    std::string line;
    for (size_t i = 0; i < columns.size() && status.ok(); ++i) {
      const auto value = scan.record().Get(static_cast<int>(i));
      if (!value.ok()) {
        status = value.status();
      } else if (context.json()) {
        row[Lower(columns[i].name)] = ValueJson(columns[i], *value);
      } else {
        line += (i > 0 ? "\t" : "") + OneLine(database::ValueText(columns[i], *value));
      }
    }
    if (!status.ok()) break;
    if (context.json()) {
      out << (is_first ? "\n" : ",\n") << row.dump(-1, ' ', false, Json::error_handler_t::replace);
    } else {
      out << line << "\n";
    }
    is_first = false;
  }
  const int code = status.ok() ? kDone : context.Fail(status);
  if (context.json()) out << "], \"messages\": " << context.MessagesJson().dump() << "}\n";
  out.flush();
  return code;
}

int Dump(Context& context, const std::string& path, const std::string& name) {
  const auto file = jet::Database::Open(platform::Files(), path, OpenMode::Read);
  if (!file.ok()) return context.Print({}, "", context.Fail(file.status()));
  if (name.empty()) return DumpNames(context, **file);
  const auto table = (*file)->FindTable(name);
  if (!table.ok() && table.status().fault == Fault::NotFound) {
    return context.Print({}, "", context.Refuse(TableNotFound(name)));
  }
  if (!table.ok()) return context.Print({}, "", context.Fail(table.status()));
  return DumpRows(context, **table);
}

int Settings(Context& context, const std::string& path, const std::vector<std::string>& arguments) {
  int code = kDone;
  const auto meet = context.OpenMeet(path, code);
  if (!meet) return context.Print({}, "", code);
  std::vector<std::string> names;
  std::vector<database::FieldText> changes;
  for (const std::string& argument : arguments) {
    const size_t equals = argument.find('=');
    names.push_back(argument.substr(0, equals));
    if (equals != std::string::npos)
      changes.push_back({argument.substr(0, equals), argument.substr(equals + 1)});
  }
  if (!changes.empty()) {
    code = context.Finish(database::ChangeSettings(*meet, changes));
    if (code != kDone) return context.Print({}, "", code);
  }
  std::vector<database::Setting> shown;
  code = context.Finish(database::ShowSettings(*meet, names, shown));
  Columns table({{"field"}, {"value"}});
  Json rows = Json::array();
  for (const database::Setting& setting : shown) {
    table.AddRow({setting.field, OneLine(setting.text)});
    rows.push_back({{"field", Lower(setting.field)}, {"value", SettingJson(*meet, setting)}});
  }
  return context.Print({{"rows", std::move(rows)}}, table.IsEmpty() ? "" : table.ToText(), code);
}

int Demo(Context& context, const std::string& path, const std::string& size, const std::string& stage) {
  demo::DemoOptions options;
  options.size = size == "large" ? demo::Size::Large : demo::Size::Small;
  options.stage = stage == "entered"  ? demo::Stage::Entered
                  : stage == "seeded" ? demo::Stage::Seeded
                                      : demo::Stage::Scored;
  const Outcome made = demo::MakeDemoMeet(platform::Files(), AbsoluteMeetPath(path), options, context.user());
  return context.Print({}, "", context.Finish(made));
}

}  // namespace

void AddFileCommands(CLI::App& app, Command& chosen) {
  struct Arguments {
    std::string path, table, size = "small", stage = "entered";
    std::vector<std::string> settings;
  };
  const auto add = [&](const char* name, const char* what) { return app.add_subcommand(name, what); };
  const auto arguments = std::make_shared<Arguments>();
  auto* create = add("create", "Creates and opens a new meet database");
  create->add_option("MEET.mdb", arguments->path)->required();
  create->callback([=, &chosen] { chosen = [=](Context& c) { return Create(c, arguments->path); }; });

  auto* open = add("open", "Runs the open sequence and prints what it added or changed");
  open->add_option("MEET.mdb", arguments->path)->required();
  open->callback([=, &chosen] { chosen = [=](Context& c) { return Open(c, arguments->path); }; });

  auto* verify =
      add("verify", "Checks the structure of any JET 4 file; E lines are faults, W lines oddities");
  verify->add_option("FILE.mdb", arguments->path)->required();
  verify->callback([=, &chosen] { chosen = [=](Context& c) { return Verify(c, arguments->path); }; });

  auto* dump = add("dump", "Prints all rows of a table of any JET 4 file, or the names of its tables");
  dump->add_option("FILE.mdb", arguments->path)->required();
  dump->add_option("TABLE", arguments->table);
  dump->callback(
      [=, &chosen] { chosen = [=](Context& c) { return Dump(c, arguments->path, arguments->table); }; });

  auto* settings = add("settings", "Shows or changes meet settings");
  settings->add_option("MEET.mdb", arguments->path)->required();
  settings->add_option("FIELD[=VALUE]", arguments->settings);
  settings->callback([=, &chosen] {
    chosen = [=](Context& c) { return Settings(c, arguments->path, arguments->settings); };
  });

  auto* demo = add("demo", "Makes a fully populated meet that looks like a real one");
  demo->add_option("MEET.mdb", arguments->path)->required();
  demo->add_option("--size", arguments->size)->check(CLI::IsMember({"small", "large"}));
  demo->add_option("--stage", arguments->stage)->check(CLI::IsMember({"entered", "seeded", "scored"}));
  demo->callback([=, &chosen] {
    chosen = [=](Context& c) { return Demo(c, arguments->path, arguments->size, arguments->stage); };
  });
}

}  // namespace tarvex::cli
