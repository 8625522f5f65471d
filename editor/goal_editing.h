#pragma once

// The editor's goals of a turing map: the row that browses them, the buttons that add and remove
// one, and the dialog that composes a new one.

#include "base/types.h"
#include "maps/model.h"

struct goal_editing_record {
    bool goal_dialog_open = false;  // not modal
    // Keeps its values between openings.
    goal new_goal = {0, 0, 0, {0, 0, 0}, {0, 0, 0}};
    i64 goal_cursor = 0;  // the goal shown in the row; taken modulo the number of goals
};

extern goal_editing_record goal_editing;

// "add goal" and "remove goal" in the top band.
void goal_buttons_frame();
// The row of the bottom band.
void goal_row_frame();
void goal_dialog_frame();
