#include "menus/map_list.h"

#include <algorithm>
#include <cassert>

#include "game/map_drawing.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/model.h"
#include "menus/menu_panel.h"
#include "platform/input.h"
#include "render/button.h"
#include "render/text.h"
#include "render/walk.h"
#include "rules/deal.h"
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

constexpr f64 half_height = 400;
constexpr f64 preview_width = 600;  // pixels
constexpr f64 preview_height = 320;

void entry_select(i64 entry) {
    selected_entry = std::clamp(entry, i64{0}, catalogue_count() - 1);
    map_load(catalogue_selected()->path);
}

bool name_begins_with(str name, u32 letter) {
    return name.length > 0 && (name.data[0] | 0x20) == static_cast<char>('a' + letter);
}

// The next entry, around the end, whose name begins with that letter of the alphabet; the selected
// one when there is none.
i64 entry_with_letter(u32 letter) {
    for (i64 ahead = 1; ahead <= catalogue_count(); ++ahead) {
        const i64 entry = (std::max(selected_entry, i64{0}) + ahead) % catalogue_count();
        if (name_begins_with((*current_catalogue)[entry].name, letter)) {
            return entry;
        }
    }
    return selected_entry;
}

void letter_keys_apply() {
    for (u32 letter = 0; letter <= key_z - key_a; ++letter) {
        if (input_key_is_pressed(key_a + letter)) {
            entry_select(entry_with_letter(letter));
        }
    }
}

// Left, right, the ends and the letters choose.
void keys_apply() {
    walk_take_sideways();
    if (input_key_is_held(key_ctrl) || input_key_is_held(key_alt)) {
        return;
    }
    if (input_key_is_pressed(key_left)) {
        entry_select(selected_entry - 1);
    } else if (input_key_is_pressed(key_right)) {
        entry_select(selected_entry + 1);
    } else if (input_key_is_pressed(key_home)) {
        entry_select(0);
    } else if (input_key_is_pressed(key_end)) {
        entry_select(catalogue_count() - 1);
    }
    letter_keys_apply();
}

void map_choose(menu_centre centre) {
    f64 y = centre.y + half_height - 96;
    keys_apply();
    if (i64 step = menu_stepper(centre.x, y, 160)) {
        entry_select(selected_entry + step);
    }
    label_draw("Map", centre.x, centre.y + half_height - 48);
    assert(selected_entry < catalogue_count());
    if (const catalogue_entry* entry = catalogue_selected()) {
        label_draw(entry->name, centre.x, y);
    }
}

// The factor that fits the map, with its world origin in the middle, into the preview.
f64 preview_factor() {
    f64 reach_x = 0;
    f64 reach_y = 0;
    for (i64 i = 0; i < game_map.states.count; ++i) {
        point centre = state_centre(i);
        reach_x = std::max({reach_x, centre.x, -centre.x});
        reach_y = std::max({reach_y, centre.y, -centre.y});
    }
    f64 width = 2 * reach_x;
    f64 height = 2 * reach_y;
    f64 factor = width > preview_width ? preview_width / width : 1;
    return height > preview_height ? std::min(factor, preview_height / height) : factor;
}

void preview_stones_draw(const map_placement& place) {
    i64* drawn = per_state<i64>(0);
    for (u16 state : stones) {
        if (state_exists(state)) {
            point centre = placed_centre(place, state);
            centre.y += stone_rise * static_cast<f64>(drawn[state]) * place.factor;
            stone_draw(place, centre);
            drawn[state] += 1;
        }
    }
}

void preview_draw(menu_centre centre) {
    map_placement place = {centre.x, centre.y, preview_factor(), screen_space};
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            transition_draw(place, arc, transition_tint);
        }
    }
    for (i64 i = 0; i < game_map.states.count; ++i) {
        state_draw(place, i);
    }
    preview_stones_draw(place);
}

void play_buttons_frame(menu_centre centre, f64 y) {
    if (button_draw("Play", centre.x, y, 256, 64)) {
        game_start();
    }
    if (button_draw("Back", centre.x - 400 + 96, y, 128, 64)) {
        screens.map_list_open = false;
        screens.player_setup_open = true;
    }
}

void edit_buttons_frame(menu_centre centre, f64 y) {
    if (button_draw("Edit", centre.x, y, 256, 64)) {
        screens.map_list_open = false;
    }
    if (catalogue_count() > 0 && button_draw("Delete", centre.x + 400 - 96, y, 128, 64)) {
        catalogue_delete_selected();
    }
}

}  // namespace

void map_list_frame() {
    menu_centre centre = menu_centre_find();
    menu_panel_draw(centre, half_height);
    if (catalogue_count() > 0) {
        map_choose(centre);
    }
    preview_draw(centre);
    f64 y = centre.y - half_height + 64;
    if (screens.editor_open) {
        edit_buttons_frame(centre, y);
    } else {
        play_buttons_frame(centre, y);
    }
}
