#include "base/message.h"

namespace tarvex {

Notice Message(int number, std::string_view english) {
  return {number, std::string(english)};
}

Notice Joined(const Notice& first, std::string_view more) {
  return {first.number, first.text + std::string(more)};
}

}  // namespace tarvex
