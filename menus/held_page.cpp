#include "menus/held_page.h"

#include "base/text_builder.h"
#include "editor/editor_show.h"
#include "game/board_show.h"
#include "game/show_panel.h"
#include "menus/keys_page.h"
#include "shown/screens.h"

void held_page_draw() {
    if (game_is_shown()) {
        board_show_draw();
        show_panel_draw(text_join({board_show_words(pointer_read()), keys_now_words()}));
    } else if (editor_is_shown()) {
        editor_show_draw();
        show_panel_draw(text_join({editor_show_words(), keys_now_words()}));
    } else {
        keys_page_draw();
    }
}
