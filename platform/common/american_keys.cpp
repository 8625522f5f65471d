#include "platform/american_keys.h"

#include <span>

namespace {

typed_key key_find(std::span<const key_characters> keys, char character) {
    for (const key_characters& one : keys) {
        if (character == one.plain || character == one.shifted) {
            return {one.key, character == one.shifted};
        }
    }
    return {0, false};
}

}  // namespace

typed_key typed_key_of(char character) {
    if (character >= 'a' && character <= 'z') {
        return {key_a + static_cast<u32>(character - 'a'), false};
    }
    if (character >= 'A' && character <= 'Z') {
        return {key_a + static_cast<u32>(character - 'A'), true};
    }
    const typed_key digit = key_find(digit_keys, character);
    return digit.key != 0 ? digit : key_find(punctuation_keys, character);
}
