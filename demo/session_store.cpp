#include "demo/session_store.h"

#include <fmt/format.h>

#include "setup/roster_store.h"

namespace tarvex::demo {
namespace {

using database::Binding;
using database::BoundFields;

struct SessionRow {
  int sess_no = 0;
  std::string sess_ltr;
  int sess_ptr = 0;
  int day = 0;
  int start_s = 0;
  std::string name;
  char course = 'M';
};
const std::vector<Binding<SessionRow>> kSessionFields = {
    {"Sess_no", &SessionRow::sess_no},        {"Sess_ltr", &SessionRow::sess_ltr},
    {"Sess_ptr", &SessionRow::sess_ptr},      {"Sess_day", &SessionRow::day},
    {"Sess_starttime", &SessionRow::start_s}, {"Sess_name", &SessionRow::name},
    {"Sess_course", &SessionRow::course}};

struct ItemRow {
  int order = 0;
  int sess_ptr = 0;
  int event_ptr = 0;
  int multi_ptr = 0;
  char round = 'F';
  std::string start;
  std::string am_pm;
};
const std::vector<Binding<ItemRow>> kItemFields = {
    {"Sess_order", &ItemRow::order},    {"Sess_ptr", &ItemRow::sess_ptr}, {"Event_ptr", &ItemRow::event_ptr},
    {"Multi_ptr", &ItemRow::multi_ptr}, {"Sess_rnd", &ItemRow::round},    {"Start_time", &ItemRow::start},
    {"am_pm", &ItemRow::am_pm}};

template <class Row>
Expected<setup::RowTable<Row>> Open(const database::Meet& meet, std::string_view name,
                                    const std::vector<Binding<Row>>& bindings) {
  TRY_ASSIGN(jet::Table * table, meet.Table(name));
  TRY_ASSIGN(auto fields, BoundFields<Row>::Of(*table, bindings));
  return setup::RowTable<Row>{table, std::move(fields)};
}

void SetStart(ItemRow& item, int start_s) {
  const int hour = start_s / 3600, minute = start_s / 60 % 60;
  item.start = fmt::format("{:02}:{:02}", (hour + 11) % 12 + 1, minute);
  item.am_pm = hour < 12 ? "AM" : "PM";
}

}  // namespace

Status WriteSessions(jet::Transaction& write, const database::Meet& meet,
                     const std::vector<MadeSession>& sessions, const std::vector<int>& event_ptrs) {
  TRY_ASSIGN(const auto session_table, Open(meet, "Session", kSessionFields));
  TRY_ASSIGN(const auto item_table, Open(meet, "Sessitem", kItemFields));
  int number = 0;
  for (const MadeSession& session : sessions) {
    SessionRow row;
    row.sess_no = ++number;
    row.day = session.day;
    row.start_s = session.events.front().start_s;
    row.name = session.name;
    TRY_ASSIGN(const int sess_ptr, session_table.Insert(write, row));
    int order = 0;
    for (const ScheduledEvent& scheduled : session.events) {
      ItemRow item;
      item.order = ++order;
      item.sess_ptr = sess_ptr;
      item.event_ptr = event_ptrs[scheduled.event];
      SetStart(item, scheduled.start_s);
      TRY(item_table.Insert(write, item).status());
    }
  }
  return Ok();
}

}  // namespace tarvex::demo
