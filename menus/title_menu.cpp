#include "menus/title_menu.h"

#include <cassert>

#include "base/arithmetic.h"
#include "base/time_step.h"
#include "editor/trial.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "menus/menu_panel.h"
#include "platform/maths.h"
#include "render/button.h"
#include "render/motion.h"
#include "render/pictures.h"
#include "render/sprites.h"
#include "render/text.h"
#include "rules/cards.h"
#include "shown/screens.h"

f64 title_picture_angle;

namespace {

constexpr f64 half_height = 400;
constexpr f64 picture_turn = 2.0943951023931953;  // radians per second
constexpr str family_titles[machine_kind_count] = {"State", "Pushdown", "Turing"};

void family_choose(menu_centre centre) {
    assert(0 <= machine_kind && machine_kind < machine_kind_count);
    f64 y = centre.y + half_height - 96;
    machine_kind = floor_modulo(machine_kind + menu_stepper(centre.x, y, 160), machine_kind_count);
    label_draw("Game Mode", centre.x, centre.y + half_height - 48);
    label_draw(family_titles[machine_kind], centre.x, y);
}

void picture_draw(menu_centre centre) {
    if (!motion_is_reduced()) {
        title_picture_angle += frame_dt * picture_turn;
    }
    f64 width = 512 + 15 * math_sin(title_picture_angle);
    f64 height = 512 + 15 * math_cos(title_picture_angle);
    auto picture = static_cast<texture_slot>(texture_state_machine + machine_kind);
    sprite_draw(picture, box_around(centre.x, centre.y - 16, width, height), colour_white);
}

void play_open() {
    screens.title_menu_open = false;
    screens.player_setup_open = true;
    catalogue_select();
}

// The editor starts with an empty map; its origin and hand size stay as they are.
void editor_open() {
    const i64 family = machine_kind;
    trial_give_up();
    machine_kind = family;
    screens.title_menu_open = false;
    screens.editor_open = true;
    catalogue_select();
    map_clear();
    deck.cards.count = 0;
    discard_pile.cards.count = 0;
    game_map.scale = 1;
    map_settings fresh;
    fresh.hand_size = settings.hand_size;
    settings = fresh;
    map_work_begin();
}

struct title_state {
    f64 x;
    f64 y;
};

// clang-format off
constexpr title_state title_states[] = {{0, 0}, {-1, -1}, {-1, 1}, {1, 1}, {1, -1}};

constexpr transition title_arcs[] = {
    {2, 1, 0, -32,   0, "b"},
    {3, 2, 0,   0,  40, "~(A,B,C,D)"},
    {4, 3, 0,  32,   0, "c"},
    {1, 4, 0,   0, -40, "~(1,2,3,4) & ~(a,b,c,d)"},
    {0, 1, 1,  16, -16, "4"},
    {0, 2, 1, -16, -16, "A"},
    {0, 3, 1, -16,  16, "1"},
    {0, 4, 1,  16,  16, "C"},
    {1, 0, 1, -16,  16, "3"},
    {2, 0, 1,  16,  16, "D"},
    {3, 0, 1,  16, -16, "2"},
    {4, 0, 1, -16, -16, "B"},
};
// clang-format on

}  // namespace

void title_map_build() {
    map_clear();
    game_map.origin_x = 0;
    game_map.origin_y = 0;
    game_map.scale = 128;
    for (const title_state& s : title_states) {
        map_add_state(s.x, s.y, 0);
    }
    for (const transition& arc : title_arcs) {
        map_add_transition(arc.from, arc.to, arc.bend, arc.label_dx, arc.label_dy,
                           str_copy(arc.rule));
    }
}

void title_menu_frame() {
    menu_centre centre = menu_centre_find();
    menu_panel_draw(centre, half_height);
    family_choose(centre);
    picture_draw(centre);
    f64 y = centre.y - half_height + 64;
    if (button_draw("Play Game", centre.x, y, 256, 64)) {
        play_open();
    }
    if (button_draw("Quit", centre.x - 400 + 96, y, 128, 64)) {
        app.running = false;
    }
    if (button_draw("Editor", centre.x + 400 - 96, y, 128, 64)) {
        editor_open();
    }
}
