#include "bench/worst_files/files.h"

#include <functional>
#include <random>

#include "maps/model.h"

// Every line is as short as the reader allows: a number that is left out is 0.

namespace {

using line_maker = std::function<std::string(std::size_t line)>;

// A head and as many lines as there is room for.
std::string text_of(std::size_t size, std::string text, const line_maker& make) {
    for (std::size_t line = 0;; ++line) {
        std::string next = make(line) + "\n";
        if (text.size() + next.size() > size) {
            return text;
        }
        text += next;
    }
}

std::string text_of(std::size_t size, const std::string& head, const std::string& line) {
    return text_of(size, head, [&](std::size_t) { return line; });
}

std::string number(std::size_t value) {
    return std::to_string(value);
}

std::string repeated(const std::string& part, std::size_t times) {
    std::string text;
    while (times-- > 0) {
        text += part;
    }
    return text;
}

// All cards in every hand, two states and a stone.
const std::string full_hands = "deck 47 6 6 6\nhand 10000\nstone 0\n. 0 0\n. 3 3\n";

std::string with_rule(std::size_t from, std::size_t to, const std::string& rule) {
    return "=> " + number(from) + "," + number(to) + ", , \"" + rule + "\"";
}

// A rule that asks the top card for everything, each time another one.
std::string curious_rule(std::mt19937_64& random) {
    std::string signs = "&|^";
    std::string rule;
    for (std::string list : {"ABCDEF", "abcdef", "123456"}) {
        std::shuffle(list.begin(), list.end(), random);
        rule += rule.empty() ? "~(" : std::string{signs[random() % 3], "~!T"[random() % 3], '('};
        for (std::size_t i = 0; i < 5; ++i) {
            rule += std::string(i > 0 ? "," : "") + list[i];
        }
        rule += ")";
    }
    return rule;
}

std::string states(std::size_t size) {
    return text_of(size, "stone 0\n", ".  ");
}

std::string stones(std::size_t size) {
    return text_of(size, ". 0 0\n. 3 3\n=> 0 1\n", "stone ");
}

std::string loops(std::size_t size) {
    return text_of(size, "stone 0\n. 0 0\n", "=> ");
}

std::string arrows(std::size_t size) {
    return text_of(size, "stone 0\n. 0 0\n. 3 3\n", "=> ,1");
}

// Every state leads to the ones before it.
std::string acyclic(std::size_t size) {
    std::string text = "stone 255\n" + repeated(". 1 1\n", 256);
    return text_of(size, text, [](std::size_t line) {
        std::size_t from = 1 + line % 255;
        return "=> " + number(from) + "," + number(line / 255 % from);
    });
}

// A long way through all states, and back.
std::string ring(std::size_t size) {
    std::size_t count = std::min<std::size_t>(size / 20, 65'000);
    std::string text = "stone 0\n" + repeated(".  \n", count);
    return text_of(size, text, [&](std::size_t line) {
        return "=> " + number(line % count) + "," + number((line + 1) % count);
    });
}

std::string long_numbers(std::size_t size) {
    return text_of(size, "", ". ." + repeated("9", 63) + " " + repeated("9", 64));
}

// Huge numbers are written with all their digits.
std::string huge_numbers(std::size_t size) {
    return text_of(size, "map 0 0 1\n", "* " + repeated("9", 62) + " " + repeated("9", 62));
}

std::string labels(std::size_t size) {
    return text_of(size, "stone 0\n. 0 0\n. 3 3\n", with_rule(0, 1, repeated("A~fT1", 100)));
}

std::string one_label(std::size_t size) {
    return "stone 0\n. 0 0\n. 3 3\n" + with_rule(0, 1, repeated("A", size - 64)) + "\n";
}

std::string rules_alike(std::size_t size) {
    return text_of(size, full_hands, with_rule(0, 1, "~(A,B,C,D,E)&~(a,b,c,d,e)&~(1,2,3,4,5)"));
}

std::string rules_short(std::size_t size) {
    std::mt19937_64 random(1);
    const std::string letters = "ABCDEFabcdef123456*";
    return text_of(size, full_hands, [&](std::size_t) {
        std::string rule = {"T~!"[random() % 3], letters[random() % letters.size()],
                            "&|^"[random() % 3], letters[random() % letters.size()]};
        return with_rule(0, 1, rule);
    });
}

std::string rules_all_different(std::size_t size) {
    std::mt19937_64 random(1);
    return text_of(size, full_hands,
                   [&](std::size_t) { return with_rule(0, 1, curious_rule(random)); });
}

// The same, from as many states as there are rules, with a stone on each.
std::string rules_everywhere(std::size_t size) {
    std::mt19937_64 random(1);
    std::size_t count = std::min<std::size_t>(size / 64, 65'000);
    std::string text = full_hands + repeated(".  \n", count);
    for (std::size_t s = 0; s < count; ++s) {
        text += "stone " + number(s) + "\n";
    }
    return text_of(size, text, [&](std::size_t line) {
        return with_rule(line % count, line * 7 % count, curious_rule(random));
    });
}

std::string rules_long(std::size_t size) {
    std::mt19937_64 random(1);
    return text_of(size, full_hands, [&](std::size_t) {
        std::string rule = curious_rule(random);
        while (rule.size() < 980) {
            rule += std::string("&|^").substr(random() % 3, 1) + curious_rule(random);
        }
        return with_rule(0, 1, rule);
    });
}

std::string hands(std::size_t) {
    return "deck 999999999999 6 6 6\nhand 999999999999\nstone 0\n. 0 0\n. 3 3\n" +
           with_rule(0, 1, "*") + "\n";
}

std::string tapes(std::size_t size) {
    std::string head = "deck 47 6 6 6\ntape 999999999999\nstone 0\n. 0 0\n. 3 3\n";
    return text_of(size, head + with_rule(0, 1, "AR") + "\n", "goal 9 1 0 1 2 3 4 5 6");
}

constexpr worst_file maps[] = {
    {"a state in every line", state_machine, states},
    {"a stone in every line", state_machine, stones},
    {"a loop in every line", state_machine, loops},
    {"an arrow in every line", state_machine, arrows},
    {"dense, without a cycle", state_machine, acyclic},
    {"one cycle", state_machine, ring},
    {"long numbers", state_machine, long_numbers},
    {"huge numbers", state_machine, huge_numbers},
    {"labels of 500 bytes", state_machine, labels},
    {"one label", state_machine, one_label},
    {"full hands, rules alike", pushdown_machine, rules_alike},
    {"full hands, short rules", pushdown_machine, rules_short},
    {"full hands, rules all different", pushdown_machine, rules_all_different},
    {"full hands, every state another rule", pushdown_machine, rules_everywhere},
    {"full hands, rules of 1,000 bytes", pushdown_machine, rules_long},
    {"endless hands", pushdown_machine, hands},
    {"endless tape, a goal in every line", turing_machine, tapes},
};

}  // namespace

std::span<const worst_file> worst_maps() {
    return maps;
}

std::string worst_catalogue(std::size_t size) {
    return text_of(size, "", [](std::size_t line) { return number(line) + " maps/x"; });
}

std::string worst_font(std::size_t size) {
    return text_of(size, "g -1 0 0 0.05 0 0 0.05 0.1\n", [](std::size_t line) {
        return line % 2 == 0 ? "i font.png" : "i resources/font.png";
    });
}
