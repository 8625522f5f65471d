#pragma once

// The maps of the day: for each family and day the number of a map that was judged good beforehand
// (scripts/days), so that nothing needs judging where it is played. From Monday to Sunday they grow
// harder; after a year of weeks they come again.

#include "making/maker.h"

// Days since 1970-01-01.
inline constexpr i64 first_day = 18'262;  // 2020-01-01
inline constexpr i64 last_day = 47'481;   // 2099-12-31

// What a family's map of a day, `first_day` to `last_day`, is made from.
map_wish day_wish(i64 family, i64 day);
