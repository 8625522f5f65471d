#pragma once

// The computer seat on turing machines: every strength makes any move.

// Moves a stone, or passes when none can be moved or the chosen transition has no action.
void turing_machine_act();
