#pragma once

// What the sources of this backend share: the page's canvas and its events.

inline constexpr char canvas_selector[] = "#canvas";

// Begins to listen for the canvas's keys and mouse.
void input_listen();
