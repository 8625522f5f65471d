#include "game/board_show.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "game/card_drawing.h"
#include "game/map_drawing.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "rules/cards.h"
#include "rules/goal.h"
#include "rules/rule.h"
#include "rules/turns.h"
#include "shown/flight.h"
#include "shown/selection.h"
#include "words/card_words.h"
#include "words/refusal_words.h"
#include "words/turn_words.h"

namespace {

constexpr i64 mark_limit = 1000;  // of each sort; more could not be told apart
constexpr i64 rule_limit = 4000;  // rules that are evaluated in one frame
constexpr f64 movable_side = 80;  // world units
constexpr f64 small_card = 24;    // pixels
constexpr f64 small_step = 28;
constexpr i64 small_card_limit = 9;  // in a row
constexpr f64 label_drop = 20;       // from an arrow's text down to what fits it
constexpr f64 label_reach = 32;      // world units from a label's middle to its edge, at most
constexpr f64 arrow_catch = 16;      // world units around an arrow in which the pointer is on it
constexpr colour movable_tint = {0, 1, 0, 0.35f};
constexpr colour open_tint = {0, 1, 0, 1};
constexpr colour last_tint = {1, 0.6f, 0, 1};
constexpr colour plate_tint = {0, 0, 0, 0.8f};
constexpr colour head_tint = {1, 1, 1, 0.9f};

point pixel_over(point p) {
    box pixel = view_window_box({p.x, p.y, 0, 0});
    return {pixel.x, pixel.y};
}

bool is_seen(point centre) {
    point pixel = pixel_over(centre);
    return box_has({0, 0, f64(render_target.width), f64(render_target.height)}, pixel.x, pixel.y);
}

// The cards of the hand that is shown, by value; all where none is.
card_set cards_at_hand() {
    if (machine_kind != pushdown_machine || !turn.turn_revealed) {
        return all_cards;
    }
    card_set held;
    for (card c : current_seat().hand) {
        card_set_add(held, c);
    }
    return held;
}

// Which of the cards may be played along the transition.
card_set cards_fitting(const transition& arc, const card_set& held) {
    return machine_kind == pushdown_machine ? rule_matching_cards(arc.rule) & held : held;
}

void movable_states_draw() {
    stone_table table = stones_locate();
    card_set held = cards_at_hand();
    u8* marked = per_state<u8>(0);
    i64 marks = 0;
    i64 rules = 0;
    open_moves_visit(table, [&](const transition& arc, u16) {
        point centre = state_centre(arc.from);
        if (marked[arc.from] || marks == mark_limit || rules == rule_limit || !is_seen(centre)) {
            return;
        }
        rules += 1;
        if (card_set_count(cards_fitting(arc, held)) > 0) {
            marked[arc.from] = 1;
            marks += 1;
            disc_draw(on_board, centre, movable_side, movable_tint);
        }
    });
}

// A row of small cards around a pixel, the one at `head` on a plate; the row begins at `first`.
void small_cards_draw(const card* cards, i64 count, i64 head, point middle) {
    f64 x = middle.x - static_cast<f64>(count) * small_step / 2;
    f64 y = middle.y - small_card;
    box_fill({x - 4, y - 4, static_cast<f64>(count) * small_step + 4, small_card + 8}, plate_tint);
    for (i64 i = 0; i < count; ++i, x += small_step) {
        if (i == head) {
            box_fill({x - 3, y - 3, small_card + 6, small_card + 6}, head_tint);
        }
        card_draw(cards[i], x, y, small_card);
    }
}

void fitting_cards_draw(const transition& arc, point middle) {
    card_set fitting = cards_fitting(arc, cards_at_hand());
    card shown[small_card_limit];
    i64 count = 0;
    for (card c : current_seat().hand) {
        if (card_set_has(fitting, c) && count < small_card_limit) {
            shown[count] = c;
            count += 1;
        }
    }
    if (count > 0 && turn.turn_revealed) {
        small_cards_draw(shown, count, -1, middle);
    }
}

// The tape around its head as the action makes it; the tape stays.
void tape_after_draw(str action, point middle) {
    if (tape_head >= tape.count) {
        return;
    }
    i64 head = tape_head;
    card before = tape[head];
    tape_apply(action);
    i64 count = std::min(tape.count, small_card_limit);
    i64 first = std::clamp(head - count / 2, i64{0}, tape.count - count);
    small_cards_draw(tape.data + first, count, tape_head - first, middle);
    tape[head] = before;
    tape_head = head;
}

// The pixel below the arrow's text.
point below_label(const transition& arc) {
    box label = label_box(arc);
    point middle = {label.x + label.width / 2, label.y + label.height / 2};
    return {pixel_over(middle).x, pixel_over(middle).y - label_drop};
}

void open_arrow_draw(const transition& arc) {
    if (machine_kind == pushdown_machine &&
        card_set_count(cards_fitting(arc, cards_at_hand())) == 0) {
        return;
    }
    transition_draw(on_board, arc, open_tint);
    point middle = below_label(arc);
    if (machine_kind == pushdown_machine) {
        fitting_cards_draw(arc, middle);
    } else if (machine_kind == turing_machine) {
        tape_after_draw(arc.rule, middle);
    }
}

void open_arrows_draw() {
    u16 source = selection_source();
    if (source == no_index || stone_find(source) == no_index) {
        return;
    }
    i64 left = small_card_limit;
    for (const transition& arc : game_map.transitions) {
        if (arc.from == source && transition_exists(arc) && left > 0) {
            left -= 1;
            open_arrow_draw(arc);
        }
    }
}

void last_move_draw() {
    if (last_done.what.kind == act_move) {
        transition_draw(on_board, game_map.transitions[last_done.what.arc], last_tint);
    }
}

// A number on a plate, around a point of the board.
void plate_draw(i64 value, point centre, f64 size) {
    str text = number_text(value);
    f64 width = static_cast<f64>(text.length) * size / 16 + 8;
    point pixel = pixel_over(centre);
    box_fill(box_around(pixel.x, pixel.y, width, size / 8), plate_tint);
    text_draw(text, pixel.x, pixel.y, size, colour_white, screen_space, text_centred);
}

// All of a tape that is wider than the window, or as much around the head as there is room for.
void whole_tape_draw() {
    f64 width = render_target.width;
    if (machine_kind != turing_machine ||
        static_cast<f64>(tape.count) * card_step - card_margin <= width) {
        return;
    }
    constexpr i64 row_limit = 6;
    auto columns = std::max(static_cast<i64>(width / small_step) - 1, i64{1});
    i64 shown = std::min(tape.count, columns * row_limit);
    i64 first = std::clamp(tape_head - shown / 2, i64{0}, tape.count - shown);
    f64 y = render_target.height - top_panel_height;
    for (i64 at = first; at < first + shown; at += columns, y -= small_step + 8) {
        i64 count = std::min(columns, first + shown - at);
        small_cards_draw(tape.data + at, count, tape_head - at, {width / 2, y - 8});
    }
}

// How far the point is from the straight between two others.
f64 distance_to(point p, point a, point b) {
    f64 dx = b.x - a.x;
    f64 dy = b.y - a.y;
    f64 length_squared = dx * dx + dy * dy;
    f64 t = length_squared > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length_squared : 0;
    t = std::clamp(t, 0.0, 1.0);
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

bool is_on_arrow(const transition& arc, point p) {
    point a = state_centre(arc.from);
    point b = state_centre(arc.to);
    f64 length = std::hypot(b.x - a.x, b.y - a.y);
    if (length == 0) {
        return false;
    }
    f64 offset = arc.bend * bend_offset / length;
    point moved = {p.x + (b.y - a.y) * offset, p.y - (b.x - a.x) * offset};
    return distance_to(moved, a, b) < arrow_catch;
}

// Most labels are out of reach by their height alone, which saves measuring them.
bool is_on_label(const transition& arc, point p) {
    f64 y = (state_centre(arc.from).y + state_centre(arc.to).y) / 2 + f64{arc.label_dy};
    return std::abs(y - p.y) < label_reach && box_has(label_box(arc), p.x, p.y);
}

const transition* arrow_at(point p) {
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && !transition_carries_words(arc) &&
            (is_on_label(arc, p) || is_on_arrow(arc, p))) {
            return &arc;
        }
    }
    return nullptr;
}

str rule_words(const pointer& mouse) {
    const transition* arc = mouse.on_board ? arrow_at(mouse.world) : nullptr;
    if (arc == nullptr) {
        return {};
    }
    str words = machine_kind == pushdown_machine ? rule_wish(arc->rule)
                : machine_kind == turing_machine ? action_words(arc->rule)
                                                 : str();
    return text_join({number_text(arc->from), " to ", number_text(arc->to),
                      words.length > 0 ? str(": ") : str(), words});
}

str hands_words(const pointer&) {
    if (machine_kind != pushdown_machine) {
        return {};
    }
    text_builder text = text_builder_make(arena_frame);
    str before = "Cards: ";
    for (const player& seat : players) {
        text_builder_put_str(text, before);
        text_builder_put_str(text, seat_name(seat));
        text_builder_put(text, ' ');
        text_builder_put_int(text, seat.hand.count);
        before = ", ";
    }
    return text_builder_text(text);
}

str goal_words(const pointer&) {
    if (machine_kind != turing_machine || !turn.turn_revealed) {
        return {};
    }
    const player& seat = current_seat();
    return text_join({seat_name(seat), "'s goal: ", goal_sentence(seat.goal), "; it counts ",
                      number_text(goal_count(seat.goal))});
}

str standing_words(const pointer&) {
    return {standing.text, standing.length};
}

constexpr str (*words_rows[])(const pointer&) = {standing_words, hands_words, goal_words,
                                                 rule_words};

}  // namespace

void state_plates_draw() {
    stone_table table = stones_locate();
    i64 marks = 0;
    for (i64 i = 0; i < named_state_count() && marks < mark_limit; ++i) {
        point centre = state_centre(i);
        if (!is_seen(centre)) {
            continue;
        }
        marks += 1;
        plate_draw(i, {centre.x - 40, centre.y + 40}, text_small);
        if (i64 stones_here = table.count[i]; stones_here > 1) {
            f64 rise = stone_rise * static_cast<f64>(stones_here);
            plate_draw(stones_here, {centre.x, centre.y + 24 + rise}, text_normal);
        }
        if (turn.show_nimbers && i < game_map.nimber_count) {
            plate_draw(static_cast<i8>(game_map.nimbers[i]), {centre.x, centre.y - 32},
                       text_normal);
        }
    }
}

void board_show_draw() {
    last_move_draw();
    movable_states_draw();
    open_arrows_draw();
    state_plates_draw();
    whole_tape_draw();
}

void move_card_draw(const game_act& move) {
    const dyn_array<card>& hand = current_seat().hand;
    if (0 <= move.card && move.card < hand.count) {
        point middle = below_label(game_map.transitions[move.arc]);
        small_cards_draw(&hand[move.card], 1, 0, middle);
    }
}

str board_show_words(const pointer& mouse) {
    text_builder text = text_builder_make(arena_frame);
    for (auto row : words_rows) {
        str line = row(mouse);
        text_builder_put_str(text, line);
        text_builder_put_str(text, line.length > 0 ? str("\n") : str());
    }
    return text_builder_text(text);
}
