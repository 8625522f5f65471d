#pragma once

// Puts every rule that touches the line of its own arrow or loop beside it: to the left of an
// arrow's direction, to the right when its bend is below 0, and beyond a loop. All others stay.
void labels_lay_out();
