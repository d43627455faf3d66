#include "running/enter_results.h"

#include <map>
#include <optional>

#include "base/text.h"
#include "marks/field_entry.h"
#include "marks/hand_time.h"
#include "marks/kinds.h"
#include "marks/range.h"
#include "marks/status.h"
#include "marks/time_entry.h"
#include "running/alleys.h"
#include "running/messages.h"
#include "running/place_round.h"
#include "running/result_rows.h"
#include "setup/event_kind.h"
#include "setup/event_name.h"
#include "setup/event_status.h"

namespace tarvex::running {
namespace {

using database::Meet;

class Entering {
 public:
  Entering(Meet& meet, const setup::StoredEvent& event, setup::Round round, UserInterface& user)
      : meet_(meet), event_(event), round_(round), user_(user), settings_(meet.mark_settings()) {}

  Outcome Do(std::string_view csv) {
    if (auto refusal = CheckEvent()) return Refusal{*refusal};
    if (Status status = Load(); !status.ok()) return status;
    ResultRows rows = ReadResultRows(csv);
    faults_ = std::move(rows.faults);
    std::vector<Matched> matched = Match(rows.rows);
    if (!faults_.empty()) return Refuse();
    for (const Matched& one : matched) {
      if (auto end = TakeRow(*one.row, one.position)) return *end;
    }
    if (!faults_.empty()) return Refuse();
    SpreadWinds();
    if (Status status = Save(); !status.ok()) return status;
    return Done{};
  }

 private:
  struct Matched {
    const ResultRow* row;
    size_t position;
  };

  std::optional<Notice> CheckEvent() const {
    const std::string label = setup::EventLabel(event_.row);
    if (event_.row.event_rounds > 1) return EventHasSeveralRounds(label);
    const int number = setup::RoundNumber(round_, event_.row.event_rounds);
    if (number == 0) return NotTheRoundBeingRun(label, setup::RoundName(round_));
    if (!setup::IsRoundSeeded(event_.row.event_stat, number, event_.row.event_rounds))
      return EventNotSeeded(label);
    return std::nullopt;
  }

  Status Load() {
    TRY_ASSIGN(roster_, setup::LoadRoster(meet_));
    TRY_ASSIGN(data_, LoadRound(meet_, event_, round_));
    TRY_ASSIGN(alleys_, LoadAlleyNames(meet_, event_.row.event_ptr));
    for (const RoundRow& row : data_.rows) {
      const setup::Athlete* athlete = data_.is_relay() ? nullptr : roster_.athlete(row.id);
      const setup::Team* team = data_.is_relay() ? roster_.team(row.team_no) : roster_.team_of(athlete);
      Entrant entrant;
      entrant.heat = row.heat;
      entrant.lane = row.lane;
      entrant.comp_no = athlete ? athlete->comp_no : row.relay_compno;
      entrant.last_name = athlete ? athlete->last_name : "";
      entrant.first_name = athlete ? athlete->first_name : "";
      entrant.team_abbr = team ? team->abbr : "";
      entrant.relay_ltr = data_.is_relay() ? std::string(1, row.team_ltr == ' ' ? 'A' : row.team_ltr) : "";
      entrant.scratched = row.scratched;
      entrants_.push_back(std::move(entrant));
    }
    return Ok();
  }

  Refusal Refuse() {
    for (const Notice& fault : faults_) user_.Tell(fault);
    return Refusal{ResultsRefused(static_cast<int>(faults_.size()))};
  }

  std::vector<Matched> Match(const std::vector<ResultRow>& rows) {
    std::vector<Matched> matched;
    std::map<size_t, int> lines;  // of the positions that have a row
    const char std_lanes = setup::IsFieldEvent(event_.row) ? '1' : event_.row.std_lanes;
    for (const ResultRow& row : rows) {
      const auto found = MatchRow(row, entrants_, std_lanes, alleys_);
      if (const auto* notice = std::get_if<Notice>(&found)) {
        faults_.push_back(ResultsFault(row.line, "", *notice));
        continue;
      }
      const size_t position = std::get<size_t>(found);
      if (!lines.emplace(position, row.line).second) {
        faults_.push_back(ResultsFault(row.line, "", MatchedTwice()));
        continue;
      }
      matched.push_back({&row, position});
    }
    return matched;
  }

  // An ending of the command when a question is not answered.
  std::optional<Outcome> TakeRow(const ResultRow& row, size_t position) {
    RoundRow& result = data_.rows[position];
    if (!row.wind.empty()) TakeWind(row, result);
    if (row.mark.empty()) return std::nullopt;
    any_mark_ = true;
    const setup::Event& event = event_.row;
    const bool is_field = event.trk_field == 'F';
    const marks::MarkEntry entry =
        is_field ? marks::ReadFieldMark(row.mark, event.res_meas, event.event_stroke, {}, settings_)
                 : marks::ReadTime(row.mark, event.event_dist, event.event_stroke, TimeOptions(), settings_);
    if (entry.message) {
      faults_.push_back(ResultsFault(row.line, "mark", *entry.message));
      return std::nullopt;
    }
    switch (marks::AskAboutRange(entry.range_question, user_)) {
      case marks::Consent::Accepted:
        break;
      case marks::Consent::Refused:
        faults_.push_back(ResultsFault(row.line, "mark", *entry.range_question));
        return std::nullopt;
      case marks::Consent::Unanswered:
        return Unanswered{};
    }
    Store(entry, result);
    return std::nullopt;
  }

  marks::TimeEntryOptions TimeOptions() const {
    marks::TimeEntryOptions options;
    options.thousandths = marks::UsesThousandths(event_.row.trk_field, event_.row.event_type, settings_);
    return options;
  }

  void Store(const marks::MarkEntry& entry, RoundRow& result) const {
    const setup::Event& event = event_.row;
    const marks::StatusFields status = marks::FieldsOf(entry.status);
    result.stat = status.stat;
    // Only a mark says anew whether it is an exhibition.
    if (status.stat == marks::kValid) result.exh = status.exhibition;
    // A disqualified athlete's mark stays on record; it does not count.
    if (entry.status == marks::kDisqualified && entry.value == 0) return;
    result.mark = marks::HandToFat(entry.value, event.event_dist, event.event_stroke, entry.hand, settings_);
    result.hand = entry.hand;
    result.video = entry.video;
    result.course = event.res_meas;
  }

  // In races the wind is the heat's, in jumps the athlete's own.
  void TakeWind(const ResultRow& row, RoundRow& result) {
    const bool is_field = event_.row.trk_field == 'F';
    if (row.wind.size() > (is_field ? kLongestResultWind : kLongestHeatWind)) {
      faults_.push_back(ResultsFault(row.line, "wind", WindTooLong()));
      return;
    }
    if (is_field) {
      result.wind = row.wind;
      return;
    }
    const auto [heat, is_new] = winds_.emplace(result.heat, row.wind);
    if (!is_new && heat->second != row.wind) faults_.push_back(ResultsFault(row.line, "wind", WindsDiffer()));
  }

  void SpreadWinds() {
    for (RoundRow& row : data_.rows) {
      if (const auto wind = winds_.find(row.heat); wind != winds_.end()) row.wind = wind->second;
    }
  }

  Status Save() {
    TRY_ASSIGN(std::vector<Result> results, ResultsOf(meet_, data_, roster_));
    PlaceRound(meet_.settings(), data_, results);
    TakeOver(results, data_);
    setup::Event event = event_.row;
    if (any_mark_) event.event_stat = StatusAfterResults(data_, results);
    TRY_ASSIGN(const auto write, meet_.Begin("results"));
    for (const auto& [heat, wind] : winds_) {
      TRY(SaveWind(*write, meet_, event.event_ptr, round_, heat, wind));
    }
    TRY(SaveRound(*write, meet_, data_, event));
    return write->Commit();
  }

  Meet& meet_;
  const setup::StoredEvent& event_;
  setup::Round round_;
  UserInterface& user_;
  marks::MarkSettings settings_;
  setup::Roster roster_;
  RoundData data_;
  std::vector<setup::AlleyName> alleys_;
  std::vector<Entrant> entrants_;
  std::vector<Notice> faults_;
  bool any_mark_ = false;
  std::map<int, std::string> winds_;  // by heat, of running events
};

}  // namespace

Outcome EnterResults(Meet& meet, const setup::StoredEvent& event, setup::Round round, std::string_view csv,
                     UserInterface& user) {
  return Entering(meet, event, round, user).Do(csv);
}

}  // namespace tarvex::running
