#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Adds, changes or deletes the division of a number, in one transaction, under the checks of the division
// screen. The birth dates follow from the ages and letters unless they are given. A changed code is changed
// in the records and time standards too. Deleting asks first, and is refused while events belong to the
// division.
Outcome EditDivision(database::Meet& meet, Edit edit, std::string_view number,
                     std::span<const FieldText> fields, UserInterface& user);

}  // namespace tarvex::setup
