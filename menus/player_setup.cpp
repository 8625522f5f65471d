#include "menus/player_setup.h"

#include <algorithm>
#include <cassert>

#include "base/arithmetic.h"
#include "menus/menu_panel.h"
#include "render/button.h"
#include "render/pictures.h"
#include "render/sprites.h"
#include "render/text.h"
#include "rules/game_state.h"
#include "rules/seats.h"
#include "shown/screens.h"

namespace {

constexpr f64 half_height = 416;
constexpr f64 row_step = 96;
constexpr str strength_names[strength_count] = {"easy", "normal", "hard"};

void buttons_frame(menu_centre centre) {
    f64 y = centre.y - half_height + 64;
    if (button_draw("OK", centre.x, y, 256, 64)) {
        screens.player_setup_open = false;
        screens.map_list_open = true;
    }
    if (button_draw("Back", centre.x - 400 + 96, y, 128, 64)) {
        screens.player_setup_open = false;
        screens.title_menu_open = true;
    }
}

void strength_choose(player& seat, menu_centre centre, f64 y) {
    assert(seat.is_computer);
    i64 strength = static_cast<i64>(seat.strength) + menu_stepper(centre.x + 160, y, 96);
    seat.strength = static_cast<u64>(std::clamp(strength, i64{0}, i64{strength_count} - 1));
    label_draw(strength_names[seat.strength], centre.x + 160, y);
}

void seat_row_frame(player& seat, menu_centre centre, f64 y) {
    str kind = seat.is_computer ? str("ai") : str("human");
    if (button_draw(kind, centre.x - 256, y, 78, 64)) {
        seat.is_computer = !seat.is_computer;
    }
    i64 colour_index = seat.colour_index + menu_stepper(centre.x - 96, y, 64);
    seat_colour_set(seat, floor_modulo(colour_index, seat_colour_count));
    sprite_draw(texture_player, {centre.x - 128, y - 32, 64, 64}, seat.colour);
    if (seat.is_computer) {
        strength_choose(seat, centre, y);
    }
}

}  // namespace

void player_setup_frame() {
    menu_centre centre = menu_centre_find();
    menu_panel_draw(centre, half_height);
    buttons_frame(centre);
    f64 count_y = centre.y + half_height - 96;
    player_count =
        std::clamp(player_count + menu_stepper(centre.x, count_y, 160), i64{1}, player_limit);
    seats_adjust();
    label_draw("Number of players", centre.x, centre.y + half_height - 48);
    number_draw(player_count, centre.x, count_y);
    for (i64 i = 0; i < players.count; ++i) {
        seat_row_frame(players[i], centre,
                       centre.y + half_height - 192 - row_step * static_cast<f64>(i));
    }
}
