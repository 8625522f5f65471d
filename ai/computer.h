#pragma once

// The move of a computer seat.
//
// State machines: a move after which the exclusive or of the nimbers of all stones' states is 0
// wins against any answer (Sprague-Grundy); the strengths differ in how readily they take one.
// Pushdown machines: the hard seat takes the card after which it can follow with the most cards of
// its own while the fewest card values move the same stone on. Turing machines: any move.

// Acts for the current seat, which must be a computer: a move, a drawn card with a new
// `think_timer`, a pass, or the end of the turn.
void computer_act();
