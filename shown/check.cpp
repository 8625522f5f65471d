#include "shown/check.h"

#include "maps/map_work.h"
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"

str shown_fault() {
    if (map_work.aside.length > 0 && (screens.editor_open || !map_work.open)) {
        return "the map under work is played and edited at once";
    }
    if (screens.title_menu_open + screens.player_setup_open + screens.map_list_open > 1) {
        return "two menus are open";
    }
    if (selection.selected_card < no_card) {
        return "the selected card is less than none";
    }
    return app.show_frames < 0 ? str("a key is held for less than no frames") : str();
}
