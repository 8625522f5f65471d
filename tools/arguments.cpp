#include "tools/arguments.h"

#include <algorithm>
#include <cstdio>

#include "maps/file_text.h"
#include "maps/reader.h"

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

option_form flag_form(std::string_view name, bool& flag) {
    return {name, false, [&flag](std::string_view) { return flag = true; }};
}

option_form text_form(std::string_view name, std::string_view& text) {
    return {name, true, [&text](std::string_view value) {
                text = value;
                return true;
            }};
}

option_form family_form(i64& family) {
    return {"--family", true, [&family](std::string_view value) {
                family = family_named(str_from(value));
                return family != no_family;
            }};
}

bool options_take(words& arguments, std::initializer_list<option_form> forms) {
    words others;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view word = arguments[i];
        if (word.size() < 2 || word[0] != '-') {
            others.push_back(word);
            continue;
        }
        auto form = std::find_if(forms.begin(), forms.end(),
                                 [&](const option_form& f) { return f.name == word; });
        if (form == forms.end()) {
            complain(word, "no such option");
            return false;
        }
        i += form->has_value ? 1 : 0;
        if (i == arguments.size() || !form->take(form->has_value ? arguments[i] : "")) {
            complain(word, "needs a value that it takes");
            return false;
        }
    }
    arguments = others;
    return true;
}

int complain(std::string_view about, std::string_view what) {
    std::fprintf(stderr, "quorrel_maps: %.*s: %.*s\n", static_cast<int>(about.size()), about.data(),
                 static_cast<int>(what.size()), what.data());
    return not_understood;
}

bool file_read(std::string_view path, str& text) {
    bool read = file_read_all(str_from(path), text);
    if (!read) {
        complain(path, "cannot be read");
    }
    return read;
}

bool map_file_read(std::string_view path, str& text, i64& family) {
    if (!file_read(path, text)) {
        return false;
    }
    if (!text_is_map(text)) {
        complain(path, "is not a map");
        return false;
    }
    family = family == no_family ? map_family_find(text) : family;
    if (family == no_family) {
        complain(path, "does not tell its family: add --family NAME");
    }
    return family != no_family;
}

void map_open(str text, i64 family, bool nimbers) {
    settings = {};
    machine_kind = nimbers ? family : pushdown_machine;
    map_read(text);
    machine_kind = family;
}
