#include "render/walk.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

#include "platform/input.h"
#include "platform/maths.h"
#include "render/camera.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "shown/screens.h"

walk_record walk;

namespace {

constexpr f64 infinite = std::numeric_limits<f64>::infinity();
constexpr f64 grid_step = 32;  // world units

// The nearest place costs the least: pixels, and much more than these for one that the arrow led to
// before, and again for one that does not lie in its direction.
constexpr f64 cost_again = 1e6;
constexpr f64 cost_aside = 1e9;
constexpr f64 cost_row = 1e4;  // of a pixel up or down, where the arrows go row by row

constexpr f64 ring_gap = 3;  // pixels
constexpr f64 ring_width = 3;
constexpr colour ring_tint = {1, 0.8f, 0.2f, 1};

struct arrow_key {
    u32 key;
    walk_direction direction;
    walk_direction opposite;
    f64 x, y;  // one pixel that way
};

constexpr arrow_key arrow_keys[] = {
    {key_left, walk_left, walk_right, -1, 0},
    {key_right, walk_right, walk_left, 1, 0},
    {key_down, walk_down, walk_up, 0, -1},
    {key_up, walk_up, walk_down, 0, 1},
};

const arrow_key& arrow_of(walk_direction direction) {
    return arrow_keys[direction - walk_left];
}

const arrow_key* arrow_pressed() {
    for (const arrow_key& arrow : arrow_keys) {
        if (input_key_is_pressed(arrow.key)) {
            return &arrow;
        }
    }
    return nullptr;
}

void pointer_bring(f64 x, f64 y) {
    input_mouse_bring(x, render_target.height - y);
}

// The next point of the grid that way, as far as the window reaches.
void grid_step_take(const arrow_key& arrow) {
    const pointer from = pointer_read();
    const f64 step = grid_step * camera.zoom;
    pointer_bring(std::clamp(from.x + arrow.x * step, 0.0, render_target.width - 1.0),
                  std::clamp(from.y + arrow.y * step, 1.0, render_target.height * 1.0));
}

void arrow_take(const arrow_key& arrow) {
    if (!input_mouse_is_brought()) {
        walk.trail_count = 0;
    }
    if (input_key_is_held(key_shift)) {
        grid_step_take(arrow);
    } else {
        walk.step.direction = arrow.direction;
    }
}

// Whether the last step was one to here, by the arrow against this one.
bool may_lead_back() {
    if (walk.trail_count == 0) {
        return false;
    }
    const walk_step& last = walk.trail[walk.trail_count - 1];
    return last.direction == arrow_of(walk.step.direction).opposite &&
           last.to_x == walk.step.from_x && last.to_y == walk.step.from_y;
}

// Whether that step came from there.
bool leads_back(f64 x, f64 y) {
    return may_lead_back() && walk.trail[walk.trail_count - 1].from_x == x &&
           walk.trail[walk.trail_count - 1].from_y == y;
}

bool was_taken(f64 x, f64 y) {
    return std::any_of(walk.trail, walk.trail + walk.trail_count, [=](const walk_step& step) {
        return step.direction == walk.step.direction && step.from_x == walk.step.from_x &&
               step.from_y == walk.step.from_y && step.to_x == x && step.to_y == y;
    });
}

// Down leads along the rows from left to right, up from right to left.
f64 cost_by_rows(f64 dx, f64 dy) {
    const f64 way = dx - dy * cost_row;
    const f64 ahead = walk.step.direction == walk_down ? way : -way;
    return ahead > 0 ? ahead : cost_aside;
}

f64 cost_by_direction(f64 dx, f64 dy) {
    const arrow_key& arrow = arrow_of(walk.step.direction);
    const f64 along = dx * arrow.x + dy * arrow.y;
    const f64 across = std::abs(dx * arrow.y + dy * arrow.x);
    const f64 distance = math_sqrt(dx * dx + dy * dy);
    return along > 0 && across <= along ? distance : cost_aside + distance;
}

f64 cost_of(f64 x, f64 y) {
    const f64 dx = x - walk.step.from_x;
    const f64 dy = y - walk.step.from_y;
    if (walk.sideways_is_taken) {
        return cost_by_rows(dx, dy);
    }
    if (leads_back(x, y)) {
        return 0;
    }
    const f64 cost = cost_by_direction(dx, dy);
    return cost < walk.cost && was_taken(x, y) ? cost + cost_again : cost;
}

box overlap(const box& a, const box& b) {
    const f64 x = std::max(a.x, b.x);
    const f64 y = std::max(a.y, b.y);
    return {x, y, std::min(a.x + a.width, b.x + b.width) - x,
            std::min(a.y + a.height, b.y + b.height) - y};
}

box window_box() {
    return {0, 0, f64{1} * render_target.width, f64{1} * render_target.height};
}

box board_box() {
    return {0, bottom_panel_height, f64{1} * render_target.width,
            render_target.height - bottom_panel_height - top_panel_height};
}

// What lies ahead and what lies aside count up to their own costs; behind, only the latter does. A
// place to go back to counts wherever it is.
box reach_in_window() {
    const f64 x = walk.step.from_x;
    const f64 y = walk.step.from_y;
    if (walk.step.direction == walk_nowhere) {
        return {x, y, 0, 0};
    }
    if (walk.sideways_is_taken) {
        return board_box();
    }
    const arrow_key& arrow = arrow_of(walk.step.direction);
    const f64 most = f64{1} * render_target.width + render_target.height;
    const f64 ahead = std::min(walk.cost, most);
    const f64 behind = std::clamp(walk.cost - cost_aside, 0.0, most);
    const walk_step back = may_lead_back() ? walk.trail[walk.trail_count - 1] : walk.step;
    const f64 left = std::min(x - (arrow.x > 0 ? behind : ahead), back.from_x);
    const f64 right = std::max(x + (arrow.x < 0 ? behind : ahead), back.from_x);
    const f64 bottom = std::min(y - (arrow.y > 0 ? behind : ahead), back.from_y);
    const f64 top = std::max(y + (arrow.y < 0 ? behind : ahead), back.from_y);
    return overlap({left, bottom, right - left, top - bottom}, board_box());
}

void reach_set() {
    const box part = reach_in_window();
    const point corner = view_world_point(part.x - 1, part.y - 1);
    const point far_corner = view_world_point(part.x + part.width + 1, part.y + part.height + 1);
    walk.reach = {corner.x, corner.y, far_corner.x - corner.x, far_corner.y - corner.y};
}

bool is_in_reach(const box& place) {
    return place.x <= walk.reach.x + walk.reach.width && walk.reach.x <= place.x + place.width &&
           place.y <= walk.reach.y + walk.reach.height && walk.reach.y <= place.y + place.height;
}

void place_weigh(f64 x, f64 y) {
    if (const f64 cost = cost_of(x, y); cost < walk.cost) {
        walk.cost = cost;
        walk.step.to_x = x;
        walk.step.to_y = y;
        reach_set();
    }
}

void note(const box& place) {
    if (box_has(place, walk.step.from_x, walk.step.from_y)) {
        walk.stands_on = place;
    }
    if (walk.step.direction != walk_nowhere) {
        place_weigh(place.x + place.width / 2, place.y + place.height / 2);
    }
}

void note_seen(const box& place, const box& part) {
    const box seen = overlap(place, part);
    if (seen.width >= 1 && seen.height >= 1) {
        note(seen);
    }
}

void trail_add() {
    if (walk.trail_count == walk_trail_size) {
        std::copy(walk.trail + 1, walk.trail + walk_trail_size, walk.trail);
        walk.trail_count -= 1;
    }
    walk.trail[walk.trail_count++] = walk.step;
}

void step_take() {
    if (leads_back(walk.step.to_x, walk.step.to_y)) {
        walk.trail_count -= 1;
    } else {
        trail_add();
    }
    pointer_bring(walk.step.to_x, walk.step.to_y);
}

// Four strips around the place.
void ring_draw(const box& place) {
    const f64 x = place.x - ring_gap - ring_width;
    const f64 y = place.y - ring_gap - ring_width;
    const f64 width = place.width + 2 * (ring_gap + ring_width);
    const f64 height = place.height + 2 * (ring_gap + ring_width);
    box_fill({x, y, width, ring_width}, ring_tint);
    box_fill({x, y + height - ring_width, width, ring_width}, ring_tint);
    box_fill({x, y, ring_width, height}, ring_tint);
    box_fill({x + width - ring_width, y, ring_width, height}, ring_tint);
}

void keys_apply() {
    if (input_key_is_held(key_ctrl) || input_key_is_held(key_alt)) {
        return;
    }
    if (const arrow_key* arrow = arrow_pressed()) {
        arrow_take(*arrow);
    } else if (input_key_is_pressed(key_enter)) {
        walk.trail_count = 0;
        input_key_clicks(key_enter, input_key_is_held(key_shift) ? mouse_right : mouse_left);
    }
}

}  // namespace

void walk_frame_begin() {
    assert(0 <= walk.trail_count && walk.trail_count <= walk_trail_size);
    walk.step = {};
    walk.cost = infinite;
    walk.stands_on = {};
    walk.sideways_is_taken = false;
    walk.noting = false;
    if (screens.text_entry_open || screens.replay_open) {
        return;
    }
    keys_apply();
    const pointer mouse = pointer_read();
    walk.step.from_x = mouse.x;
    walk.step.from_y = mouse.y;
    walk.noting = input_mouse_is_brought() || walk.step.direction != walk_nowhere;
    reach_set();
}

void walk_take_sideways() {
    walk.sideways_is_taken = true;
    if (walk.step.direction == walk_left || walk.step.direction == walk_right) {
        walk.step.direction = walk_nowhere;
    }
}

void walk_note(const box& place) {
    if (walk.noting) {
        note_seen(place, window_box());
    }
}

void walk_note_on_board(const box& place) {
    if (walk.noting && is_in_reach(place)) {
        note_seen(view_window_box(place), board_box());
    }
}

void walk_note_beyond(const box& place) {
    if (walk.noting) {
        note(place);
    }
}

void walk_frame_end() {
    if (!walk.noting) {
        return;
    }
    const bool stands = walk.stands_on.width > 0;
    if (stands && input_mouse_is_brought()) {
        ring_draw(walk.stands_on);
    }
    if (walk.cost < (stands ? cost_aside : infinite)) {
        step_take();
    }
}
