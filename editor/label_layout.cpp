#include "editor/label_layout.h"

#include <cmath>

#include "game/map_drawing.h"
#include "maps/model.h"
#include "platform/maths.h"
#include "render/matrix.h"
#include "render/view.h"

// A label is moved only where it touches the line of its own arrow or loop: straight away from the
// line, on the side to which the arrow bends, until it is clear of it. Each is looked at once and
// none at another, in time proportional to the arrows; labels of two arrows may still meet.

namespace {

constexpr f64 gap = 4;  // world units between a line and its label

// The way from the line of an arrow, or the state of a loop, to where its label belongs.
struct label_side {
    f64 x;  // of length 1
    f64 y;
    f64 reach;  // world units from the midpoint of the two states to where the line has its edge
};

label_side arrow_side(const transition& arc) {
    point from = state_centre(arc.from);
    point to = state_centre(arc.to);
    f64 dx = to.x - from.x;
    f64 dy = to.y - from.y;
    f64 length = math_sqrt(dx * dx + dy * dy);
    f64 sign = arc.bend < 0 ? -1 : 1;
    f64 reach = sign * arc.bend * bend_offset + arrow_reach;
    return length == 0 ? label_side{0, 1, reach}
                       : label_side{-dy / length * sign, dx / length * sign, reach};
}

label_side loop_side(const transition& arc) {
    f64 angle = arc.bend * radians_per_degree;
    return {-math_sin(angle), math_cos(angle), loop_reach};
}

// How far the label reaches from its centre towards that side.
f64 half_extent(const box& label, const label_side& side) {
    return std::abs(side.x) * label.width / 2 + std::abs(side.y) * label.height / 2;
}

bool touches_line(const transition& arc, const label_side& side, f64 extent) {
    f64 distance = f64{arc.label_dx} * side.x + f64{arc.label_dy} * side.y;
    f64 across = f64{arc.label_dx} * side.y - f64{arc.label_dy} * side.x;
    if (arc.from == arc.to) {
        return std::abs(across) < loop_reach / 2 && std::abs(distance) < side.reach + extent;
    }
    f64 line = side.reach - arrow_reach;
    return std::abs(distance - line) < arrow_reach + extent;
}

void label_lay_out(transition& arc) {
    label_side side = arc.from == arc.to ? loop_side(arc) : arrow_side(arc);
    f64 extent = half_extent(label_box(arc), side);
    if (touches_line(arc, side, extent)) {
        f64 distance = side.reach + gap + extent;
        arc.label_dx = static_cast<f32>(math_floor(side.x * distance + 0.5));
        arc.label_dy = static_cast<f32>(math_floor(side.y * distance + 0.5));
    }
}

}  // namespace

void labels_lay_out() {
    for (transition& arc : game_map.transitions) {
        if (transition_exists(arc) && arc.rule.length > 0) {
            label_lay_out(arc);
        }
    }
}
