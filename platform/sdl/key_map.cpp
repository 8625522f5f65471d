#include "platform/sdl/key_map.h"

#include "platform/american_keys.h"
#include "platform/input.h"

namespace {

struct key_place {
    SDL_Scancode place;
    u32 key;
};

// clang-format off
// Keys that mean the same in every layout. The right alt key chooses characters in most of them.
constexpr key_place named_keys[] = {
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
    {SDL_SCANCODE_DELETE, key_delete},
    {SDL_SCANCODE_F1, key_f1},
    {SDL_SCANCODE_F2, key_f2},
    {SDL_SCANCODE_F3, key_f3},
    {SDL_SCANCODE_F4, key_f4},
    {SDL_SCANCODE_F9, key_f9},
    {SDL_SCANCODE_F11, key_f11},
    {SDL_SCANCODE_LEFT, key_left},
    {SDL_SCANCODE_RIGHT, key_right},
    {SDL_SCANCODE_UP, key_up},
    {SDL_SCANCODE_DOWN, key_down},
    {SDL_SCANCODE_HOME, key_home},
    {SDL_SCANCODE_END, key_end},
};

// Where the American keyboard has them.
constexpr key_place character_keys[] = {
    {SDL_SCANCODE_0, key_0},
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
};
// clang-format on

template <std::size_t size>
u32 key_at(const key_place (&table)[size], SDL_Scancode place) {
    for (const key_place& entry : table) {
        if (entry.place == place) {
            return entry.key;
        }
    }
    return 0;
}

u32 character_key_at(SDL_Scancode place) {
    if (place >= SDL_SCANCODE_A && place <= SDL_SCANCODE_Z) {
        return key_a + static_cast<u32>(place - SDL_SCANCODE_A);
    }
    if (place >= SDL_SCANCODE_1 && place <= SDL_SCANCODE_9) {
        return key_1 + static_cast<u32>(place - SDL_SCANCODE_1);
    }
    return key_at(character_keys, place);
}

bool layout_is_latin() {
    for (int place = SDL_SCANCODE_A; place <= SDL_SCANCODE_Z; ++place) {
        SDL_Keycode symbol = SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(place));
        if (symbol >= SDLK_a && symbol <= SDLK_z) {
            return true;
        }
    }
    return false;
}

bool is_visible_ascii(SDL_Keycode symbol) {
    return symbol > ' ' && symbol < SDLK_DELETE;
}

// The layout has no character for it, but makes one together with the next key.
bool is_dead(const SDL_Keysym& key) {
    return (key.sym & SDLK_SCANCODE_MASK) != 0;
}

}  // namespace

key_meaning key_meaning_of(const SDL_Keysym& key, const char* text) {
    bool latin = layout_is_latin();
    if (latin && is_visible_ascii(text[0]) && text[1] == '\0') {
        return key_meaning_typed(text[0]);
    }
    if (u32 named = key_at(named_keys, key.scancode)) {
        return {named, false, false};
    }
    if (latin && text[0] == '\0') {
        bool visible = is_visible_ascii(key.sym);
        u32 code = visible ? typed_key_of(static_cast<char>(key.sym)).key : 0;
        if (visible || is_dead(key)) {
            return {code, false, false};
        }
    }
    return {character_key_at(key.scancode), false, false};
}
