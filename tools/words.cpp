#include "tools/words.h"

str str_from(std::string_view text) {
    return {text.data(), static_cast<i64>(text.size())};
}

std::string_view view_of(str text) {
    return {text.data, static_cast<std::size_t>(text.length)};
}

words list_split(std::string_view list) {
    words pieces;
    while (true) {
        std::size_t comma = list.find(',');
        pieces.push_back(list.substr(0, comma));
        if (comma == std::string_view::npos) {
            return pieces;
        }
        list.remove_prefix(comma + 1);
    }
}

std::string number_grouped(i64 number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3;) {
        place -= 3;
        text.insert(place, ",");
    }
    return text;
}
