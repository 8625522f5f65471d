#pragma once

// Sets every global of the game to its start value. Start-up begins with it, and so does every
// test. It forgets the arenas without freeing them.
void globals_reset();
