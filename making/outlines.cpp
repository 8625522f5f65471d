#include "making/outlines.h"

#include <algorithm>
#include <cassert>

#include "making/chance.h"

namespace {

constexpr i64 column_limit = 7;
constexpr i64 most_in_column = 3;

// Column by column: how many places stand in it.
struct column_sizes {
    i64 count = 0;
    i64 of[plan_place_limit] = {};
};

void column_put(column_sizes& sizes, i64 size) {
    sizes.of[sizes.count] = size;
    sizes.count += 1;
}

// As many columns of `size` as it takes, after one with what is left over.
void columns_put(column_sizes& sizes, i64 places, i64 size) {
    if (places % size != 0) {
        column_put(sizes, places % size);
    }
    for (i64 i = 0; i < places / size; ++i) {
        column_put(sizes, size);
    }
}

i64 rows_for(i64 places) {
    return places < 9 ? 2 : most_in_column;
}

column_sizes ring_sizes(i64 places) {
    column_sizes sizes;
    column_put(sizes, 1);
    for (i64 left = places - 1; left > 0; left -= 2) {
        column_put(sizes, std::min<i64>(left, 2));
    }
    return sizes;
}

column_sizes grid_sizes(i64 places) {
    column_sizes sizes;
    columns_put(sizes, places, rows_for(places));
    return sizes;
}

column_sizes tree_sizes(i64 places) {
    column_sizes sizes;
    for (i64 left = places; left > 0; left -= sizes.of[sizes.count - 1]) {
        column_put(sizes, std::min({left, sizes.count + 1, most_in_column}));
    }
    return sizes;
}

// Two rooms; the gate between them is a column of its own.
column_sizes gate_sizes(i64 places) {
    const i64 rows = rows_for(places);
    const i64 first = (places - 1) / 2;
    column_sizes sizes;
    columns_put(sizes, first, rows);
    column_put(sizes, 1);
    columns_put(sizes, places - 1 - first, rows);
    return sizes;
}

column_sizes layer_sizes(i64 places) {
    const i64 fewest = (places + most_in_column - 1) / most_in_column;
    const i64 columns = std::min({fewest + 1 + random_index(2), places - 2, column_limit});
    column_sizes sizes;
    for (i64 i = 0; i < columns; ++i) {
        column_put(sizes, 1);
    }
    for (i64 left = places - columns; left > 0;) {
        i64& size = sizes.of[random_index(columns)];
        left -= size < most_in_column ? 1 : 0;
        size += size < most_in_column ? 1 : 0;
    }
    return sizes;
}

column_sizes strip_sizes(i64 places) {
    column_sizes sizes;
    columns_put(sizes, places, 1);
    return sizes;
}

struct outline_form {
    str name;
    i64 most;  // places
    column_sizes (*sizes)(i64 places);
    i64 triangles;  // percent of the meshes between two columns that are cut into two
    i64 uprights;   // percent of neighbours in a column that are joined
};

// clang-format off
constexpr outline_form outlines[outline_count] = {
    {"ring",    13, ring_sizes,  0,   15},
    {"layers",  18, layer_sizes, 60,  40},
    {"tree",    18, tree_sizes,  0,   0},
    {"grid",    18, grid_sizes,  35,  100},
    {"gate",    18, gate_sizes,  50,  90},
    {"counter", 11, strip_sizes, 100, 0},  // in a zigzag, with steps of one and of two
};
// clang-format on

// The ways between two columns, the first place of each given, from the top: on both sides at once,
// or on one side alone, which makes a triangle.
void columns_join(board_plan& plan, i64 left, i64 right, i64 end, i64 triangles) {
    const i64 left_end = right;
    while (true) {
        plan_way_add(plan, left, right);
        const bool goes_left = left + 1 < left_end;
        const bool goes_right = right + 1 < end;
        if (!goes_left && !goes_right) {
            return;
        }
        if (goes_left && goes_right && random_chance(triangles)) {
            const i64 one_side = random_index(2);
            left += one_side;
            right += 1 - one_side;
            continue;
        }
        left += goes_left ? 1 : 0;
        right += goes_right ? 1 : 0;
    }
}

void column_join(board_plan& plan, i64 first, i64 end, i64 uprights) {
    for (i64 place = first; place + 1 < end; ++place) {
        if (random_chance(uprights)) {
            plan_way_add(plan, place, place + 1);
        }
    }
}

void strip_join(board_plan& plan) {
    for (i64 place = 1; place < plan.place_count; ++place) {
        plan_way_add(plan, place - 1, place);
        if (place >= 2) {
            plan_way_add(plan, place - 2, place);
        }
    }
}

constexpr i64 row_heights[most_in_column + 1][most_in_column] = {
    {}, {0}, {104, -104}, {160, 0, -160}};

// Sets the places of all columns across the board.
void places_set(board_plan& plan, const column_sizes& sizes, bool is_zigzag) {
    constexpr i64 width = 832;
    constexpr i64 widest_step = 240;
    const i64 steps = std::max<i64>(1, sizes.count - 1);
    const i64 step = std::min(widest_step, width / steps / 16 * 16);
    for (i64 column = 0; column < sizes.count; ++column) {
        for (i64 row = 0; row < sizes.of[column]; ++row) {
            const i64 height =
                is_zigzag ? row_heights[2][column % 2] : row_heights[sizes.of[column]][row];
            plan.places[plan.place_count] = {column, column * step - steps * step / 2,
                                             plan_middle_y + height, false};
            plan.place_count += 1;
        }
    }
}

// The first place of each column and, behind them, the number of places.
void ways_set(board_plan& plan, const column_sizes& sizes, const outline_form& form) {
    i64 before = 0;
    i64 first = 0;
    for (i64 column = 0; column < sizes.count; ++column) {
        const i64 end = first + sizes.of[column];
        if (column > 0) {
            columns_join(plan, before, first, end, form.triangles);
        }
        const bool ends_ring = &form == &outlines[outline_ring] && column + 1 == sizes.count;
        column_join(plan, first, end, column == 0 || ends_ring ? 100 : form.uprights);
        before = first;
        first = end;
    }
}

}  // namespace

void plan_way_add(board_plan& plan, i64 from, i64 to, i16 bend) {
    assert(plan.way_count < plan_way_limit);
    plan.ways[plan.way_count] = {from, to, bend, 0, 0, {}};
    plan.way_count += 1;
}

str outline_name(i64 outline) {
    return outlines[outline].name;
}

bool outline_takes(i64 outline, i64 places) {
    return places <= outlines[outline].most;
}

void outline_draw(board_plan& plan, i64 outline, i64 places) {
    assert(plan_least_places <= places && outline_takes(outline, places));
    const outline_form& form = outlines[outline];
    const column_sizes sizes = form.sizes(places);
    plan = {outline};
    places_set(plan, sizes, outline == outline_counter);
    if (outline == outline_counter) {
        strip_join(plan);
    } else {
        ways_set(plan, sizes, form);
    }
}
