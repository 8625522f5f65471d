#include "platform/common/keyboard.h"

#include <algorithm>
#include <vector>

#include "platform/american_keys.h"
#include "platform/common/input_state.h"
#include "platform/input.h"

namespace {

struct pressed_key {
    u32 place;
    u32 key;  // of `input_key`; 0 for none
};

std::vector<pressed_key> keys_down;

bool is_down(u32 key) {
    return std::any_of(keys_down.begin(), keys_down.end(),
                       [key](const pressed_key& one) { return one.key == key; });
}

bool is_letter(u32 key) {
    return key >= key_a && key <= key_z;
}

// Presses a key with the shift key in the state that its character needs. What a letter's case does
// not owe to the shift key it owes to the caps lock.
void press_feed(const key_meaning& meaning) {
    bool shift = is_down(key_shift);
    if (meaning.types && is_letter(meaning.key)) {
        input_feed_caps_lock(meaning.shift != shift);
    }
    bool differs = meaning.types && !is_letter(meaning.key) && meaning.shift != shift;
    if (differs) {
        input_feed_key(key_shift, meaning.shift);
    }
    input_feed_key(meaning.key, true);
    if (differs) {
        input_feed_key(key_shift, shift);
    }
}

// Whether a key has a code and no place that is down means it.
bool is_free(u32 key) {
    return key != 0 && !is_down(key);
}

}  // namespace

key_meaning key_meaning_typed(char character) {
    typed_key typed = typed_key_of(character);
    return {typed.key, true, typed.shift};
}

void keyboard_press(u32 place, const key_meaning& meaning) {
    keyboard_release(place);
    if (is_free(meaning.key)) {
        press_feed(meaning);
    }
    keys_down.push_back({place, meaning.key});
}

void keyboard_release(u32 place) {
    auto found = std::find_if(keys_down.begin(), keys_down.end(),
                              [place](const pressed_key& one) { return one.place == place; });
    if (found == keys_down.end()) {
        return;
    }
    u32 key = found->key;
    keys_down.erase(found);
    if (is_free(key)) {
        input_feed_key(key, false);
    }
}

void keyboard_type(const key_meaning& meaning) {
    if (is_free(meaning.key)) {
        press_feed(meaning);
        input_feed_key(meaning.key, false);
    }
}

void keyboard_release_all() {
    keys_down.clear();
    input_feed_release_all();
}
