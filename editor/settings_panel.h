#pragma once

// The editor's spinners for the map's settings.

// The deck, in the top band.
void deck_spinners_frame();
// The win mode and the family's hand or tape and goals, in the bottom band.
void bottom_rows_frame();
