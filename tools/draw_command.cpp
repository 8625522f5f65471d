#include <cstdio>

#include "maps/file_text.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/map_svg.h"

int draw_command(words arguments) {
    std::string_view out;
    bool numbers = false;
    i64 family = no_family;
    if (!options_take(arguments, {text_form("-o", out), flag_form("--numbers", numbers),
                                  family_form(family)})) {
        return not_understood;
    }
    if (arguments.size() != 1) {
        return complain("draw", "wants one file");
    }
    str text;
    if (!board_frame_begin() || !map_file_read(arguments[0], text, family)) {
        return not_understood;
    }
    map_open(text, family, false);
    std::string svg = map_svg(numbers);
    if (out.empty()) {
        std::fwrite(svg.data(), 1, svg.size(), stdout);
        return all_well;
    }
    return file_write_all(str_from(out), str_from(svg)) ? all_well
                                                        : complain(out, "cannot be written");
}
