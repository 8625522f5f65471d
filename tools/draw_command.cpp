#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/map_files.h"
#include "tools/map_svg.h"

int draw_command(const request& asked) {
    named_map map;
    if (!board_frame_begin() || !asked_map_read(asked, map)) {
        return failed;
    }
    map_open(map, false);
    return output_write(asked, map_svg(asked.numbers));
}
