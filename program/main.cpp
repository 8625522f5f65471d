#include <cstdlib>

#include "base/arena.h"
#include "base/tidings.h"
#include "game/game_file.h"
#include "maps/map_work.h"
#include "platform/display.h"
#include "platform/standard_streams.h"
#include "program/command_line.h"
#include "program/daily_maps.h"
#include "program/frame.h"
#include "program/opening.h"
#include "program/rest.h"
#include "render/motion.h"

namespace {

constexpr int not_to_be_done = 2;

// What the command line asks for before the game starts.
bool prepare(const command_line& command, opening& wanted) {
    arenas_create();
    bool prepared = opening_prepare(command, day_now(), wanted);
    arenas_free();
    return prepared;
}

// Where the frames that are due would repeat the last one.
void wait_for_change() {
    if (i64 frames = rest_frames(); frames > 0) {
        rest_pass(display_wait(frames));
    }
}

}  // namespace

int main(int argument_count, char** arguments) {
    standard_streams_open();
    command_line command;
    int status = command_line_read(argument_count, arguments, command);
    if (status != command_play) {
        return status;
    }
    opening wanted;
    if (!prepare(command, wanted)) {
        return not_to_be_done;
    }
    tidings_record told = tidings;
    std::atexit(map_work_finish);  // also when the GPU or the display ends the program
    std::atexit(game_file_write);
    program_start();
    if (!tidings.is_new) {
        tidings = told;
    }
    motion.still = command.still;
    if (command.fullscreen) {
        fullscreen_toggle();
    }
    opening_show(command, wanted);
    while (program_frame()) {
        wait_for_change();
    }
    program_end();
    return 0;
}
