#pragma once

// The program's life: start-up, one frame, shutdown. A main loop is
//
//     program_start();
//     while (program_frame()) {
//     }
//     program_end();
//
// and may wait while frames would repeat (program/rest.h).

void program_start();

// Runs one frame; false when the program has to end. A GPU error ends the process at once.
bool program_frame();

// Changes between the window and the whole screen, as F11 does.
void fullscreen_toggle();

// Makes every GPU object anew between two frames, after the GPU has lost them all.
void program_restore_gpu();

void program_end();
