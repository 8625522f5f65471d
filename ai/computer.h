#pragma once

// The computer seats.
//
// On state machines a move after which the exclusive or of the nimbers of all stones' states is 0
// wins against any answer. The strengths differ in how readily they take one: easy only without
// another move, normal in half of the cases, hard always. On pushdown machines see
// `ai/pushdown_player.h`. On turing machines every strength makes any move.

// Acts for the current seat, which must be a computer, by the player of the current family, and
// does exactly one of these: makes a move; on a pushdown machine draws a card, with a new
// `think_timer`, or ends the turn; on a turing machine passes; waits, on a state machine on which
// no stone can be moved any more.
void computer_act();
