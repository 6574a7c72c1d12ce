#pragma once

// What the demo hotel has planned, by the acts of the kept plans: reservations of guests who have come, of others who
// were cancelled, and of those to come with the rooms they hold; repairs; receivables. Two months of them, each entered,
// changed and closed at its moment by whoever does that, and tidied into the history every Monday.
//
// Who has come is read from the register of stays, so the guests must be in the house already. The rooms of those to
// come are free by the calendar of the house, but one: it is promised twice, as happens.

#include "app/demo/demo_guests.h"

namespace hotel {

// As BringInGuests, which it follows; throws DemoFailure likewise.
void KeepPlans(const DemoOpening& opening);

} // namespace hotel
