#pragma once

#include <optional>
#include <string_view>

#include "setup/event.h"

namespace tarvex::setup {

// A round; the value is its letter in the database.
enum class Round : char { Prelims = 'P', Quarters = 'Q', Semis = 'S', Finals = 'F' };

constexpr char Letter(Round round) {
  return static_cast<char>(round);
}
std::optional<Round> RoundFromLetter(char letter);

// The round with number `number` (1 is the first) of an event of `rounds` rounds. The last one is always the
// final, so a one-round event has only that. Empty when there is no such round.
std::optional<Round> RoundByNumber(int number, int rounds);

// The reverse: 1 to 4; 0 when an event of `rounds` rounds does not have the round.
int RoundNumber(Round round, int rounds);

// What the round's fields of an entry begin with: "pre_", "qtr_", "sem_", "fin_".
std::string_view FieldPrefix(Round round);

// "Prelims", "Qtrs", "Semis", "Finals".
std::string_view ShortRoundName(Round round);

// "Prelims", "Qtr-Finals", "Semi-Finals", "Finals".
std::string_view RoundName(Round round);

// The lane count of a round goes by its letter, its alleys by its number.
int LanesOf(const Event& event, Round round);
int AlleysOf(const Event& event, Round round);

// The number of heats fixed for a round; 0 when the entries decide, as always in one-round events and in the
// first round.
int FixedHeats(const Event& event, Round round);

// The order code of a round's heats or flights: '1' to '5'.
char HeatOrder(const Event& event, Round round);

// The finals setting as shown: "1 Final", "3 Finals", "Timed Finals", "Finals Only", "NA" ...
std::string FinalsText(const Event& event);

}  // namespace tarvex::setup
