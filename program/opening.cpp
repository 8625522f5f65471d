#include "program/opening.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "base/tidings.h"
#include "game/game_file.h"
#include "game/takeback.h"
#include "maps/catalogue.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "program/map_import.h"
#include "program/player_files.h"
#include "rules/deal.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

str argument_text(const char* argument) {
    return {argument, static_cast<i64>(std::strlen(argument))};
}

// Without a name when it is too long for a path.
void name_note(opening_name& name, str text) {
    name.length = text.length <= i64{sizeof name.bytes} ? text.length : 0;
    std::copy_n(text.data, name.length, name.bytes);
}

str name_text(const opening_name& name) {
    return {name.bytes, name.length};
}

// A file named so that it is found from the player's directory; what is missing here is sought
// there.
str path_from_here(const char* argument) {
    str path = argument_text(argument);
    return file_exists(path) ? path_absolute(path) : path;
}

// Opens a game later and takes a map in at once; false, once it is told, when it is neither.
bool file_take(str path, i64 family, opening& wanted) {
    if (file_is_game(path)) {
        name_note(wanted.game, path);
        return true;
    }
    bool taken = map_import(path, family);
    wanted.family = taken ? machine_kind : wanted.family;
    return taken;
}

bool refuse(str name, const char* reason) {
    std::fprintf(stderr, "quorrel: %.*s: %s\n", static_cast<int>(name.length), name.data, reason);
    return false;
}

// A file, or the name of a map on the lists.
bool map_to_play_find(str word, i64 family, opening& wanted) {
    if (file_exists(word)) {
        if (!file_take(word, family, wanted)) {
            return false;
        }
    } else if (i64 found = catalogue_select_named(word, family); found != 1) {
        return refuse(word, found == 0 ? "is neither a file nor the name of a map"
                                       : "several families have it: add --family NAME");
    }
    wanted.family = machine_kind;
    if (wanted.game.length == 0) {
        name_note(wanted.map, catalogue_selected()->name);
    }
    return true;
}

}  // namespace

bool opening_prepare(const command_line& command, i64 day, opening& wanted) {
    dyn_array<str> paths = {};
    for (i64 i = 0; i < command.file_count; ++i) {
        dyn_array_push(paths, path_from_here(command.files[i]));
    }
    str to_play = path_from_here(command.map_to_play);
    str directory = argument_text(command.directory);
    if (!player_files_enter(directory, shipped_data_find(), command.restore_maps, day)) {
        std::fprintf(stderr, "quorrel: cannot play in the directory %s\n",
                     directory.length > 0 ? command.directory : "of your files");
        return false;
    }
    if (paths.count > 0 || to_play.length > 0) {
        catalogues_load();
    }
    for (str path : paths) {
        file_take(path, command.family, wanted);
    }
    return to_play.length == 0 || map_to_play_find(to_play, command.family, wanted);
}

void opening_show(const command_line& command, const opening& wanted) {
    if (wanted.family != no_family) {
        machine_kind = wanted.family;
    }
    if (command.seats.count > 0) {
        seats_set(command.seats);
    }
    if (wanted.map.length > 0 &&
        catalogue_select_named(name_text(wanted.map), wanted.family) == 1) {
        selected_map_play({});
    }
    if (wanted.game.length > 0) {
        game_open(name_text(wanted.game));
    }
}

bool selected_map_play(const seat_list& seats) {
    const catalogue_entry* entry = catalogue_selected();
    if (entry == nullptr || !file_exists(entry->path)) {
        failure_tell({"failed to load map: ", entry != nullptr ? entry->path : str()});
        return false;
    }
    game_file_write();
    if (seats.count > 0) {
        seats_set(seats);
    }
    seats_adjust();
    takeback = {};
    selection = {};
    screens = {};
    game_start();
    return true;
}
