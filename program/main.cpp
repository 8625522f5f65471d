#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/tidings.h"
#include "game/game_file.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "platform/standard_streams.h"
#include "program/command_line.h"
#include "program/frame.h"
#include "program/map_import.h"
#include "program/player_files.h"

namespace {

constexpr int not_to_be_done = 2;

str argument_text(const char* argument) {
    return {argument, static_cast<i64>(std::strlen(argument))};
}

// The files to take in, named so that they are found from the player's directory; what is missing
// here is sought there.
dyn_array<str> import_paths(const command_line& command) {
    dyn_array<str> paths = {};
    for (i64 i = 0; i < command.file_count; ++i) {
        str path = argument_text(command.files[i]);
        dyn_array_push(paths, file_exists(path) ? path_absolute(path) : path);
    }
    return paths;
}

// The game file that was named last.
struct named_game {
    char path[4096];
    i64 length;
};

named_game game_named;

void game_name(str path) {
    if (path.length <= i64{sizeof game_named.path}) {
        std::copy_n(path.data, path.length, game_named.path);
        game_named.length = path.length;
    }
}

// What cannot be taken in is told; the others are.
void maps_import(const dyn_array<str>& paths, i64 family) {
    if (paths.count > 0) {
        catalogues_load();
    }
    for (str path : paths) {
        if (file_is_game(path)) {
            game_name(path);
        } else {
            map_import(path, family);
        }
    }
}

// What the command line asks for before the game starts; false, with the reason in one line on
// standard error, when there is nowhere to play.
bool files_prepare(const command_line& command) {
    dyn_array<str> paths = import_paths(command);
    str directory = argument_text(command.directory);
    if (!player_files_enter(directory, shipped_data_find(), command.restore_maps)) {
        std::fprintf(stderr, "quorrel: cannot play in the directory %s\n",
                     directory.length > 0 ? command.directory : "of your files");
        return false;
    }
    maps_import(paths, command.family);
    return true;
}

}  // namespace

int main(int argument_count, char** arguments) {
    standard_streams_open();
    command_line command;
    int status = command_line_read(argument_count, arguments, command);
    if (status != command_play) {
        return status;
    }
    arenas_create();
    bool prepared = files_prepare(command);
    arenas_free();
    if (!prepared) {
        return not_to_be_done;
    }
    i64 imported_family = machine_kind;
    tidings_record told = tidings;
    std::atexit(map_work_finish);  // also when the GPU or the display ends the program
    std::atexit(game_file_write);
    program_start();
    if (command.file_count > 0) {
        machine_kind = imported_family;
    }
    if (!tidings.is_new) {
        tidings = told;
    }
    if (command.fullscreen) {
        fullscreen_toggle();
    }
    if (game_named.length > 0) {
        game_open({game_named.path, game_named.length});
    }
    while (program_frame()) {}
    program_end();
    return 0;
}
