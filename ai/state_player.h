#pragma once

// The computer seat on state machines: a move after which the exclusive or of the nimbers of all
// stones' states is 0 wins against any answer (Sprague-Grundy); the strengths differ in how readily
// they take one.

// Moves a stone, or passes when none can be moved.
void state_machine_act();
