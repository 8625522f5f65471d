#pragma once

// The start of a game: the map is loaded again, the deck built and shuffled, the cards dealt.

// Starts, or restarts, a game with the current family, the selected catalogue entry (or the map
// that is loaded, without one) and the seats. Closes the menus. Piles that would hold more than
// `pile_limit` cards are cut, which is said in one line on standard output.
void game_start();
