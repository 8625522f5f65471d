#pragma once

// The player set-up: how many seats, and for each its kind, colour and strength.
void player_setup_frame();
