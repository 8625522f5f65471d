// A font description of any bytes is read, and any text and goal are drawn with it.
//
// The parts stand behind each other with a byte of 255 between them.

#include "fuzz/files.h"
#include "fuzz/fuzz.h"
#include "maps/reader.h"
#include "render/camera.h"
#include "render/font.h"
#include "render/goal_text.h"
#include "render/renderer.h"
#include "render/text.h"
#include "tools/words.h"

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    files_put("resources/font_info.txt", input.until('\xff'));
    font_load();
    camera_matrices_build(render_target.width, render_target.height);
    render_frame_begin();
    const str text = str_from(input.until('\xff'));
    text_draw_left(text, 0, 0, text_large, colour_white);
    text_draw_icons(text, 512, 416);
    label_draw(text, 512, 416);
    machine_kind = turing_machine;
    map_read(str_from(input.rest));
    for (const goal& g : goals) {
        goal_draw(g, 512, 416);
    }
    render_frame_end();
    return 0;
}
