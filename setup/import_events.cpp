#include <algorithm>

#include "base/text.h"
#include "setup/event_kind.h"
#include "setup/event_name.h"
#include "setup/import_match.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using Column = ImportColumn;

constexpr int kLastNumber = 999;
constexpr int kDivisionsByEvent = 2;

std::string LabelOf(const EventNumber& number) {
  return std::to_string(number.event_no) + number.event_ltr;
}

// Field events have none, whatever the file says there.
bool SameDistance(const ImportRow& row, const Event& event) {
  return row.distance == 0 || event.trk_field == 'F' || row.distance == event.event_dist;
}

bool SameDescription(const ImportRow& row, const Event& event) {
  const bool distance = event.trk_field == 'F' || row.distance == event.event_dist;
  return row.gender == event.event_gender && row.kind == event.event_stroke && distance &&
         row.is_relay() == (event.ind_rel == 'R');
}

// The kinds that are run as relays only.
bool IsRelayKind(char meet_type, char kind) {
  if (meet_type == 'W') return kind == 'W';
  return meet_type == 'T' && marks::IsOneOf(kind, "WXYZ");
}

}  // namespace

const DatedDivision* FindDivision(const std::vector<DatedDivision>& divisions, std::string_view code) {
  const auto found = std::find_if(divisions.begin(), divisions.end(), [&](const DatedDivision& dated) {
    return SameText(dated.division.div_abbr, code);
  });
  return found == divisions.end() ? nullptr : &*found;
}

const DatedDivision* FindDivision(const std::vector<DatedDivision>& divisions, int div_no) {
  const auto found = std::find_if(divisions.begin(), divisions.end(), [&](const DatedDivision& dated) {
    return dated.division.div_no == div_no;
  });
  return div_no == 0 || found == divisions.end() ? nullptr : &*found;
}

std::vector<Match<size_t>> EventMatcher::MatchAll(const std::vector<ImportRow>& rows) {
  for (size_t at = 0; at < state_.events.size(); ++at) {
    by_label_.emplace(EventLabel(state_.events[at]), at);
    numbers_.push_back({state_.events[at].event_no, state_.events[at].event_ltr});
    last_number_ = std::max(last_number_, state_.events[at].event_no);
  }
  for (const ImportRow& row : rows) {
    if (row.event) last_number_ = std::max(last_number_, row.event->event_no);
  }
  std::vector<Match<size_t>> matches(rows.size());
  for (const bool numbered : {true, false}) {
    for (size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].event.has_value() == numbered) matches[i] = MatchOne(rows[i]);
    }
  }
  return matches;
}

int EventMatcher::DivisionOf(const ImportRow& row) const {
  if (context_.division_level != kDivisionsByEvent || row.division.empty()) return 0;
  const DatedDivision* dated = FindDivision(context_.divisions, row.division);
  return dated == nullptr ? 0 : dated->division.div_no;
}

Match<size_t> EventMatcher::MatchOne(const ImportRow& row) {
  if (!row.division.empty() && FindDivision(context_.divisions, row.division) == nullptr) {
    return RowFault{Column::Division, NoSuchDivision(row.division)};
  }
  if (!row.event) return ByDescription(row);
  const auto found = by_label_.find(LabelOf(*row.event));
  if (found == by_label_.end()) return Propose(row, *row.event);
  if (const auto fault = Contradiction(row, state_.events[found->second])) return *fault;
  return found->second;
}

Match<size_t> EventMatcher::ByDescription(const ImportRow& row) {
  const int div_no = DivisionOf(row);
  std::optional<size_t> found;
  for (size_t at = 0; at < state_.events.size(); ++at) {
    const Event& event = state_.events[at];
    if (!SameDescription(row, event) || (div_no != 0 && event.div_no != div_no)) continue;
    if (found) return RowFault{Column::EventNo, SeveralEventsFit()};
    found = at;
  }
  if (!found) return Propose(row, {FreeNumber(), ""});
  if (const auto fault = Contradiction(row, state_.events[*found])) return *fault;
  return *found;
}

std::optional<RowFault> EventMatcher::Contradiction(const ImportRow& row, const Event& event) const {
  const std::string label = EventLabel(event);
  if (row.is_relay() != (event.ind_rel == 'R')) {
    return RowFault{Column::RelayLtr, row.is_relay() ? EventIsNoRelay(label) : EventIsRelay(label)};
  }
  if (row.gender != ' ' && row.gender != event.event_gender) {
    return RowFault{Column::EventSex, EventDiffers(label)};
  }
  if (!SameDistance(row, event)) return RowFault{Column::Distance, EventDiffers(label)};
  if (row.kind != ' ' && row.kind != event.event_stroke) return RowFault{Column::Kind, EventDiffers(label)};
  if (row.rounds != 0 && row.rounds != event.event_rounds)
    return RowFault{Column::Rounds, EventDiffers(label)};
  if (DivisionOf(row) != 0 && DivisionOf(row) != event.div_no) {
    return RowFault{Column::Division, EventDiffers(label)};
  }
  return std::nullopt;
}

Match<size_t> EventMatcher::Propose(const ImportRow& row, EventNumber number) {
  if (row.gender == ' ') return RowFault{Column::EventSex, ValueMissing()};
  if (row.kind == ' ') return RowFault{Column::Kind, ValueMissing()};
  const char meet_type = context_.defaults.meet_type;
  if (!row.is_relay() && IsRelayKind(meet_type, row.kind)) return RowFault{Column::RelayLtr, ValueMissing()};
  EventRequest request;
  request.gender = row.gender;
  request.kind = row.kind;
  request.distance = row.distance;
  request.relay = row.is_relay();
  // Of the kinds that may be either, those with a unit and no distance are measured.
  if (meet_type == 'T' && row.kind == 'T') {
    request.trk_field = row.seed_unit != ' ' && row.distance == 0 ? 'F' : 'T';
  }
  Event event = ProposeEvent(request, context_.defaults);
  event.event_no = number.event_no;
  event.event_ltr = number.event_ltr;
  event.div_no = DivisionOf(row);
  event.event_rounds = std::max(row.rounds, 1);
  if (event.event_rounds > 1) event.heats_infinal = 1;
  if (auto fault = CheckProposed(row, event)) return *fault;
  event.event_ptr = -static_cast<int>(state_.events.size()) - 1;
  by_label_.emplace(LabelOf(number), state_.events.size());
  numbers_.push_back(number);
  last_number_ = std::max(last_number_, number.event_no);
  state_.events.push_back(event);
  return state_.events.size() - 1;
}

std::optional<RowFault> EventMatcher::CheckProposed(const ImportRow& row, const Event& event) const {
  EventForm form;
  form.event = event;
  form.meet_type = context_.defaults.meet_type;
  form.other_events = numbers_;
  const std::optional<Notice> failed = CheckEvent(form);
  if (!failed) return std::nullopt;
  const bool distance = failed->number == SelectADistance().number || failed->number == TooManyMiles().number;
  const bool number = failed->number == EventNumberRange().number;
  return RowFault{distance         ? Column::Distance
                  : number         ? Column::EventNo
                  : row.rounds > 1 ? Column::Rounds
                                   : Column::Kind,
                  *failed};
}

// Behind all numbers of the meet and the file; below them when there is no room behind.
int EventMatcher::FreeNumber() {
  if (last_number_ < kLastNumber) return last_number_ + 1;
  for (int number = 1; number <= kLastNumber; ++number) {
    if (!by_label_.contains(std::to_string(number))) return number;
  }
  return kLastNumber + 1;
}

}  // namespace tarvex::setup
