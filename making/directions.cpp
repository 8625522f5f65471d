#include "making/directions.h"

#include "making/chance.h"

namespace {

constexpr i64 thinned = 22;  // percent of the ways
constexpr i64 doubled = 20;
constexpr i64 tries = 60;
constexpr i16 doubled_bend = 2;

i64 ways_into(const board_plan& plan, i64 place) {
    i64 count = 0;
    for (i64 w = 0; w < plan.way_count; ++w) {
        count += plan.ways[w].to == place ? 1 : 0;
    }
    return count;
}

// As bits, what the places in `reached` lead to, or with `backward` what leads to them.
u64 places_beside(const board_plan& plan, u64 reached, bool backward) {
    for (i64 w = 0; w < plan.way_count; ++w) {
        const i64 from = backward ? plan.ways[w].to : plan.ways[w].from;
        const i64 to = backward ? plan.ways[w].from : plan.ways[w].to;
        reached |= (reached >> from & 1) << to;
    }
    return reached;
}

bool reaches_all(const board_plan& plan, bool backward) {
    u64 reached = 1;
    for (u64 before = 0; before != reached;) {
        before = reached;
        reached = places_beside(plan, reached, backward);
    }
    return reached == (u64{1} << plan.place_count) - 1;
}

void way_double(board_plan& plan, i64 w) {
    plan.ways[w].bend = doubled_bend;
    plan_way_add(plan, plan.ways[w].to, plan.ways[w].from, doubled_bend);
}

void ways_turn_by_chance(board_plan& plan, i64 doubled_percent) {
    const i64 count = plan.way_count;
    for (i64 w = 0; w < count; ++w) {
        plan_way& way = plan.ways[w];
        if (way.from == way.to) {
            continue;
        }
        if (random_chance(50)) {
            way = {way.to, way.from, 0, 0, 0, {}};
        }
        if (random_chance(doubled_percent)) {
            way_double(plan, w);
        }
    }
}

}  // namespace

void ways_thin(board_plan& plan) {
    for (i64 w = plan.way_count - 1; w >= 0; --w) {
        if (random_chance(thinned) && ways_into(plan, plan.ways[w].to) > 1) {
            plan.way_count -= 1;
            plan.ways[w] = plan.ways[plan.way_count];
        }
    }
}

void ways_turn(board_plan& plan) {
    const board_plan outline = plan;
    for (i64 i = 0; i < tries; ++i) {
        plan = outline;
        ways_turn_by_chance(plan, doubled + i / 2);
        if (reaches_all(plan, false) && reaches_all(plan, true)) {
            return;
        }
    }
    plan = outline;
    ways_turn_by_chance(plan, 100);
}

void places_mirror(board_plan& plan) {
    const bool across = random_chance(50);
    const bool upright = random_chance(50);
    constexpr i64 twice_middle = 2 * plan_middle_y;
    for (i64 i = 0; i < plan.place_count; ++i) {
        plan_place& place = plan.places[i];
        place.x = across ? -place.x : place.x;
        place.y = upright ? twice_middle - place.y : place.y;
    }
}
