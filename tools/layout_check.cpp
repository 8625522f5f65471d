#include "tools/layout_check.h"

#include <algorithm>

#include "base/colour.h"
#include "game/map_drawing.h"
#include "maps/model.h"
#include "render/renderer.h"
#include "render/view.h"
#include "tools/board_frame.h"
#include "tools/map_check.h"
#include "tools/shapes.h"

namespace {

// The loop picture shows a ring about this point of it, in parts of its width and height; radii
// are window pixels.
constexpr point loop_ring_centre = {0.5, 0.6};
constexpr f64 loop_ring_radius = 35;
constexpr f64 loop_hole_radius = 30;

// Half a pixel lies between a corner and the place a matrix of 32-bit reals puts it.
constexpr f64 tolerance = 0.5;

// What is seen of a transition, in window pixels.
struct drawn_arc {
    const transition& arc;
    std::string name;
    std::vector<shape> lines;  // shaft and head of an arrow, or the ring of a loop; not a caption's
    shape label;               // empty without one
    point ring_centre;         // of a loop
};

struct drawn_board {
    shape view;  // the free part of the window
    std::vector<shape> states;
    std::vector<drawn_arc> arcs;
};

const shape unit_quad = rectangle_shape(0, 0, 1, 1);
const shape arrow_tip = {{0, 0}, {1, 0}, {0.5, 1}};

drawn_arc arc_draw(i64 index) {
    const transition& arc = game_map.transitions[index];
    std::vector<gpu_draw> draws =
        draws_of([&] { transition_draw(on_board, arc, transition_tint); });
    drawn_arc drawn = {arc, transition_name(index), {}, {}, {}};
    std::size_t used = 0;
    if (arc.from == arc.to) {
        drawn.ring_centre = placed(draws[0], loop_ring_centre);
        drawn.lines.push_back(disc_shape(drawn.ring_centre, loop_ring_radius));
        used = 1;
    } else if (draws.size() >= 2) {
        drawn.lines.push_back(placed(draws[0], unit_quad));
        drawn.lines.push_back(placed(draws[1], arrow_tip));
        used = 2;
    }
    if (is_caption(index)) {
        drawn.lines.clear();
    }
    std::vector<shape> glyphs;
    for (; used < draws.size(); ++used) {
        glyphs.push_back(placed(draws[used], unit_quad));
    }
    if (!glyphs.empty()) {
        drawn.label = bounds_of(glyphs);
    }
    return drawn;
}

shape state_shape(i64 state) {
    gpu_draw draw = draws_of([&] { state_draw(on_board, state); }).front();
    return disc_shape(placed(draw, {0.5, 0.5}), state_size / 2);
}

drawn_board board_draw() {
    drawn_board board;
    board.view = rectangle_shape(-tolerance, bottom_panel_height - tolerance,
                                 render_target.width + tolerance,
                                 render_target.height - top_panel_height + tolerance);
    for (i64 s = 0; s < game_map.states.count; ++s) {
        board.states.push_back(state_shape(s));
    }
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        if (transition_exists(game_map.transitions[t])) {
            board.arcs.push_back(arc_draw(t));
        }
    }
    return board;
}

bool any_overlaps(const std::vector<shape>& lines, const shape& s) {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const shape& line) { return shapes_overlap(line, s); });
}

bool any_overlaps(const std::vector<shape>& a, const std::vector<shape>& b) {
    return std::any_of(a.begin(), a.end(), [&](const shape& s) { return any_overlaps(b, s); });
}

bool is_loop(const drawn_arc& drawn) {
    return drawn.arc.from == drawn.arc.to;
}

bool join_same_states(const transition& a, const transition& b) {
    return std::minmax(a.from, a.to) == std::minmax(b.from, b.to);
}

// Whether two transitions' lines are in each other's way: crossing arrows are not.
bool lines_clash(const drawn_arc& a, const drawn_arc& b) {
    bool may_clash = is_loop(a) || is_loop(b) || join_same_states(a.arc, b.arc);
    return may_clash && any_overlaps(a.lines, b.lines);
}

// Whether the label is in the way of its own arrow or loop; it may stand in the loop's hole.
bool label_hides_own_line(const drawn_arc& drawn) {
    bool in_hole =
        is_loop(drawn) && std::all_of(drawn.label.begin(), drawn.label.end(), [&](point p) {
            return distance(p, drawn.ring_centre) < loop_hole_radius;
        });
    return !in_hole && any_overlaps(drawn.lines, drawn.label);
}

void states_check(const drawn_board& board, remarks& found) {
    for (std::size_t s = 0; s < board.states.size(); ++s) {
        if (!rectangle_holds(board.view, board.states[s])) {
            found.push_back(state_name(s) + " leaves the window or lies under a band");
        }
        for (std::size_t other = 0; other < s; ++other) {
            if (shapes_overlap(board.states[s], board.states[other])) {
                found.push_back(state_name(s) + " overlaps " + state_name(other));
            }
        }
    }
}

void lines_check(const drawn_board& board, std::size_t index, remarks& found) {
    const drawn_arc& drawn = board.arcs[index];
    for (std::size_t s = 0; s < board.states.size(); ++s) {
        if (s != drawn.arc.from && s != drawn.arc.to &&
            any_overlaps(drawn.lines, board.states[s])) {
            found.push_back(drawn.name + " runs through " + state_name(s));
        }
    }
    for (std::size_t other = 0; other < index; ++other) {
        if (lines_clash(drawn, board.arcs[other])) {
            found.push_back(drawn.name + " overlaps " + board.arcs[other].name);
        }
    }
    if (is_loop(drawn) && !drawn.lines.empty() && !rectangle_holds(board.view, drawn.lines[0])) {
        found.push_back(drawn.name + " leaves the window or lies under a band");
    }
}

void label_check(const drawn_board& board, std::size_t index, remarks& found) {
    const drawn_arc& drawn = board.arcs[index];
    std::string name = "label of " + drawn.name;
    if (!rectangle_holds(board.view, drawn.label)) {
        found.push_back(name + " leaves the window or lies under a band");
    }
    for (std::size_t s = 0; s < board.states.size(); ++s) {
        if (shapes_overlap(drawn.label, board.states[s])) {
            found.push_back(name + " lies over " + state_name(s));
        }
    }
    for (std::size_t other = 0; other < board.arcs.size(); ++other) {
        const drawn_arc& there = board.arcs[other];
        bool over_line =
            other == index ? label_hides_own_line(drawn) : any_overlaps(there.lines, drawn.label);
        if (over_line) {
            found.push_back(name + " lies over " + there.name);
        }
        if (other < index && !there.label.empty() && shapes_overlap(drawn.label, there.label)) {
            found.push_back(name + " lies over the label of " + there.name);
        }
    }
}

}  // namespace

remarks layout_check() {
    remarks found;
    drawn_board board = board_draw();
    states_check(board, found);
    for (std::size_t i = 0; i < board.arcs.size(); ++i) {
        lines_check(board, i, found);
        if (!board.arcs[i].label.empty()) {
            label_check(board, i, found);
        }
    }
    return found;
}
