#pragma once

// Tells the page which screen is shown and what can be done there, as words for its row of keys.

// To be called after every frame; the page hears only of changes.
void screen_tell();
