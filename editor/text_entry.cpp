#include "editor/text_entry.h"

#include <cassert>

#include "editor/dialog.h"
#include "platform/input.h"
#include "render/renderer.h"
#include "render/text.h"
#include "rules/screens.h"

text_entry_record text_entry;

namespace {

constexpr str shifted_digits = ")!@#$%^&*(";

struct punctuation_key {
    u32 key;
    char plain;
    char shifted;
};

// In the order in which they are tried.
constexpr punctuation_key punctuation_keys[] = {
    {key_slash, '/', '?'},        {key_backslash, '\\', '|'},    {key_semicolon, ';', ':'},
    {key_apostrophe, '\'', '\''}, {key_comma, ',', '<'},         {key_period, '.', '>'},
    {key_left_bracket, '[', '{'}, {key_right_bracket, ']', '}'}, {key_minus, '-', '_'},
    {key_equals, '=', '+'},       {key_grave, '~', '~'},
};

void purposes_clear() {
    text_entry.text_purpose_rule = false;
    text_entry.text_purpose_map_name = false;
}

void text_entry_start(str prompt) {
    purposes_clear();
    screens.text_entry_open = true;
    text_entry.text_prompt = prompt;
    text_entry.typed_text.count = 0;
}

bool confirmed_take(bool& purpose) {
    if (!text_entry.text_confirmed || !purpose) {
        return false;
    }
    text_entry.text_confirmed = false;
    purpose = false;
    return true;
}

void type(char c) {
    dyn_array_push(text_entry.typed_text, c);
}

void letters_type(bool shift) {
    bool caps_lock = (input_key_modifiers() & modifier_caps_lock) != 0;
    char first = caps_lock == shift ? 'a' : 'A';
    for (u32 i = 0; i <= key_z - key_a; ++i) {
        if (input_key_is_pressed(key_a + i)) {
            type(static_cast<char>(first + static_cast<char>(i)));
        }
    }
}

void digits_type(bool shift) {
    for (u32 i = 0; i <= key_9 - key_0; ++i) {
        if (input_key_is_pressed(key_0 + i)) {
            type(shift ? shifted_digits[i] : static_cast<char>('0' + static_cast<char>(i)));
        }
    }
}

void punctuation_type(bool shift) {
    for (const punctuation_key& entry : punctuation_keys) {
        if (input_key_is_pressed(entry.key)) {
            type(shift ? entry.shifted : entry.plain);
        }
    }
}

void keys_type() {
    if (input_key_is_held(key_ctrl) || input_key_is_held(key_alt)) {
        return;
    }
    bool shift = input_key_is_held(key_shift);
    letters_type(shift);
    digits_type(shift);
    if (input_key_is_pressed(key_backspace) && text_entry.typed_text.count > 0) {
        text_entry.typed_text.count -= 1;
    }
    punctuation_type(shift);
}

}  // namespace

void text_entry_open_rule() {
    text_entry_start("Type a rule");
    text_entry.text_purpose_rule = true;
}

void text_entry_open_map_name() {
    text_entry_start("Map name");
    text_entry.text_purpose_map_name = true;
}

void text_entry_close() {
    screens.text_entry_open = false;
    purposes_clear();
    text_entry.text_confirmed = false;
}

bool text_entry_take_rule() {
    return confirmed_take(text_entry.text_purpose_rule);
}

bool text_entry_take_map_name() {
    return confirmed_take(text_entry.text_purpose_map_name);
}

str text_entry_text() {
    return {text_entry.typed_text.data, text_entry.typed_text.count};
}

void text_entry_frame() {
    assert(screens.text_entry_open);
    assert(!text_entry.text_purpose_rule || !text_entry.text_purpose_map_name);
    f64 x = render_target.width / 2.0;
    f64 y = render_target.height / 2.0;
    dialog_box_draw();
    label_draw(text_entry.text_prompt, x, y + 64);
    keys_type();
    label_draw(text_entry_text(), x, y - 64);
    dialog_answer answer = dialog_buttons_draw();
    if (answer.ok || input_key_is_pressed(key_enter)) {
        screens.text_entry_open = false;
        text_entry.text_confirmed = true;
    }
    if (answer.cancel) {
        screens.text_entry_open = false;
        purposes_clear();
    }
}
