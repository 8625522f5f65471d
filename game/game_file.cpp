#include "game/game_file.h"

#include <algorithm>

#include "base/fingerprint.h"
#include "base/numbers.h"
#include "base/tidings.h"
#include "game/game_reader.h"
#include "game/game_words.h"
#include "game/game_writer.h"
#include "game/record.h"
#include "game/takeback.h"
#include "maps/file_text.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "shown/screens.h"

game_file_record game_file;

namespace {

constexpr str shared_path = "under_way.quorrel-game";
constexpr str games_folder = "kept/games";
constexpr str replaced_path = "kept/games/under_way.quorrel-game";  // with the date
constexpr i64 replaced_count = 20;
constexpr str own_start = "kept/games/under_way_";  // with the number that the game began with
constexpr i64 acts_unwritten = 4;                   // at most, but for the one that is being shown

// Of what the shared file holds; 0 when it cannot be read.
u64 shared_fingerprint() {
    file_id file = file_open(shared_path, file_mode_read);
    u64 fingerprint = 1;
    char bytes[4096];
    for (i64 left = file_size(file); left > 0; left -= std::min(left, i64{sizeof bytes})) {
        i64 size = std::min(left, i64{sizeof bytes});
        file_read(file, size, bytes);
        fingerprint_add(fingerprint, str{bytes, size});
    }
    file_close(file);
    return file_failed(file) ? 0 : fingerprint;
}

struct game_output {
    file_id file;
    u64 fingerprint;
};

void piece_write(void* to, str piece) {
    game_output& out = *static_cast<game_output*>(to);
    file_write(out.file, piece.length, piece.data);
    fingerprint_add(out.fingerprint, piece);
}

// Whether writing the shared file, or deleting it, takes nothing from another program.
bool shared_is_ours() {
    return !file_is_own(shared_path) ||
           (game_file.fingerprint != 0 && shared_fingerprint() == game_file.fingerprint);
}

constexpr i64 path_limit = 64;

// By which games are told apart.
i64 game_number() {
    return static_cast<i64>(record.start.chance.s0 >> 1);
}

// The file that this game has of its own.
str own_path(char (&bytes)[path_limit]) {
    text_buffer text = {bytes, sizeof bytes, 0, 0};
    text_buffer_put_str(text, own_start);
    text_buffer_put_int(text, game_number());
    text_buffer_put_str(text, ".quorrel-game");
    return text_buffer_text(text);
}

void own_delete() {
    char bytes[path_limit];
    if (game_file.has_own) {
        file_delete(own_path(bytes));
        game_file.has_own = false;
    }
}

bool write_to(str path, u32 mode, u64& fingerprint) {
    game_output out = {file_open(path, mode), 1};
    game_write(piece_write, &out);
    file_close(out.file);
    fingerprint = out.fingerprint;
    return !file_failed(out.file);
}

// A run that has written there before has been pushed aside by a newer one.
bool own_write(u32 mode) {
    char bytes[path_limit];
    u64 fingerprint;
    game_file.has_own = true;
    return write_to(own_path(bytes), mode, fingerprint);
}

bool shared_write(u32 mode) {
    if (file_is_own(shared_path) && (!shared_is_ours() || game_file.game != game_number())) {
        folder_trim(games_folder, replaced_count - 1);
        file_keep(shared_path, replaced_path);
    }
    own_delete();
    game_file.game = game_number();
    return write_to(shared_path, mode, game_file.fingerprint);
}

void write(u32 mode) {
    game_file.changes_written = record.changes;
    bool pushed_aside = game_file.fingerprint != 0 && !shared_is_ours();
    bool written = pushed_aside ? own_write(mode) : shared_write(mode);
    if (!written && !game_file.failed) {
        failure_tell({"failed to keep the game under way: ", shared_path});
    }
    game_file.failed = !written;
    game_file_look();
}

void remove() {
    game_file.changes_written = record.changes;
    if (shared_is_ours()) {
        file_delete(shared_path);
    }
    own_delete();
    game_file_look();
}

void keep(u32 mode) {
    if (turn.winner == no_winner) {
        write(mode);
    } else {
        remove();
    }
}

void board_show() {
    takeback = {};
    screens = {};
    screens.title_menu_open = false;
}

bool kept_game_resume() {
    str text;
    i64 mark = arenas[arena_persistent].offset;
    text_fault fault;
    if (!file_read_all(shared_path, text) || !game_read(text, trust_text, fault)) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    game_file.fingerprint = 1;
    fingerprint_add(game_file.fingerprint, text);
    game_file.game = game_number();
    game_file.changes_written = record.changes;
    return true;
}

}  // namespace

void game_file_write() {
    if (record.changes != game_file.changes_written && game_can_be_written()) {
        keep(file_mode_write);
    }
}

void game_file_write_at_times() {
    i64 changes = record.changes - game_file.changes_written;
    bool due = changes >= acts_unwritten || (changes > 0 && turn.winner != no_winner);
    if (due && turn.move_timer <= 0 && game_can_be_written()) {
        keep(file_mode_quick);
    }
}

bool game_can_return() {
    return record_stays() || game_file.is_there;
}

void game_file_look() {
    game_file.is_there = file_is_own(shared_path);
}

bool file_is_game(str path) {
    char start[game_text_start.length];
    file_id file = file_open(path, file_mode_read);
    bool long_enough = file_size(file) >= game_text_start.length;
    file_read(file, long_enough ? game_text_start.length : 0, start);
    file_close(file);
    return long_enough && !file_failed(file) && text_is_game({start, game_text_start.length});
}

bool game_open(str path, void (*leave)()) {
    game_file_write();
    i64 mark = arenas[arena_persistent].offset;
    str text;
    text_fault fault;
    if (!file_read_all(path, text)) {
        failure_tell({"failed to read game: ", path});
        return false;
    }
    bool opened = game_head_is_right(text, fault);
    if (opened) {
        leave();
        opened = game_read(text, trust_nobody, fault);
    }
    if (fault.reason.length > 0) {
        failure_tell({str_after_last(path, '/'), ": line ", number_text(fault.line), ": ",
                      fault.reason, opened ? str("; the game stands before it") : str()});
    }
    if (!opened) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    game_file.fingerprint = 0;  // the file holds another game
    board_show();
    return true;
}

bool game_return() {
    if (record_stays() ? !record_resume() : !kept_game_resume()) {
        tiding_tell(tiding_refusal, {"there is no game to go back to"});
        game_file_look();
        return false;
    }
    board_show();
    return true;
}
