#pragma once

// While F2 is held: what can be done on the board, over its picture, with the keys that act now; on
// the other screens the page of keys.

void held_page_draw();
