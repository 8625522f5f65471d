#include "making/days.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "maps/model.h"

namespace {

constexpr i64 week_days = 7;
constexpr i64 week_count = 53;
constexpr i64 first_monday = 4;                               // 1970-01-05
constexpr i64 day_levels[week_days] = {1, 2, 2, 3, 3, 4, 5};  // from Monday on

struct week_row {
    i64 family;
    i64 week;
    u16 numbers[week_days];
};

constexpr week_row week_rows[] = {
#include "making/days.rows"
};

static_assert(std::size(week_rows) == machine_kind_count * week_count);

}  // namespace

map_wish day_wish(i64 family, i64 day) {
    assert(first_day <= day && day <= last_day);
    const i64 week = (day - first_monday) / week_days % week_count;
    const i64 week_day = (day - first_monday) % week_days;
    const week_row* row =
        std::find_if(std::begin(week_rows), std::end(week_rows),
                     [=](const week_row& one) { return one.family == family && one.week == week; });
    assert(row != std::end(week_rows));
    return {.family = family, .level = day_levels[week_day], .number = row->numbers[week_day]};
}
