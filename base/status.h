#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace tarvex {

// What can go wrong below the rules of the sport: in the file, the disk or the engine.
enum class Fault {
  None,
  NotFound,           // the file, table, field, index or row does not exist
  Exists,             // it exists already
  Corrupt,            // the bytes contradict the format
  Unsupported,        // a format or feature that is not handled: encoded files, other versions
  Io,                 // the operating system refused a read or a write
  NoSpace,            // the disk is full, or the file would pass its greatest size
  ReadOnly,           // the file cannot be opened for writing
  InUse,              // somebody else has the file open
  LockedExclusively,  // somebody else has the file open for himself alone
  Duplicate,          // a unique index refuses the row
  Invalid,            // a value does not fit its field, or a call does not fit the schema
  Range,              // a number or a text is too large for its place
};

// The result of a call that can fail in the engine. `detail` says where, for the log and for the person
// who has to mend the file: "page 212: row 7 starts beyond the page".
struct [[nodiscard]] Status {
  Fault fault = Fault::None;
  std::string detail;

  bool ok() const { return fault == Fault::None; }
};

inline Status Ok() {
  return {};
}

// A value, or the status that says why there is none.
template <class T>
class [[nodiscard]] Expected {
 public:
  Expected(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Expected(Status status) : state_(std::in_place_index<1>, std::move(status)) {}
  Expected(Fault fault, std::string detail) : Expected(Status{fault, std::move(detail)}) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  T& value() & { return std::get<0>(state_); }
  const T& value() const& { return std::get<0>(state_); }
  T&& value() && { return std::get<0>(std::move(state_)); }
  T& operator*() & { return value(); }
  const T& operator*() const& { return value(); }
  T&& operator*() && { return std::get<0>(std::move(state_)); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }

  // Ok() when there is a value.
  Status status() const { return ok() ? Status{} : std::get<1>(state_); }

 private:
  std::variant<T, Status> state_;
};

}  // namespace tarvex

#define TARVEX_JOIN_(a, b) a##b
#define TARVEX_JOIN(a, b) TARVEX_JOIN_(a, b)

// Returns from the calling function when `expression`, a Status, is a failure.
#define TRY(expression)                                                 \
  do {                                                                  \
    if (::tarvex::Status try_status = (expression); !try_status.ok()) { \
      return try_status;                                                \
    }                                                                   \
  } while (false)

// Declares or assigns `target` from an Expected, or returns its failure from the calling function.
#define TRY_ASSIGN(target, expression) TRY_ASSIGN_(TARVEX_JOIN(try_result_, __LINE__), target, expression)
#define TRY_ASSIGN_(result, target, expression) \
  auto result = (expression);                   \
  if (!result.ok()) return result.status();     \
  target = std::move(result).value()
