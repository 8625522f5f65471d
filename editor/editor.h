#pragma once

// The map editor: the editing mode of the board screen.

#include "base/str.h"
#include "render/view.h"

// One frame of the editor, after the board was drawn: its keys, buttons and dialogs.
void editor_frame(const pointer& mouse);

// Closes the dialogs, drops what they had pending and forgets the selection, which in play would be
// a move; called when the editor is left.
void editor_leave();

// What is broken in what this room remembers, empty when nothing is.
str editor_fault();
