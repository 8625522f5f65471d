#include "platform/sdl/cursor.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr i32 cursor_size = 25;  // pixels
constexpr i32 middle = cursor_size / 2;
constexpr f64 ring_radius = 8;
constexpr u32 clear = 0x00000000;  // alpha, red, green, blue
constexpr u32 red = 0xffe03030;
constexpr u32 white = 0xffffffff;

SDL_Cursor* crossed_circle;

// How far a pixel lies from the sign's lines, from its ring or, within that, from its stroke.
f64 distance_to_lines(i32 x, i32 y) {
    const f64 from_middle = std::hypot(x - middle, y - middle);
    const f64 from_ring = std::abs(from_middle - ring_radius);
    return from_middle > ring_radius ? from_ring
                                     : std::min(from_ring, std::abs(x - y) / std::sqrt(2.0));
}

SDL_Cursor* crossed_circle_make() {
    SDL_Surface* picture =
        SDL_CreateRGBSurfaceWithFormat(0, cursor_size, cursor_size, 32, SDL_PIXELFORMAT_ARGB8888);
    if (picture == nullptr) {
        return nullptr;
    }
    for (i32 y = 0; y < cursor_size; ++y) {
        u32* row = reinterpret_cast<u32*>(static_cast<u8*>(picture->pixels) + y * picture->pitch);
        for (i32 x = 0; x < cursor_size; ++x) {
            const f64 distance = distance_to_lines(x, y);
            row[x] = distance < 1.5 ? red : distance < 2.8 ? white : clear;
        }
    }
    SDL_Cursor* made = SDL_CreateColorCursor(picture, middle, middle);
    SDL_FreeSurface(picture);
    return made;
}

}  // namespace

void cursor_refuse(bool refuses) {
    if (refuses && crossed_circle == nullptr) {
        crossed_circle = crossed_circle_make();
    }
    SDL_SetCursor(refuses ? crossed_circle : SDL_GetDefaultCursor());
}
