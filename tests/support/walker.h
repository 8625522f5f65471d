#pragma once

// Walks with the arrow keys over what is lit up under the mouse.

#include <string>

// Walks from beside the window to each place of the screen that is lit up under the mouse, one
// after the other, by pressing the arrow that points at it until it is reached. The lower left
// corners of those that could not be reached, a line for each.
std::string places_not_reached();
