#include "tools/layout_check.h"

#include <algorithm>
#include <map>

#include "base/colour.h"
#include "game/map_drawing.h"
#include "maps/model.h"
#include "render/renderer.h"
#include "render/view.h"
#include "tools/board_frame.h"
#include "tools/progress.h"
#include "tools/shape_grid.h"

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
    std::vector<drawn_arc> arcs;
    shape_grid states;
    shape_grid lines;   // by place among `arcs`
    shape_grid labels;  // likewise
};

const shape unit_quad = rectangle_shape(0, 0, 1, 1);
const shape arrow_tip = {{0, 0}, {1, 0}, {0.5, 1}};

drawn_arc arc_draw(i64 index, bool is_caption) {
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
    if (is_caption) {
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

std::vector<drawn_arc> arcs_draw() {
    const std::vector<bool> captions = captions_find();
    std::vector<drawn_arc> arcs;
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        if (transition_exists(game_map.transitions[t])) {
            arcs.push_back(arc_draw(t, captions[static_cast<std::size_t>(t)]));
        }
        progress_show("transitions", t, game_map.transitions.count);
    }
    return arcs;
}

drawn_board board_draw() {
    drawn_board board;
    board.view = rectangle_shape(-tolerance, bottom_panel_height - tolerance,
                                 render_target.width + tolerance,
                                 render_target.height - top_panel_height + tolerance);
    std::vector<std::vector<shape>> states, lines, labels;
    for (i64 s = 0; s < game_map.states.count; ++s) {
        states.push_back({state_shape(s)});
    }
    board.arcs = arcs_draw();
    for (const drawn_arc& drawn : board.arcs) {
        lines.push_back(drawn.lines);
        labels.push_back({drawn.label});
    }
    board.states = grid_make(states);
    board.lines = grid_make(lines);
    board.labels = grid_make(labels);
    return board;
}

bool is_loop(const drawn_arc& drawn) {
    return drawn.arc.from == drawn.arc.to;
}

// Whether the label is in the way of its own arrow or loop; it may stand in the loop's hole.
bool label_hides_own_line(const drawn_arc& drawn) {
    bool in_hole =
        is_loop(drawn) && std::all_of(drawn.label.begin(), drawn.label.end(), [&](point p) {
            return distance(p, drawn.ring_centre) < loop_hole_radius;
        });
    return !in_hole && any_overlaps(drawn.label, drawn.lines);
}

constexpr const char* beyond_view = " leaves the window or lies under a band";

bool is_beyond_view(const drawn_board& board, const shape& s) {
    return !rectangle_holds(board.view, s);
}

void states_check(const drawn_board& board, remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        const std::vector<shape>& disc = board.states.items[static_cast<std::size_t>(s)];
        if (is_beyond_view(board, disc[0])) {
            found.looks.push_back(state_name(s) + beyond_view);
        }
        i64 other = grid_find(board.states, disc, [&](i64 item) { return item < s; });
        if (other >= 0) {
            found.looks.push_back(state_name(s) + " overlaps " + state_name(other));
        }
        progress_show("states", s, game_map.states.count);
    }
}

// An arrow may cross others; a loop must not lie over any, nor over another loop.
void line_check(const drawn_board& board, i64 index, remarks& found) {
    const drawn_arc& drawn = board.arcs[static_cast<std::size_t>(index)];
    i64 state = grid_find(board.states, drawn.lines,
                          [&](i64 item) { return item != drawn.arc.from && item != drawn.arc.to; });
    if (state >= 0) {
        found.looks.push_back(drawn.name + " runs through " + state_name(state));
    }
    if (!is_loop(drawn) || drawn.lines.empty()) {
        return;
    }
    i64 other = grid_find(board.lines, drawn.lines, [&](i64 item) {
        return item < index || !is_loop(board.arcs[static_cast<std::size_t>(item)]);
    });
    if (other >= 0) {
        found.looks.push_back(drawn.name + " overlaps " +
                              board.arcs[static_cast<std::size_t>(other)].name);
    }
    if (is_beyond_view(board, drawn.lines[0])) {
        found.looks.push_back(drawn.name + beyond_view);
    }
}

// Arrows between the same two states lie side by side, so that only neighbours can overlap.
void neighbours_check(const drawn_board& board, remarks& found) {
    std::map<std::pair<u16, u16>, std::multimap<i64, const drawn_arc*>> bundles;  // by bend
    for (const drawn_arc& drawn : board.arcs) {
        auto [from, to] = std::minmax(drawn.arc.from, drawn.arc.to);
        if (from != to && !drawn.lines.empty()) {
            bundles[{from, to}].insert(
                {from == drawn.arc.from ? drawn.arc.bend : -drawn.arc.bend, &drawn});
        }
    }
    for (const auto& [states, bundle] : bundles) {
        const drawn_arc* before = nullptr;
        for (const auto& [bend, drawn] : bundle) {
            if (before != nullptr && any_overlaps(before->lines, drawn->lines)) {
                found.looks.push_back(drawn->name + " overlaps " + before->name);
            }
            before = drawn;
        }
    }
}

// What is wrong with where the label stands, first of all; empty when nothing is.
std::string label_trouble(const drawn_board& board, i64 index) {
    auto arc_at = [&](i64 item) -> const drawn_arc& {
        return board.arcs[static_cast<std::size_t>(item)];
    };
    const drawn_arc& drawn = arc_at(index);
    const std::vector<shape> label = {drawn.label};
    if (is_beyond_view(board, drawn.label)) {
        return beyond_view;
    }
    if (i64 state = grid_find(board.states, label, [](i64) { return true; }); state >= 0) {
        return " lies over " + state_name(state);
    }
    if (label_hides_own_line(drawn)) {
        return " lies over " + drawn.name;
    }
    if (i64 other = grid_find(board.lines, label, [&](i64 item) { return item != index; });
        other >= 0) {
        return " lies over " + arc_at(other).name;
    }
    i64 other = grid_find(board.labels, label, [&](i64 item) { return item < index; });
    return other >= 0 ? " lies over the label of " + arc_at(other).name : "";
}

}  // namespace

void layout_check(remarks& found) {
    const drawn_board board = board_draw();
    states_check(board, found);
    neighbours_check(board, found);
    for (i64 i = 0; i < std::ssize(board.arcs); ++i) {
        const drawn_arc& drawn = board.arcs[static_cast<std::size_t>(i)];
        line_check(board, i, found);
        std::string trouble = drawn.label.empty() ? "" : label_trouble(board, i);
        if (!trouble.empty()) {
            found.labels.push_back("label of " + drawn.name + trouble);
        }
        progress_show("arrows and labels", i, std::ssize(board.arcs));
    }
}
