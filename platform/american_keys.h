#pragma once

// The keys as they stand on an American keyboard, which the game's codes are named after: the
// characters that each types, without shift and with it.

#include "platform/input.h"

struct key_characters {
    u32 key;  // of `input_key`
    char plain;
    char shifted;
};

// clang-format off
inline constexpr key_characters digit_keys[] = {
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
};

inline constexpr key_characters punctuation_keys[] = {
    {key_slash, '/', '?'},
    {key_backslash, '\\', '|'},
    {key_semicolon, ';', ':'},
    {key_apostrophe, '\'', '"'},
    {key_comma, ',', '<'},
    {key_period, '.', '>'},
    {key_left_bracket, '[', '{'},
    {key_right_bracket, ']', '}'},
    {key_minus, '-', '_'},
    {key_equals, '=', '+'},
    {key_grave, '`', '~'},
};
// clang-format on

// The key that types a character, with shift or without.
struct typed_key {
    u32 key;  // 0 where no key types it
    bool shift;
};

// For any character of ASCII that is visible.
typed_key typed_key_of(char character);
