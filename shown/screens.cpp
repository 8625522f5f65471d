#include "shown/screens.h"

screen_flags screens;
app_record app;

bool board_is_shown() {
    return !screens.title_menu_open && !screens.player_setup_open && !screens.map_list_open;
}

bool game_is_shown() {
    return board_is_shown() && !screens.editor_open && !screens.replay_open;
}

bool editor_is_shown() {
    return screens.editor_open && board_is_shown();
}

bool game_menu_is_shown() {
    return !screens.editor_open && !board_is_shown();
}
