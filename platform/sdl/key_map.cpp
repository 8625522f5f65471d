#include "platform/sdl/key_map.h"

#include "platform/input.h"

namespace {

struct key_place {
    SDL_Scancode place;
    u32 key;
};

// clang-format off
constexpr key_place key_places[] = {
    {SDL_SCANCODE_0, key_0 + 0},
    {SDL_SCANCODE_1, key_0 + 1},
    {SDL_SCANCODE_2, key_0 + 2},
    {SDL_SCANCODE_3, key_0 + 3},
    {SDL_SCANCODE_4, key_0 + 4},
    {SDL_SCANCODE_5, key_0 + 5},
    {SDL_SCANCODE_6, key_0 + 6},
    {SDL_SCANCODE_7, key_0 + 7},
    {SDL_SCANCODE_8, key_0 + 8},
    {SDL_SCANCODE_9, key_0 + 9},
    {SDL_SCANCODE_SPACE, key_space},
    {SDL_SCANCODE_RETURN, key_enter},
    {SDL_SCANCODE_KP_ENTER, key_enter},
    {SDL_SCANCODE_BACKSPACE, key_backspace},
    {SDL_SCANCODE_ESCAPE, key_escape},
    {SDL_SCANCODE_LCTRL, key_ctrl},
    {SDL_SCANCODE_RCTRL, key_ctrl},
    {SDL_SCANCODE_LSHIFT, key_shift},
    {SDL_SCANCODE_RSHIFT, key_shift},
    {SDL_SCANCODE_LALT, key_alt},
    {SDL_SCANCODE_RALT, key_alt},
    {SDL_SCANCODE_LEFTBRACKET, key_left_bracket},
    {SDL_SCANCODE_RIGHTBRACKET, key_right_bracket},
    {SDL_SCANCODE_SEMICOLON, key_semicolon},
    {SDL_SCANCODE_COMMA, key_comma},
    {SDL_SCANCODE_PERIOD, key_period},
    {SDL_SCANCODE_APOSTROPHE, key_apostrophe},
    {SDL_SCANCODE_SLASH, key_slash},
    {SDL_SCANCODE_BACKSLASH, key_backslash},
    {SDL_SCANCODE_NONUSHASH, key_backslash},
    {SDL_SCANCODE_GRAVE, key_grave},
    {SDL_SCANCODE_EQUALS, key_equals},
    {SDL_SCANCODE_MINUS, key_minus},
    {SDL_SCANCODE_DELETE, key_delete},
    {SDL_SCANCODE_F1, key_f1},
    {SDL_SCANCODE_F3, key_f3},
    {SDL_SCANCODE_F11, key_f11},
};
// clang-format on

constexpr SDL_Keycode ascii_end = 128;

bool is_letter(SDL_Keycode symbol) {
    return symbol >= SDLK_a && symbol <= SDLK_z;
}

// The letter on the key in a Latin layout, for layouts whose letters are others.
SDL_Keycode latin_symbol(const SDL_Keysym& key) {
    bool letter_place = key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z;
    return letter_place && key.sym >= ascii_end ? SDLK_a + (key.scancode - SDL_SCANCODE_A)
                                                : key.sym;
}

}  // namespace

u32 key_of(const SDL_Keysym& key) {
    SDL_Keycode symbol = latin_symbol(key);
    if (is_letter(symbol)) {
        return key_a + static_cast<u32>(symbol - SDLK_a);
    }
    for (const key_place& entry : key_places) {
        if (entry.place == key.scancode) {
            return entry.key;
        }
    }
    return 0;
}
