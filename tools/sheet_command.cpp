#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "base/arena.h"
#include "platform/directory.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "tools/best_play.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/map_svg.h"
#include "tools/positions.h"
#include "tools/sheet_page.h"
#include "tools/solve_words.h"
#include "words/card_words.h"
#include "words/rule_words.h"
#include "words/turn_words.h"

namespace {

constexpr work_limits solving = {i64{1} << 30, 20};  // of each exercise

constexpr std::string_view solution_mark = "Solution:";
constexpr const char* usual_task =
    "Who wins when nobody errs, and by which first move? Write down the game.";

std::string text_of(str words) {
    return std::string(view_of(words));
}

// What the remarks of a file say in paragraphs, which an empty remark, another line and a solution
// end.
std::vector<std::string> remarks_of(const std::string& text) {
    std::vector<std::string> paragraphs;
    bool goes_on = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line.erase(0, line.starts_with("| ") ? 2 : 0);  // of a map in a game
        const std::size_t start = line.find_first_not_of("# \r");
        const bool says = line.starts_with('#') && start != std::string::npos;
        const std::string said = says ? line.substr(start) : "";
        if (says && goes_on && !said.starts_with(solution_mark)) {
            paragraphs.back() += " " + said;
        } else if (says) {
            paragraphs.push_back(said);
        }
        goes_on = says;
    }
    return paragraphs;
}

std::string seat_names_joined() {
    std::string names;
    for (const player& seat : players) {
        names += (names.empty() ? "" : ", ") + text_of(seat_name(seat));
    }
    return names;
}

std::vector<std::string> facts_find() {
    const std::string mover = text_of(seat_name(current_seat()));
    std::vector<std::string> facts = {
        players.count == 1 ? mover + " plays alone."
                           : seat_names_joined() + " play; " + mover + " is to move.",
        text_of(aim_sentence()) + "."};
    if (settings.win_mode != win_immediate) {
        facts.back() += " Light states have a double ring.";
    }
    for (i64 i = 0; i < players.count && machine_kind == turing_machine; ++i) {
        facts.push_back(text_of(seat_name(players[i])) +
                        " wants: " + text_of(goal_sentence(players[i].goal)) + ".");
    }
    return facts;
}

sheet_row row_of(const std::string& words, const dyn_array<card>& cards, i64 marked = -1) {
    return {words, {cards.begin(), cards.end()}, marked};
}

std::vector<sheet_row> rows_find() {
    if (machine_kind == turing_machine) {
        return {row_of("The tape, the head on the thick card:", tape, tape_head)};
    }
    std::vector<sheet_row> rows;
    if (machine_kind == pushdown_machine) {
        if (discard_pile.cards.count > 0) {
            rows.push_back({"On top of the pile:", {card_array_top(discard_pile.cards)}});
        }
        for (const player& seat : players) {
            rows.push_back(row_of(text_of(seat_name(seat)) + " holds:", seat.hand));
        }
    }
    return rows;
}

// What a transition's text does in a pushdown or turing machine; empty for a sentence on the board.
std::string rule_words(str rule) {
    if (machine_kind == turing_machine) {
        const std::string done = text_of(action_words(rule));
        return done.empty() ? "nothing is written, the head stays" : done;
    }
    return rule_stop_find(rule).reason.length > 0 ? ""
                                                  : text_of(rule_sentence(rule_parts_read(rule)));
}

// The arrows that a human can use, those of one rule together.
std::vector<std::pair<std::string, std::string>> arrows_find() {
    std::vector<std::pair<std::string, std::string>> arrows;
    std::map<std::string, std::size_t> places;
    std::set<std::pair<u16, u16>> seen;
    for (const transition& arc : game_map.transitions) {
        const i64 mark = arenas[arena_frame].offset;
        if (machine_kind != state_machine && transition_exists(arc) &&
            seen.insert({arc.from, arc.to}).second) {
            const std::string words = rule_words(arc.rule);
            const std::string which = std::to_string(arc.from) + " to " + std::to_string(arc.to);
            auto [place, is_new] = places.insert({words, arrows.size()});
            if (is_new) {
                arrows.push_back({which, words});
            } else {
                arrows[place->second].first += ", " + which;
            }
        }
        arena_rewind(arena_frame, mark);
    }
    std::erase_if(arrows, [](const auto& arrow) { return arrow.second.empty(); });
    return arrows;
}

std::string verdict_sentence(const verdict& found) {
    if (found.winner == nobody) {
        return players.count == 1 ? "There is no way to win" : "When nobody errs, nobody wins";
    }
    const i64 winner = (turn.current_player + found.winner) % players.count;
    const std::string who = text_of(seat_name(players[winner]));
    return (players.count == 1 ? who + " can win in " : "When nobody errs, " + who + " wins in ") +
           count_words(found.turns, "turn");
}

// Plays the game to its end.
std::string solve_sentence() {
    solved_position solved;
    work_begin(solving);
    if (position_solve(solved) != work_well) {
        return "There is too much to look at: nobody knows who wins.";
    }
    if (solved.turns.empty()) {
        return "There is no move that can be looked at: nobody wins.";
    }
    const std::string found = verdict_sentence(solved.best) + ": " + reason_words(solved) + ". ";
    return found + best_play_words(solved) + ".";
}

sheet_exercise exercise_make(const named_map& map) {
    sheet_exercise made;
    made.name = map.name.substr(0, map.name.find('.'));
    std::ranges::replace(made.name, '_', ' ');
    made.picture = map_svg(true, {}, -1, svg_on_page);
    made.facts = facts_find();
    made.rows = rows_find();
    made.arrows = arrows_find();
    for (const std::string& remark : remarks_of(map.text)) {
        (remark.starts_with(solution_mark) ? made.solutions : made.tasks).push_back(remark);
    }
    if (made.tasks.empty()) {
        made.tasks = {usual_task};
    }
    made.solutions.push_back(solve_sentence());
    return made;
}

}  // namespace

int sheet_command(const request& asked) {
    request page = asked;
    if (page.out.empty()) {
        page.out = view_of(path_absolute("sheet.html"));
    }
    std::vector<map_place> places;
    if (!board_frame_begin() || !map_places_find(asked, places)) {
        return failed;
    }
    std::vector<given_position> given(places.size());  // the loaded map's rules point into one
    std::vector<sheet_exercise> exercises;
    for (std::size_t i = 0; i < places.size(); ++i) {
        arena_rewind(arena_frame, 0);
        if (!position_take(asked, places[i], given[i])) {
            return failed;
        }
        exercises.push_back(exercise_make(given[i].map));
    }
    return output_write(page, sheet_page(exercises));
}
