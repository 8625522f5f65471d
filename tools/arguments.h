#pragma once

// What the commands of quorrel_maps share: reading their arguments, the files they name, answering
// wrong use.

#include <charconv>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/str.h"
#include "maps/family.h"
#include "maps/model.h"

enum exit_status { all_well = 0, doubtful = 1, not_understood = 2 };

using words = std::vector<std::string_view>;

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

template <typename number>
bool number_read(std::string_view text, number& value) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

str str_from(std::string_view text);
std::string_view view_of(str text);

// The pieces between commas.
words list_split(std::string_view list);

// An option, what it does with its value (an empty one for a flag), and whether it has one. False
// from `take` refuses the value.
struct option_form {
    std::string_view name;
    bool has_value;
    std::function<bool(std::string_view)> take;
};

option_form flag_form(std::string_view name, bool& flag);
option_form text_form(std::string_view name, std::string_view& text);
option_form family_form(i64& family);  // "--family"

// Takes the options out of the arguments. False, once it is named on standard error, when one is
// none of the forms or lacks its value.
bool options_take(words& arguments, std::initializer_list<option_form> forms);

// Names the wrong use in one line on standard error.
int complain(std::string_view about, std::string_view what);

// Reads the file; false, once it is named on standard error, when that cannot be done.
bool file_read(std::string_view path, str& text);

// Reads the map's text and, where `family` is `no_family`, takes the family that the text tells;
// false, once it is named, when it cannot be read, is no map or does not tell.
bool map_file_read(std::string_view path, str& text, i64& family);

// Makes the text the loaded map. Without `nimbers` a state machine's are not sought.
void map_open(str text, i64 family, bool nimbers = true);
