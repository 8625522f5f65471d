#pragma once

// The bottom band in play: the current human's hand, or every seat's card count while the hand is
// hidden; with the hand go the clicks on the deck and on the end-of-turn sign.

#include "base/types.h"
#include "render/view.h"

struct hand_scroll_record {
    // How far the row is scrolled, as a fraction of its full width; 0 shows the first card.
    f64 hand_scroll = 0;
    bool hand_scroll_dragging = false;  // the thumb is held with the left button
};

extern hand_scroll_record hand_row;

// The current seat's hand, goal and buttons, with their clicks.
void hand_panel_frame(const pointer& mouse);

// How many cards each seat of a pushdown game holds.
void card_counts_draw();
