#pragma once

// The editor, opened on an empty map, for its tests.

#include "maps/model.h"
#include "tests/program/program.h"

class editor_screen : public program_test {
  protected:
    editor_screen();

    // Shows the editor of a family with an empty map of scale 1 and its start settings.
    static void open(i64 kind);
};
