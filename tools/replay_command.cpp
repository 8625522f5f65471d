#include <algorithm>

#include "game/game_reader.h"
#include "game/game_words.h"
#include "game/record.h"
#include "platform/directory.h"
#include "rules/cards.h"
#include "rules/rule.h"
#include "rules/seats.h"
#include "rules/turns.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/map_files.h"
#include "tools/map_svg.h"
#include "tools/position_words.h"
#include "tools/terminal.h"
#include "tools/words.h"
#include "words/card_words.h"
#include "words/rule_words.h"
#include "words/turn_words.h"

namespace {

std::string turn_line() {
    return turn.winner != no_winner ? seat_title(turn.winner) + " has won"
                                    : seat_title(turn.current_player) + " is to move";
}

// What the move costs or does beside moving a stone.
str move_effect(const game_act& act) {
    const transition& arc = game_map.transitions[act.arc];
    if (machine_kind == turing_machine) {
        str done = action_words(arc.rule);
        return done.length > 0 ? text_join({": ", done}) : str();
    }
    if (machine_kind == state_machine) {
        return {};
    }
    return text_join({" with ", card_name(current_seat().hand[act.card]), ": ",
                      rule_sentence(rule_parts_read(arc.rule))});
}

std::string act_words(const game_act& act) {
    if (act.kind == act_draw) {
        return "draws " + std::string(view_of(card_name(card_array_top(deck.cards))));
    }
    if (act.kind != act_move) {
        return act.kind == act_end ? "ends the turn" : "passes";
    }
    const transition& arc = game_map.transitions[act.arc];
    return "moves " + std::to_string(arc.from) + ">" + std::to_string(arc.to) +
           std::string(view_of(move_effect(act)));
}

void position_put() {
    for (const std::string& line : position_lines()) {
        put(line + "\n");
    }
}

// The act is done, too.
void act_put(i64 index) {
    const recorded_act& act = record_acts[index];
    if (!act.in_flight) {
        record_land();
    }
    put(std::to_string(index + 1) + " ", ink_faint);
    put(seat_title(turn.current_player) + " " + act_words(act.what) +
        (act.in_flight ? " while the stone flies" : "") + "\n");
    record_show_act(index);
}

int game_put() {
    record_show(0);
    for (i64 i = 0; i < players.count; ++i) {
        const player& seat = players[i];
        put(seat_title(i) + ": " +
            std::string(view_of(seat_kinds[seat.is_computer ? 1 + seat.strength : 0])) + "\n");
    }
    position_put();
    for (i64 i = 0; i < record.act_count; ++i) {
        act_put(i);
    }
    record_show(record.act_count);
    position_put();
    put(turn_line() + "\n", turn.winner != no_winner ? ink_good : ink_plain);
    return all_well;
}

// The board after that act, with who is to move and what there is beside it.
int position_draw(const request& asked) {
    if (!board_frame_begin()) {
        return failed;
    }
    record_show(std::min(asked.position, record.act_count));
    std::vector<std::string> lines = position_lines();
    lines.push_back(turn_line());
    return output_write(asked, map_svg(asked.numbers, lines));
}

}  // namespace

int replay_command(const request& asked) {
    std::string text;
    if (!text_file_read(path_absolute(str_from(asked.names[0])), asked.names[0], text)) {
        return failed;
    }
    text_fault fault;
    int status = failed;
    if (game_read(str_from(text), trust_text, fault)) {
        status = asked.position < 0 ? game_put() : position_draw(asked);
    }
    return fault.reason.length == 0
               ? status
               : complain(asked.names[0], "line " + std::to_string(fault.line) + ": " +
                                              std::string(view_of(fault.reason)));
}
