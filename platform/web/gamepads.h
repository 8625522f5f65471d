#pragma once

// The gamepads that the browser knows, whenever they are plugged in. It tells of one when a button
// of it is pressed.

// Tells the game what they have now.
void gamepads_poll();
