#include "marks/entry.h"

#include <array>
#include <utility>

#include "marks/messages.h"
#include "marks/range.h"

namespace tarvex::marks {

namespace {

struct WordStatus {
  std::string_view word;
  char status;
};
constexpr std::array kWords = {
    WordStatus{"NT", kNoMark},        WordStatus{"N", kNoMark},        WordStatus{"NS", kDidNotStart},
    WordStatus{"DNS", kDidNotStart},  WordStatus{"S", kDidNotStart},   WordStatus{"*", kDidNotStart},
    WordStatus{"SC", kScratched},     WordStatus{"SCR", kScratched},   WordStatus{"R", kScratched},
    WordStatus{"Q", kDisqualified},   WordStatus{"DQ", kDisqualified}, WordStatus{"DN", kDidNotFinish},
    WordStatus{"DNF", kDidNotFinish}, WordStatus{"D", kDidNotFinish},
};

}  // namespace

MarkEntry Refused(Notice message) {
  MarkEntry entry;
  entry.accepted = false;
  entry.message = std::move(message);
  return entry;
}

MarkEntry Unclear(std::string_view typed) {
  const Notice unclear = kUnclear.Shown();
  return Refused({unclear.number, std::string(typed) + unclear.text});
}

MarkEntry StatusOnly(char status) {
  MarkEntry entry;
  entry.status = status;
  return entry;
}

MarkEntry Settle(MarkEntry entry, bool show_message, UserInterface& user) {
  if (!entry.accepted) {
    if (show_message && entry.message) user.Tell(*entry.message);
    return entry;
  }
  const Consent consent = AskAboutRange(entry.range_question, user);
  entry.accepted = consent == Consent::Accepted;
  entry.unanswered = consent == Consent::Unanswered;
  return entry;
}

std::optional<char> StatusWord(std::string_view word) {
  for (const WordStatus& known : kWords) {
    if (word == known.word) return known.status;
  }
  return std::nullopt;
}

bool TakeExhibition(std::string& text) {
  if (text.size() < 2 || text.front() != 'X') return false;
  text.erase(0, 1);
  return true;
}

std::optional<std::string> FillHundredths(std::string text, char separator) {
  const size_t at = text.find(separator);
  if (at == std::string::npos) return text;
  const size_t behind = text.size() - at - 1;
  if (behind > 2) return std::nullopt;
  if (behind == 2) return text;
  const bool one_digit = behind == 1 && text.back() >= '0' && text.back() <= '9';
  return text + (one_digit ? "0" : "00");
}

}  // namespace tarvex::marks
