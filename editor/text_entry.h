#pragma once

// The editor's dialog for typing one line of text: a transition's rule, or a map's name.
//
// It is modal: while `screens.text_entry_open` is set, the board's clicks, the editing keys and
// the camera's keys rest. The text is taken by its purpose's handler in the frame after the entry
// was confirmed.

#include "base/dyn_array.h"
#include "base/str.h"

// At most one purpose is set. A confirmation waits until a purpose's handler takes it; one that is
// still waiting when the dialog opens anew belongs to the new purpose.
struct text_entry_record {
    dyn_array<char> typed_text = {};
    str text_prompt;
    bool text_purpose_rule = false;
    bool text_purpose_map_name = false;
    bool text_confirmed = false;
};

extern text_entry_record text_entry;

// Each opens the dialog with an empty text, for the one purpose.
void text_entry_open_rule();
void text_entry_open_map_name();

// Closes the dialog and drops what it had pending.
void text_entry_close();

// Whether a confirmed text waits for the purpose; if so it is taken: the flags are cleared.
bool text_entry_take_rule();
bool text_entry_take_map_name();

// The typed text; valid until the next key is typed.
str text_entry_text();

// The open dialog: its keys and buttons.
void text_entry_frame();
