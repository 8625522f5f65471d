#pragma once

// The nimbers (Sprague-Grundy values) of a state machine's states: 0 without a way out, else the
// smallest value that no successor has.
//
// Source: R. P. Sprague, "Über mathematische Kampfspiele" (1935); P. M. Grundy, "Mathematics and
// games" (1939).

// Fills `game_map.nimbers` for the current states and transitions: values 0 to 127. Transitions
// that name missing states do not count. The depth-first search takes at most 1,048,576 steps:
// when they run out or would on a cycle, or when a state would need 128, it writes one line to
// standard output and leaves the states it did not settle at `no_nimber`.
void nimbers_compute();
