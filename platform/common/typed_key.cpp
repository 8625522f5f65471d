#include "platform/common/typed_key.h"

#include "platform/input.h"

namespace {

struct key_characters {
    u32 key;
    char plain;
    char shifted;
};

// clang-format off
constexpr key_characters keys[] = {
    {key_0 + 0, '0', ')'},
    {key_0 + 1, '1', '!'},
    {key_0 + 2, '2', '@'},
    {key_0 + 3, '3', '#'},
    {key_0 + 4, '4', '$'},
    {key_0 + 5, '5', '%'},
    {key_0 + 6, '6', '^'},
    {key_0 + 7, '7', '&'},
    {key_0 + 8, '8', '*'},
    {key_0 + 9, '9', '('},
    {key_left_bracket, '[', '{'},
    {key_right_bracket, ']', '}'},
    {key_semicolon, ';', ':'},
    {key_comma, ',', '<'},
    {key_period, '.', '>'},
    {key_apostrophe, '\'', '"'},
    {key_slash, '/', '?'},
    {key_backslash, '\\', '|'},
    {key_grave, '`', '~'},
    {key_equals, '=', '+'},
    {key_minus, '-', '_'},
};
// clang-format on

}  // namespace

typed_key typed_key_of(char character) {
    if (character >= 'a' && character <= 'z') {
        return {key_a + static_cast<u32>(character - 'a'), false};
    }
    if (character >= 'A' && character <= 'Z') {
        return {key_a + static_cast<u32>(character - 'A'), true};
    }
    for (const key_characters& one : keys) {
        if (character == one.plain || character == one.shifted) {
            return {one.key, character == one.shifted};
        }
    }
    return {0, false};
}
