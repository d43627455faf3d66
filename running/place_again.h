#pragma once

#include "database/meet.h"

namespace tarvex::running {

// Brings places and status of an event's current round in step after entries of it were scratched, brought
// back or deleted, within the transaction that did so. Rounds without a result are left alone; points stay
// until the event is scored again.
Status PlaceAgain(jet::Transaction& write, const database::Meet& meet, int event_ptr);

}  // namespace tarvex::running
