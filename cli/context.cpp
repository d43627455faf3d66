#include "cli/context.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <ostream>

#include "base/decimal.h"
#include "base/platform.h"
#include "base/text.h"
#include "cli/messages.h"
#include "database/meet_path.h"
#include "database/open.h"
#include "setup/event_checks.h"
#include "setup/event_status.h"

namespace tarvex::cli {

int Context::Refuse(const Notice& notice) {
  user_.Tell(notice);
  return kRefused;
}

int Context::Fail(const Status& status) {
  user_.Tell(EngineFailure(status.detail));
  return kFailed;
}

int Context::Finish(const Outcome& outcome) {
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return Refuse(refusal->notice);
  if (const auto* status = std::get_if<Status>(&outcome)) return Fail(*status);
  if (std::holds_alternative<Unanswered>(outcome)) {
    user_.Tell(QuestionUnanswered());
    return kUnanswered;
  }
  return kDone;
}

Json Context::MessagesJson() const {
  Json messages = Json::array();
  for (const Notice& notice : user_.messages())
    messages.push_back({{"number", notice.number}, {"text", notice.text}});
  return messages;
}

int Context::Print(Json document, const std::string& text, int code) {
  if (json_) {
    if (document.is_null()) document = Json::object();
    document["messages"] = MessagesJson();
    out_ << document.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
  } else {
    out_ << text;
  }
  out_.flush();
  return code;
}

std::unique_ptr<database::Meet> Context::OpenMeet(const std::string& path, int& code) {
  const std::string absolute = AbsoluteMeetPath(path);
  if (const auto refusal = database::CheckMeetPath(absolute)) {
    code = Refuse(*refusal);
    return nullptr;
  }
  database::Opened opened = database::OpenMeet(platform::Files(), absolute, session_, user_);
  if (const auto* status = std::get_if<Status>(&opened.outcome)) {
    user_.Tell(database::OpeningFailure(absolute, *status, false));
    code = kFailed;
    return nullptr;
  }
  code = Finish(opened.outcome);
  // A file that is no meet database fails as a file.
  if (code == kRefused) code = kFailed;
  return code == kDone ? std::move(opened.meet) : nullptr;
}

std::string AbsoluteMeetPath(const std::string& typed) {
  const bool has_drive =
      typed.size() >= 2 && typed[1] == ':' && Upper(typed)[0] >= 'A' && Upper(typed)[0] <= 'Z';
  return has_drive ? typed : platform::AbsolutePath(typed);
}

Expected<std::string> ReadFile(const std::string& path) {
  TRY_ASSIGN(const auto file, platform::Files().Open(path, OpenMode::Read));
  TRY_ASSIGN(const uint64_t size, file->Size());
  std::string text(size, '\0');
  TRY(file->Read(0, std::span(reinterpret_cast<uint8_t*>(text.data()), text.size())));
  return text;
}

Expected<std::variant<std::vector<setup::StoredEvent>, Notice>> EventsNamed(
    const database::Meet& meet, const std::vector<std::string>& names, bool all) {
  using Result = std::variant<std::vector<setup::StoredEvent>, Notice>;
  TRY_ASSIGN(const auto events, setup::LoadEvents(meet));
  if (all) return Result(events);
  std::vector<setup::StoredEvent> chosen;
  for (const std::string& name : names) {
    const auto number = setup::ReadEventNumber(name);
    if (const auto* notice = std::get_if<Notice>(&number)) return Result(*notice);
    const auto& wanted = std::get<setup::EventNumber>(number);
    bool found = false;
    for (const setup::StoredEvent& event : events) {
      if (event.row.event_no != wanted.event_no || !SameText(event.row.event_ltr, wanted.event_ltr)) continue;
      found = true;
      const bool is_repeat = std::any_of(chosen.begin(), chosen.end(), [&](const setup::StoredEvent& other) {
        return other.row.event_ptr == event.row.event_ptr;
      });
      if (!is_repeat) chosen.push_back(event);
    }
    if (!found) return Result(EventNotFound(name));
  }
  return Result(std::move(chosen));
}

std::variant<setup::Round, Notice> RoundNamed(const setup::Event& event, const std::string& letter) {
  if (letter.empty()) {
    const int current = setup::CurrentRound(event.event_stat, event.event_rounds);
    if (const auto round = setup::RoundByNumber(current, event.event_rounds)) return *round;
    return RoundNotFound(letter);
  }
  const std::string upper = Upper(letter);
  const auto round = upper.size() == 1 ? setup::RoundFromLetter(upper[0]) : std::nullopt;
  if (!round || setup::RoundNumber(*round, event.event_rounds) == 0) return RoundNotFound(letter);
  return *round;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return lower;
}

Json Number(float value) {
  const std::string text = ShortText(value);
  const double number = std::strtod(text.c_str(), nullptr);
  if (text.find('.') == std::string::npos && number > -1e15 && number < 1e15)
    return static_cast<int64_t>(number);
  return number;
}

}  // namespace tarvex::cli
