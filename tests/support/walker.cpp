#include "tests/support/walker.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

#include "render/camera.h"
#include "render/renderer.h"
#include "render/view.h"
#include "render/walk.h"
#include "tests/support/screen.h"

namespace {

constexpr i64 patience = 200;  // presses

// Around a place that is lit up.
using light = std::tuple<f64, f64, f64, f64>;

bool is_light(const gpu_draw& draw) {
    const auto& tint = draw.colour;
    return draw.frame_buffer != 0 && tint[0] + tint[1] + tint[2] == 3 &&
           (tint[3] == 0.5f || tint[3] == 0.3f);
}

// What the last frame lit up; the editor's cursor is as large as a state, its light larger.
std::set<light> lights() {
    std::set<light> found;
    for (const gpu_draw& draw : headless_draws()) {
        const point low = place_of(draw, 0, 0);
        const point high = place_of(draw, 1, 1);
        if (is_light(draw) && std::abs(high.x - low.x - 64 * camera.zoom) > 0.1) {
            found.insert(
                {std::round(low.x), std::round(low.y), std::round(high.x), std::round(high.y)});
        }
    }
    return found;
}

std::set<light> lights_at(f64 x, f64 y) {
    point_at(x, y);
    frame();
    return lights();
}

// Where something is drawn.
std::set<std::pair<f64, f64>> drawn_places() {
    std::set<std::pair<f64, f64>> places;
    for (const gpu_draw& draw : headless_draws()) {
        const point centre = place_of(draw, 0.5, 0.5);
        if (draw.frame_buffer != 0) {
            places.insert({std::round(centre.x), std::round(centre.y)});
        }
    }
    return places;
}

// All that is lit up under a mouse that points at something.
std::set<light> lights_everywhere() {
    std::set<light> all;
    for (const auto& [x, y] : drawn_places()) {
        all.merge(lights_at(x, y));
    }
    return all;
}

u32 arrow_towards(const light& wanted) {
    const pointer mouse = pointer_read();
    const auto& [left, low, right, high] = wanted;
    const f64 dx = (left + right) / 2 + render_target.width / 2.0 - mouse.x;
    const f64 dy = (low + high) / 2 + render_target.height / 2.0 - mouse.y;
    if (walk.sideways_is_taken) {  // row by row
        return std::abs(dy) < 1 ? (dx > 0 ? key_down : key_up) : dy < 0 ? key_down : key_up;
    }
    return std::abs(dx) > std::abs(dy) ? (dx < 0 ? key_left : key_right)
                                       : (dy < 0 ? key_down : key_up);
}

bool walk_to(const light& wanted) {
    for (i64 left = patience; left > 0 && !lights().contains(wanted); --left) {
        headless_key_press(arrow_towards(wanted));
        frame();  // takes the step
        frame();  // shows it
    }
    return lights().contains(wanted);
}

}  // namespace

std::string places_not_reached() {
    std::string missed;
    const std::set<light> all = lights_everywhere();
    lights_at(-render_target.width, 0);
    for (const light& wanted : all) {
        if (!walk_to(wanted)) {
            const auto& [left, low, right, high] = wanted;
            missed += std::to_string(left) + " " + std::to_string(low) + "\n";
        }
    }
    return missed;
}
