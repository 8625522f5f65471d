#include "making/labels.h"

#include "base/arithmetic.h"

#include <cstdlib>

// All in whole pixels, so that every compiler places a text alike. A rectangle is told by its
// centre and half its sides.

namespace {

constexpr i64 letter_width = 13;
constexpr i64 picture_width = 32;
constexpr i64 half_height = 16;

constexpr i64 bend_step = 8;
constexpr i64 place_radius = 35;  // each with a little air
constexpr i64 way_reach = 14;
constexpr i64 ring_distance = 52;  // from a place to the middle of its loop
constexpr i64 ring_radius = 38;
constexpr i64 text_air = 4;  // between two texts

// The free part of the board.
constexpr i64 side_x = 508;
constexpr i64 bottom_y = -236;
constexpr i64 top_y = 252;

struct spot {
    i64 x;
    i64 y;
};

struct text_rectangle {
    spot centre;
    i64 half_width;
};

// The middle line of a way.
struct way_line {
    spot from;
    i64 dx;
    i64 dy;
    i64 length;
};

bool is_picture(char c) {
    return ('A' <= c && c <= 'F') || ('a' <= c && c <= 'f') || c == 'T' || c == '~';
}

i64 half_width_of(str text) {
    i64 width = 0;
    for (char c : text) {
        width += is_picture(c) ? picture_width : letter_width;
    }
    return (width + 1) / 2;
}

bool is_loop(const plan_way& way) {
    return way.from == way.to;
}

way_line line_of(const board_plan& plan, const plan_way& way) {
    const plan_place& from = plan.places[way.from];
    const plan_place& to = plan.places[way.to];
    way_line line = {{from.x, from.y}, to.x - from.x, to.y - from.y, 0};
    line.length = root_floor(line.dx * line.dx + line.dy * line.dy);
    line.from.x -= line.dy * way.bend * bend_step / line.length;
    line.from.y += line.dx * way.bend * bend_step / line.length;
    return line;
}

spot ring_of(const board_plan& plan, const plan_way& loop) {
    const plan_place& place = plan.places[loop.from];
    return {place.x + (loop.bend == 270 ? ring_distance : -ring_distance), place.y};
}

bool is_on_board(const text_rectangle& text) {
    const spot& c = text.centre;
    return std::abs(c.x) + text.half_width <= side_x && bottom_y <= c.y - half_height &&
           c.y + half_height <= top_y;
}

bool touches_disc(const text_rectangle& text, spot middle, i64 radius) {
    const i64 dx = std::max<i64>(0, std::abs(text.centre.x - middle.x) - text.half_width);
    const i64 dy = std::max<i64>(0, std::abs(text.centre.y - middle.y) - half_height);
    return dx * dx + dy * dy < radius * radius;
}

// Whether the range about `centre` meets the one from `from` as far as `way`.
bool ranges_meet(i64 centre, i64 half, i64 from, i64 way) {
    return centre - half < std::max(from, from + way) && std::min(from, from + way) < centre + half;
}

// By a line that separates the two: upright, level or along the way.
bool touches_line(const text_rectangle& text, const way_line& line) {
    const spot& c = text.centre;
    if (!ranges_meet(c.x, text.half_width + way_reach, line.from.x, line.dx) ||
        !ranges_meet(c.y, half_height + way_reach, line.from.y, line.dy)) {
        return false;
    }
    const i64 across = line.dx * (c.y - line.from.y) - line.dy * (c.x - line.from.x);
    return std::abs(across) < text.half_width * std::abs(line.dy) +
                                  half_height * std::abs(line.dx) + way_reach * line.length;
}

bool touches_way(const board_plan& plan, const text_rectangle& text, const plan_way& way) {
    return is_loop(way) ? touches_disc(text, ring_of(plan, way), ring_radius)
                        : touches_line(text, line_of(plan, way));
}

// Where the text of a placed way stands.
text_rectangle text_of(const board_plan& plan, const plan_way& way) {
    const plan_place& from = plan.places[way.from];
    const plan_place& to = plan.places[way.to];
    return {{(from.x + to.x) / 2 + way.label_dx, (from.y + to.y) / 2 + way.label_dy},
            half_width_of(way.text)};
}

bool touches_text(const text_rectangle& text, const text_rectangle& other) {
    return std::abs(text.centre.x - other.centre.x) <
               text.half_width + other.half_width + text_air &&
           std::abs(text.centre.y - other.centre.y) < 2 * half_height + text_air;
}

// Whether the text of way `w` has room, when those of the ways before it are placed.
bool has_room(const board_plan& plan, i64 w, const text_rectangle& text) {
    if (!is_on_board(text)) {
        return false;
    }
    for (i64 i = 0; i < plan.place_count; ++i) {
        if (touches_disc(text, {plan.places[i].x, plan.places[i].y}, place_radius)) {
            return false;
        }
    }
    for (i64 other = 0; other < plan.way_count; ++other) {
        const plan_way& way = plan.ways[other];
        if (touches_way(plan, text, way) || (other < w && touches_text(text, text_of(plan, way)))) {
            return false;
        }
    }
    return true;
}

// Where along a way a text may stand, in twelfths, and how much farther from it than it must.
constexpr i64 along_tried[] = {6, 5, 7, 4, 8, 3, 9};
constexpr i64 farther_tried[] = {0, 10, 24};

spot spot_beside(const way_line& line, i64 half_width, i64 along, i64 distance) {
    const i64 extent = std::abs(line.dy) * half_width + std::abs(line.dx) * half_height;
    const i64 reach = (extent + line.length - 1) / line.length + way_reach + std::abs(distance);
    const i64 side = distance < 0 ? -reach : reach;
    return {line.from.x + line.dx * along / 12 - line.dy * side / line.length,
            line.from.y + line.dy * along / 12 + line.dx * side / line.length};
}

bool spot_take(board_plan& plan, i64 w, spot centre) {
    plan_way& way = plan.ways[w];
    if (!has_room(plan, w, {centre, half_width_of(way.text)})) {
        return false;
    }
    const plan_place& from = plan.places[way.from];
    const plan_place& to = plan.places[way.to];
    way.label_dx = centre.x - (from.x + to.x) / 2;
    way.label_dy = centre.y - (from.y + to.y) / 2;
    return true;
}

bool way_label_place(board_plan& plan, i64 w) {
    const way_line line = line_of(plan, plan.ways[w]);
    const i64 half_width = half_width_of(plan.ways[w].text);
    for (i64 farther : farther_tried) {
        for (i64 along : along_tried) {
            if (spot_take(plan, w, spot_beside(line, half_width, along, farther + 1)) ||
                spot_take(plan, w, spot_beside(line, half_width, along, -farther - 1))) {
                return true;
            }
        }
    }
    return false;
}

bool loop_label_place(board_plan& plan, i64 w) {
    constexpr i64 away = ring_radius + half_height + 1;
    const spot ring = ring_of(plan, plan.ways[w]);
    return spot_take(plan, w, {ring.x, ring.y + away}) ||
           spot_take(plan, w, {ring.x, ring.y - away});
}

}  // namespace

i64 labels_place(board_plan& plan) {
    for (i64 w = 0; w < plan.way_count; ++w) {
        const bool is_placed =
            plan.ways[w].text.length == 0 ||
            (is_loop(plan.ways[w]) ? loop_label_place(plan, w) : way_label_place(plan, w));
        if (!is_placed) {
            return w;
        }
    }
    return no_way;
}
