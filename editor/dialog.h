#pragma once

// What the editor's dialogs share: a box of 640 by 480 pixels in the middle of the window, which
// darkens what is behind it, and "OK" and "Cancel" in its lower part.

void dialog_box_draw();

// Which of the two was clicked, at most one.
struct dialog_answer {
    bool ok;
    bool cancel;
};

dialog_answer dialog_buttons_draw();
