#include "editor/text_entry.h"

#include <cassert>
#include <span>

#include "editor/dialog.h"
#include "platform/american_keys.h"
#include "platform/input.h"
#include "render/renderer.h"
#include "render/text.h"
#include "shown/screens.h"

text_entry_record text_entry;

namespace {

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

// A double quote would end a rule in its map's file.
char typed_instead(char c) {
    return c == '"' ? '\'' : c == '`' ? '~' : c;
}

void characters_type(std::span<const key_characters> keys, bool shift) {
    for (const key_characters& one : keys) {
        if (input_key_is_pressed(one.key)) {
            type(typed_instead(shift ? one.shifted : one.plain));
        }
    }
}

void keys_type() {
    if (input_key_is_held(key_ctrl) || input_key_is_held(key_alt)) {
        return;
    }
    bool shift = input_key_is_held(key_shift);
    letters_type(shift);
    characters_type(digit_keys, shift);
    if (input_key_is_pressed(key_backspace) && text_entry.typed_text.count > 0) {
        text_entry.typed_text.count -= 1;
    }
    characters_type(punctuation_keys, shift);
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
