#include "setup/import_entries.h"

#include <algorithm>

#include "setup/import_store.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

// How many rows a question shows.
constexpr size_t kRowsShown = 10;

std::string Listed(const std::vector<RowQuestion>& rows) {
  std::string text;
  for (size_t i = 0; i < std::min(rows.size(), kRowsShown); ++i) {
    text += "\n" + AtLine(rows[i].line, "", rows[i].text).text;
  }
  if (rows.size() > kRowsShown) text += "\n...";
  return text;
}

std::optional<Outcome> AskAbout(const std::vector<RowQuestion>& rows,
                                Notice (*question)(size_t, std::string_view), UserInterface& user) {
  if (rows.empty()) return std::nullopt;
  const std::optional<Answer> answer = user.Ask(question(rows.size(), Listed(rows)), Buttons::YesNo);
  if (!answer) return Outcome(Unanswered{});
  if (*answer != Answer::Yes) return Outcome(Refusal{NothingImported()});
  return std::nullopt;
}

std::optional<Outcome> AskAll(const ImportPlan& plan, UserInterface& user) {
  if (auto stopped = AskAbout(plan.out_of_range, MarksOutOfRange, user)) return stopped;
  if (auto stopped = AskAbout(plan.age_ups, AthletesBelowAge, user)) return stopped;
  return AskAbout(plan.over_limits, EntriesOverLimit, user);
}

Status Write(database::Meet& meet, const ImportedMeet& stored, ImportPlan& plan) {
  TRY_ASSIGN(const auto write, meet.Begin("import"));
  TRY(SaveImport(*write, meet, stored, std::move(plan.state)));
  return write->Commit();
}

// An import that ends without writing has added nothing.
void TakeBack(ImportReport& report) {
  report.counts = {};
  for (RowFate& row : report.rows) {
    if (row.fate != Fate::Fault) row.fate = Fate::Unchanged;
  }
}

Outcome Import(database::Meet& meet, const ImportedMeet& stored, ImportPlan plan,
               const ImportOptions& options, UserInterface& user, ImportReport& report) {
  report.rows = plan.rows;
  report.counts = plan.counts;
  for (const ImportFault& fault : plan.faults) user.Tell(fault.notice);
  const bool none_left = plan.faults.size() == plan.rows.size() && !plan.faults.empty();
  if (!plan.faults.empty() && (!options.skip_bad || none_left)) {
    TakeBack(report);
    return Refusal{NothingImported()};
  }
  if (auto stopped = AskAll(plan, user)) {
    TakeBack(report);
    return *stopped;
  }
  if (options.dry_run || !plan.has_changes) return Done{};
  if (Status failed = Write(meet, stored, plan); !failed.ok()) {
    TakeBack(report);
    return failed;
  }
  return Done{};
}

struct Prepared {
  ImportedMeet stored;
  ImportContext context;
};

Expected<Prepared> Prepare(const database::Meet& meet) {
  Prepared prepared;
  TRY_ASSIGN(prepared.stored, LoadImportedMeet(meet));
  TRY_ASSIGN(prepared.context, LoadImportContext(meet));
  return prepared;
}

}  // namespace

Outcome ImportEntries(database::Meet& meet, std::string_view csv, const ImportOptions& options,
                      UserInterface& user, ImportReport& report) {
  const Expected<Prepared> prepared = Prepare(meet);
  if (!prepared.ok()) return prepared.status();
  const ImportContext& context = prepared->context;
  const ImportRows rows = ReadImportRows(csv, context.lengths, context.defaults.meet_type);
  if (rows.header_fault) {
    for (const ImportFault& fault : rows.faults) {
      report.rows.push_back({fault.line, Fate::Fault, fault.notice.text});
      user.Tell(fault.notice);
    }
    return Refusal{NothingImported()};
  }
  return Import(meet, prepared->stored, PlanImport(rows, prepared->stored.State(), context), options, user,
                report);
}

}  // namespace tarvex::setup
