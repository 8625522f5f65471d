#include "menus/info_overlays.h"

#include "base/arena.h"
#include "base/numbers.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"

namespace {

constexpr f64 help_side = 800;
constexpr colour help_tint = {0, 0, 0, 0.97f};
constexpr colour report_tint = {1, 0, 0, 0.8f};

constexpr str help_text =
    "Game controls:\n"
    "<esc>: quit\n"
    "<f1>: toggle help screen\n"
    "<f11>: toggle fullscreen\n"
    "w/a/s/d: move camera\n"
    "q/e: zoom camera\n"
    "r: reset camera\n"
    "left click: select state or card\n"
    "right click: deselect state or card\n"
    "\n"
    "Editor controls:\n"
    "<1>: add state\n"
    "<2>: add transition\n"
    "<3>: add stone\n"
    "<del>: remove selection\n"
    "<shift> + <del>: remove stone\n"
    "i/j/k/l: move selected state\n"
    "         or rule from transition\n"
    "u/o: change accepting property of state\n"
    "     or move transition\n"
    "ctrl+o/ctrl+s: load/save\n";
static_assert(help_text.length == 473);

}  // namespace

void page_draw(str text) {
    box page =
        box_around(render_target.width / 2.0, render_target.height / 2.0, help_side, help_side);
    box_fill(page, help_tint);
    text_draw_left(text, page.x + 32, page.y + help_side - 48, text_normal, colour_white);
}

void help_overlay_draw() {
    page_draw(help_text);
}

void memory_report_draw() {
    const arena& memory = arenas[arena_persistent];
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_str(text, "memory used: ");
    text_builder_put_int(text, memory.offset >> 10);
    text_builder_put_str(text, " / ");
    text_builder_put_int(text, memory.capacity >> 10);
    text_builder_put_str(text, " kiB (");
    text_builder_put_real(
        text, static_cast<f64>(memory.offset) / static_cast<f64>(memory.capacity) * 100);
    text_builder_put_str(text, "%)");
    text_draw_left(text_builder_text(text), 16, 16, text_small, report_tint);
}
