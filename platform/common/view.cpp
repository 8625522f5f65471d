#include "platform/common/view.h"

#include <algorithm>
#include <cmath>

view_record view;

namespace {

constexpr i32 width_min = 1024;
constexpr i32 height_min = 832;
constexpr i32 fullscreen_height_max = 1080;

view_size at_least_one(view_size size) {
    return {std::max(size.width, 1), std::max(size.height, 1)};
}

view_size scaled(view_size size, f64 factor) {
    return at_least_one({static_cast<i32>(std::lround(size.width * factor)),
                         static_cast<i32>(std::lround(size.height * factor))});
}

f64 ratio(i32 part, i32 whole) {
    return f64{1} * part / whole;
}

}  // namespace

bool view_set(view_size logical, view_size window) {
    logical = at_least_one(logical);
    window = at_least_one(window);
    if (view.logical == logical && view.window == window) {
        return false;
    }
    view_size shown = view_fitted(logical, window);
    view = {logical,
            window,
            {(window.width - shown.width) / 2, (window.height - shown.height) / 2, shown.width,
             shown.height}};
    return true;
}

void view_point(f64& x, f64& y) {
    i32 top = view.window.height - view.shown.y - view.shown.height;
    x = (x - view.shown.x) * ratio(view.logical.width, view.shown.width);
    y = (y - top) * ratio(view.logical.height, view.shown.height);
}

view_size view_fitted(view_size proportions, view_size room) {
    return scaled(proportions, std::min(ratio(room.width, proportions.width),
                                        ratio(room.height, proportions.height)));
}

view_size view_fullscreen(view_size display) {
    display = at_least_one(display);
    i32 height = std::clamp(display.height, height_min, fullscreen_height_max);
    return scaled(display,
                  std::max(ratio(height, display.height), ratio(width_min, display.width)));
}

view_size view_filled(view_size room) {
    room = at_least_one(room);
    f64 factor = std::max(ratio(width_min, room.width), ratio(height_min, room.height));
    return {static_cast<i32>(std::lround(std::min(room.width * factor, 3.0 * width_min))),
            static_cast<i32>(std::lround(std::min(room.height * factor, 3.0 * height_min)))};
}
