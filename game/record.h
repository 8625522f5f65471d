#pragma once

// What a game is made of: the map, the seats, what the deal began with, and what was done since,
// act by act. Everything else follows by the functions that play, so a game is brought to any of
// its positions by dealing it again and doing its first acts again. What a computer decided is
// written down with the number of random numbers that this took, so that nobody has to think again
// for that and chance goes on as it did.
//
// Who looks at his hand does nothing: the cover of a game of several humans is no part of the
// record and stands again wherever a record is walked to.

#include "maps/model.h"
#include "rules/acts.h"
#include "rules/deal.h"
#include "rules/game_state.h"

struct recorded_act {
    game_act what;
    bool by_computer;
    bool in_flight;  // done while the move before it was still being shown
    u8 draws;        // random numbers that the computer drew for its decision
};

struct record_seat {
    u8 is_computer;
    u8 strength;
    u8 colour_index;
};

inline constexpr i64 record_act_limit = 1'000'000;
inline constexpr i64 record_map_limit = i64{4} * 1024 * 1024;  // bytes of text
inline constexpr i64 record_name_limit = 256;                  // bytes

struct game_record {
    i64 deal = 0;          // the number of the deal that it follows
    bool whole = false;    // there is one, and every act since its deal is in it
    bool own_map = false;  // its map is on no list, so that another game begins from the record
    bool trial = false;    // of the map under work; nobody goes back into it
    i64 family = 0;
    deal_start start = {};
    map_settings settings = {};
    record_seat seats[player_limit] = {};
    i64 seat_count = 0;
    i64 stone_count = 0;  // of those that can be moved
    i64 map_length = 0;   // of the map's text; more than the limit when it did not fit
    i64 name_length = 0;  // of the map's name; 0 when the catalogue has none
    char name[record_name_limit] = {};
    i64 act_count = 0;  // with those ahead
    i64 position = 0;   // how many of them are done
    i64 changes = 0;    // of any record in this run
};

extern game_record record;

// What is too large to stand in it; only the counts above say what of it means something.
extern u16 record_stones[no_index];        // where the stones stood at the deal
extern char record_map[record_map_limit];  // as written by maps/writer, those stones in it
extern recorded_act record_acts[record_act_limit];

// Follows the game that was dealt last; does nothing when it does already.
void record_follow();
// Begins with the loaded map, its settings and the seats, which stand as before a deal from there.
// It counts as the game that was dealt last.
void record_begin(const deal_start& start);
// Whether there is one to go back into.
bool record_stays();

// Starts another game on its map with its seats.
void record_restart();

// Does an open act for the current seat and writes it down. What was ahead is forgotten.
void record_take(const game_act& act);
// Lets the current seat, a computer, decide and does that.
void record_take_computer();

// Does an act that is open behind the last one, and writes it down.
void record_append(const recorded_act& act);
// The move that is being shown, if there is one, has landed.
void record_land();

// Brings the running game, which must be the record's, to the position after the first `position`
// acts: nothing is selected, the last move has landed, and the cover stands.
void record_go(i64 position);

// Shows that position in the same way, and then the act with that index, which follows on it: the
// record stays at its own position, to which the game has to come back before anything is done.
void record_show(i64 position);
void record_show_act(i64 index);

// Brings the record's game back to the board after other maps and seats were loaded. False, with
// nothing changed, when it is not whole or its map's text did not fit.
bool record_resume();
// What that takes, for a game that is read: the map with the settings that its text leaves open,
// false with nothing changed when the memory does not suffice (the text lies in the persistent
// arena behind `mark`); the seats; the entry that another game of the map begins from.
bool record_map_load(i64 family, const map_settings& cards, str text, i64 mark);
void record_seats_take(const record_seat* seats, i64 count);
void record_entry_select(str name);

// What is broken in its counts or its latest act, empty when nothing is.
str record_fault();

// Whether that act is a human's.
bool record_is_human(i64 index);
