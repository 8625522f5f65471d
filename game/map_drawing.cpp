#include "game/map_drawing.h"

#include <algorithm>
#include <cassert>

#include "render/pictures.h"
#include "render/sprites.h"
#include "render/text.h"

namespace {

constexpr f64 stone_size = 48;

constexpr colour stone_tint = {0.2f, 0.4f, 1, 1};
constexpr colour accepting_tint = {0.4f, 0.7f, 1, 1};
constexpr colour plain_tint = {0.08f, 0.08f, 0.15f, 1};

// The loop picture stands on the state's centre, its foot a little above it.
constexpr f64 loop_width = 100;
constexpr f64 loop_height = 90;
constexpr f64 loop_foot = -1.5;

void square_draw(texture_slot picture, const map_placement& place, point centre, f64 side,
                 const colour& tint) {
    f64 size = side * place.factor;
    sprite_draw(picture, box_around(centre.x, centre.y, size, size), tint, place.space);
}

void loop_draw(const map_placement& place, point centre, i16 degrees, const colour& tint) {
    f64 f = place.factor;
    sprite_draw_rotated(texture_self_arrow, centre.x, centre.y, loop_width * f, loop_height * f,
                        degrees, loop_width / 2 * f, loop_foot * f, tint, place.space);
}

}  // namespace

point placed_centre(const map_placement& place, i64 state) {
    point centre = state_centre(state);
    return {place.x + centre.x * place.factor, place.y + centre.y * place.factor};
}

void transition_draw(const map_placement& place, const transition& arc, const colour& tint) {
    assert(transition_exists(arc));
    point from = placed_centre(place, arc.from);
    point to = placed_centre(place, arc.to);
    f64 f = place.factor;
    if (arc.from == arc.to) {
        loop_draw(place, from, arc.bend, tint);
    } else if (from.x != to.x || from.y != to.y) {
        arrow_draw(from.x, from.y, to.x, to.y, arrow_width * f, arc.bend * bend_offset * f, tint,
                   place.space);
    }
    text_draw(arc.rule, (from.x + to.x) / 2 + f64{arc.label_dx} * f,
              (from.y + to.y) / 2 + f64{arc.label_dy} * f, text_normal * f, colour_white,
              place.space, text_icons);
}

bool transition_carries_words(const transition& arc) {
    return std::find(arc.rule.begin(), arc.rule.end(), '%') != arc.rule.end();
}

box label_box(const transition& arc) {
    assert(transition_exists(arc));
    point from = state_centre(arc.from);
    point to = state_centre(arc.to);
    return text_box(arc.rule, (from.x + to.x) / 2 + f64{arc.label_dx},
                    (from.y + to.y) / 2 + f64{arc.label_dy}, text_normal, text_icons);
}

void disc_draw(const map_placement& place, point centre, f64 side, const colour& tint) {
    square_draw(texture_circle, place, centre, side, tint);
}

void state_draw(const map_placement& place, i64 state) {
    assert(place.factor > 0);
    const colour& tint = game_map.states[state].accepting ? accepting_tint : plain_tint;
    disc_draw(place, placed_centre(place, state), state_size, tint);
}

void stone_draw(const map_placement& place, point centre) {
    square_draw(texture_player, place, centre, stone_size, stone_tint);
}
