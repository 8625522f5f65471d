#pragma once

// Words of a command line and of what is written, as views, numbers and names.

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "base/str.h"
#include "base/types.h"

using words = std::vector<std::string_view>;

str str_from(std::string_view text);
std::string_view view_of(str text);

// The pieces between commas.
words list_split(std::string_view list);

// "1,234,567", of a number from 0.
std::string number_grouped(i64 number);

// The place of `name` among `names`, -1 when it is none of them.
template <std::size_t count>
i64 name_find(const std::string_view (&names)[count], std::string_view name) {
    for (std::size_t i = 0; i < count; ++i) {
        if (names[i] == name) {
            return static_cast<i64>(i);
        }
    }
    return -1;
}

// False when the text is not that number alone.
template <typename number>
bool number_read(std::string_view text, number& value) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}
