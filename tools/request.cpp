#include "tools/request.h"

#include <getopt.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "making/maker.h"
#include "making/plan.h"
#include "platform/directory.h"
#include "rules/cards.h"
#include "tools/card_text.h"
#include "tools/map_play.h"

namespace {

struct option_form {
    char code;
    const char* name;
    const char* values;  // that it takes, in words; null when it takes none
    bool (*take)(request& asked, std::string_view value);
};

bool seats_read(std::string_view list, std::vector<i64>& seats) {
    seats.clear();
    for (std::string_view name : list_split(list)) {
        seats.push_back(name_find(seat_names, name));
    }
    return std::count(seats.begin(), seats.end(), -1) == 0 && seats.size() <= player_limit;
}

bool top_read(std::string_view text) {
    return text.size() == card_field_count && cards_read(text, discard_pile.cards);
}

bool number_in(std::string_view text, i64 least, i64 most, i64& value) {
    return number_read(text, value) && least <= value && value <= most;
}

// clang-format off
constexpr option_form option_forms[] = {
    {'f', "family", "state, pushdown or turing", [](request& asked, std::string_view value) {
         return (asked.family = family_named(str_from(value))) != no_family; }},
    {'d', "directory", "a directory", [](request& asked, std::string_view value) {
         return !(asked.directory = value).empty(); }},
    {'o', "output", "a file", [](request& asked, std::string_view value) {
         asked.out = view_of(path_absolute(str_from(value)));
         return !value.empty(); }},
    {'a', "all", nullptr, [](request& asked, std::string_view) { return asked.all = true; }},
    {'c', "cyclic", nullptr, [](request& asked, std::string_view) { return asked.cyclic = true; }},
    {'n', "numbers", nullptr, [](request& asked, std::string_view) { return asked.numbers = true; }},
    {'m', "seats", "a number from 1 to 6", [](request& asked, std::string_view value) {
         return number_in(value, 1, player_limit, asked.most_seats); }},
    {'s', "seats", "one to six of easy, normal, hard and human, with commas between them",
     [](request& asked, std::string_view value) { return seats_read(value, asked.seats); }},
    {'g', "games", "a number from 1", [](request& asked, std::string_view value) {
         return number_read(value, asked.games) && asked.games >= 1; }},
    {'r', "seed", "a number from 0", [](request& asked, std::string_view value) {
         return number_read(value, asked.seed); }},
    {'S', "save-game", "a file", [](request& asked, std::string_view value) {
         asked.game_out = view_of(path_absolute(str_from(value)));
         return !value.empty(); }},
    {'P', "svg", "a number of acts from 0", [](request& asked, std::string_view value) {
         return number_read(value, asked.position) && asked.position >= 0; }},
    {'k', "seats", "a number from 1 to 6", [](request& asked, std::string_view value) {
         return number_in(value, 1, player_limit, asked.seat_count); }},
    {'D', "deals", "a number from 1", [](request& asked, std::string_view value) {
         return number_read(value, asked.deals) && asked.deals >= 1; }},
    {'K', "seats", "a number from 2 to 6", [](request& asked, std::string_view value) {
         return number_in(value, 2, player_limit, asked.seat_count); }},
    {'N', "states", "a number from 4 to 18", [](request& asked, std::string_view value) {
         return number_in(value, plan_least_places, plan_place_limit, asked.states); }},
    {'O', "stones", "a number from 1 to 6", [](request& asked, std::string_view value) {
         return number_in(value, 1, made_stone_limit, asked.stones); }},
    {'l', "level", "a number from 1 to 5", [](request& asked, std::string_view value) {
         return number_in(value, 1, map_level_limit, asked.level); }},
    {'C', "count", "a number from 1 to 10000", [](request& asked, std::string_view value) {
         return number_in(value, 1, 10'000, asked.count); }},
    {'M', "memory", "megabytes, 1 to 1000000", [](request& asked, std::string_view value) {
         return number_in(value, 1, 1'000'000, asked.megabytes); }},
    {'L', "time", "seconds, 1 to 1000000", [](request& asked, std::string_view value) {
         return number_in(value, 1, 1'000'000, asked.seconds); }},
    {'v', "move", nullptr, [](request& asked, std::string_view) { return asked.move = true; }},
    {'w', "svg", "a file", [](request& asked, std::string_view value) {
         asked.out = view_of(path_absolute(str_from(value)));
         return asked.move = !value.empty(); }},
    {'p', "card", "a card such as Aa1", [](request& asked, std::string_view value) {
         return asked.has_card = card_read(value, asked.played); }},
    {'t', "top", "a card such as Aa1", [](request&, std::string_view value) {
         return top_read(value); }},
    {'T', "tape", "cards such as Aa1,Bb2", [](request& asked, std::string_view value) {
         return asked.has_tape = cards_read(value, tape); }},
    {'h', "help", nullptr, nullptr},
};
// clang-format on

const option_form* option_find(int code) {
    auto form = std::find_if(std::begin(option_forms), std::end(option_forms),
                             [&](const option_form& f) { return f.code == code; });
    return form == std::end(option_forms) ? nullptr : form;
}

// The options of the codes as `getopt_long` takes them.
std::vector<option> options_of(const std::string& codes) {
    std::vector<option> options;
    for (char code : codes) {
        const option_form* form = option_find(code);
        int takes = form->values != nullptr ? required_argument : no_argument;
        options.push_back({form->name, takes, nullptr, code});
    }
    options.push_back({});
    return options;
}

int values_tell(const option_form* form) {
    if (form == nullptr || form->values == nullptr) {
        return wrong_use;
    }
    return complain("--" + std::string(form->name), "takes " + std::string(form->values),
                    wrong_use);
}

}  // namespace

int request_read(const char* codes, int argument_count, char** arguments, request& asked) {
    const std::vector<option> options = options_of(std::string(codes) + "h");
    const char* shorts = std::strchr(codes, 'o') != nullptr ? "ho:" : "h";
    char name[] = "quorrel_maps";
    arguments[0] = name;  // as which getopt_long speaks
    optind = 0;           // from the start, also when called again
    for (int code;
         (code = getopt_long(argument_count, arguments, shorts, options.data(), nullptr)) != -1;) {
        if (code == 'h') {
            return request_for_help;
        }
        if (code == '?') {
            return values_tell(option_find(optopt));
        }
        const option_form* form = option_find(code);
        if (!form->take(asked, optarg != nullptr ? optarg : "")) {
            return values_tell(form);
        }
    }
    asked.names.assign(arguments + optind, arguments + argument_count);
    return request_is_read;
}

int complain(std::string_view about, std::string_view what, exit_status status) {
    std::fprintf(stderr, "quorrel_maps: %.*s: %.*s\n", static_cast<int>(about.size()), about.data(),
                 static_cast<int>(what.size()), what.data());
    return status;
}
