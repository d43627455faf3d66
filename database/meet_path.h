#pragma once

#include <optional>
#include <string_view>

#include "base/message.h"

namespace tarvex::database {

// Why no meet database may be opened or created under this absolute path: a floppy drive ("A:", "b:"), or an
// extension other than "mdb" in any case. Looks at the text only.
std::optional<Notice> CheckMeetPath(std::string_view path);

}  // namespace tarvex::database
