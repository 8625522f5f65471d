#include "tests/editor/editor_screen.h"

#include "editor/goal_editing.h"
#include "editor/text_entry.h"
#include "rules/screens.h"
#include "rules/selection.h"

editor_screen::editor_screen() {
    begin();
}

void editor_screen::open(i64 kind) {
    machine_kind = kind;
    map_clear();
    game_map.scale = 1;
    settings = {};
    selection = {};
    text_entry_close();
    goal_editing = {};
    screens.title_menu_open = false;
    screens.editor_open = true;
    point_at(0, 0);
}
