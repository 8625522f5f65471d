#pragma once

// The game under way outlives the program: it stands in a file of the player's directory, which is
// written when the board is left, the window hidden or the program ended, and after every few acts.
// A game that is over is not kept. What another game is written over is not lost, whichever program
// wrote it: the newest 20 stay in "kept/games". A program whose game has made way for a newer one
// of another program goes on in a file of its own there.

#include "base/str.h"
#include "base/types.h"

struct game_file_record {
    i64 changes_written = 0;  // the record's changes when it was written last
    u64 fingerprint = 0;      // of what this run wrote to the file, or read from it; 0 for nothing
    i64 game = 0;             // the number that the game there began with
    bool has_own = false;     // this run's game stands in "kept/"
    bool failed = false;      // the player knows that it cannot be written
    bool is_there = false;    // when it was looked for last
};

extern game_file_record game_file;

// Writes the game if it was changed since, by any act or by many. A failure is told once.
void game_file_write();
void game_file_write_at_times();

// F4: goes back into the game that was left in this run, else into the one that the file holds;
// says so where there is none. False then, with nothing changed.
bool game_return();
// Whether there is one, as far as was seen by the last look for the file.
bool game_can_return();
// Looks for it: another program may have written or deleted it. Frames look only when a key asks.
void game_file_look();

// Whether the file at `path` is a game's, by its beginning.
bool file_is_game(str path);
// Opens it on the board. The game that was under way stays in its file, and in "kept/" once this
// one is kept. What is wrong with the file is told in one line, with the number of the file's; the
// game then stands before that, or, when there is not even a position to begin with, false is
// returned and nothing has changed. `leave` is called before the map is replaced, once what stands
// before it in the file is known to be right.
bool game_open(
    str path, void (*leave)() = [] {});
