#include "setup/rounds.h"

#include <array>

#include "setup/event_kind.h"

namespace tarvex::setup {
namespace {

// The letters of the rounds of an event, by its number of rounds.
constexpr std::array<std::string_view, 5> kRoundsOf = {"", "F", "PF", "PSF", "PQSF"};

std::string_view LettersOf(int rounds) {
  return rounds >= 1 && rounds <= 4 ? kRoundsOf[static_cast<size_t>(rounds)] : std::string_view();
}

}  // namespace

std::optional<Round> RoundFromLetter(char letter) {
  const char upper = ReadCode({&letter, 1}, ' ');
  if (std::string_view("PQSF").find(upper) == std::string_view::npos) return std::nullopt;
  return static_cast<Round>(upper);
}

std::optional<Round> RoundByNumber(int number, int rounds) {
  const std::string_view letters = LettersOf(rounds);
  if (number < 1 || static_cast<size_t>(number) > letters.size()) return std::nullopt;
  return static_cast<Round>(letters[static_cast<size_t>(number - 1)]);
}

int RoundNumber(Round round, int rounds) {
  const size_t at = LettersOf(rounds).find(Letter(round));
  return at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
}

std::string_view FieldPrefix(Round round) {
  switch (round) {
    case Round::Prelims:
      return "pre_";
    case Round::Quarters:
      return "qtr_";
    case Round::Semis:
      return "sem_";
    case Round::Finals:
      break;
  }
  return "fin_";
}

std::string_view ShortRoundName(Round round) {
  switch (round) {
    case Round::Prelims:
      return "Prelims";
    case Round::Quarters:
      return "Qtrs";
    case Round::Semis:
      return "Semis";
    case Round::Finals:
      break;
  }
  return "Finals";
}

std::string_view RoundName(Round round) {
  switch (round) {
    case Round::Prelims:
      return "Prelims";
    case Round::Quarters:
      return "Qtr-Finals";
    case Round::Semis:
      return "Semi-Finals";
    case Round::Finals:
      break;
  }
  return "Finals";
}

int LanesOf(const Event& event, Round round) {
  switch (round) {
    case Round::Prelims:
      return event.num_prelanes;
    case Round::Quarters:
      return event.num_qtrlanes;
    case Round::Semis:
      return event.num_semlanes;
    case Round::Finals:
      break;
  }
  return event.num_finlanes;
}

int AlleysOf(const Event& event, Round round) {
  const int number = RoundNumber(round, event.event_rounds);
  return number == 0 ? 0 : event.rnd_alleys[static_cast<size_t>(number - 1)];
}

int FixedHeats(const Event& event, Round round) {
  if (event.event_rounds <= 1) return 0;
  switch (round) {
    case Round::Prelims:
      return 0;
    case Round::Quarters:
      return event.heats_inqtr;
    case Round::Semis:
      return event.heats_insemi;
    case Round::Finals:
      break;
  }
  return event.heats_infinal;
}

char HeatOrder(const Event& event, Round round) {
  return round == Round::Finals ? event.finheat_order : event.preheat_order;
}

std::string FinalsText(const Event& event) {
  if (IsCombinedKind(event.event_stroke)) return "NA";
  if (event.event_rounds <= 1) return IsFieldEvent(event) ? "Finals Only" : "Timed Finals";
  switch (event.finals_setup) {
    case 'A':
      return "1 Final";
    case 'B':
      return "2 Finals";
    case 'C':
      return std::to_string(event.heats_infinal) + " Finals";
    case 'D':
      return "1 Final, Score Prelims";
    default:
      return "Unknown";
  }
}

}  // namespace tarvex::setup
