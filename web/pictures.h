#pragma once

// When the browser is asked for pictures: sixty times a second while something moves, and not at
// all while steps would repeat (program/rest.h), until something happens.

// Asks for the first one.
void pictures_begin();

// The browser took the GPU, or gave it back. Without it no step is played.
void pictures_gpu_lost(bool lost);

// Something happened that the next step may see. Called by web/wake.js for what the player does,
// and by whatever else changes the game between two pictures.
extern "C" void page_wake();
