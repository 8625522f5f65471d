#include "program/frame.h"

#include <cassert>
#include <cstdlib>

#include "base/arena.h"
#include "base/message.h"
#include "base/numbers.h"
#include "base/tidings.h"
#include "editor/editor.h"
#include "editor/trial.h"
#include "game/game_file.h"
#include "game/game_line.h"
#include "game/hint.h"
#include "game/refused.h"
#include "game/replay.h"
#include "game/turn_update.h"
#include "maps/catalogue.h"
#include "maps/kept.h"
#include "maps/map_work.h"
#include "menus/held_page.h"
#include "menus/info_overlays.h"
#include "menus/keys_page.h"
#include "menus/map_list.h"
#include "menus/player_setup.h"
#include "menus/title_menu.h"
#include "platform/display.h"
#include "platform/gpu.h"
#include "platform/input.h"
#include "platform/system.h"
#include "program/check.h"
#include "program/game_screen.h"
#include "program/globals.h"
#include "program/rest.h"
#include "render/camera.h"
#include "render/renderer.h"
#include "render/walk.h"
#include "rules/random.h"
#include "shown/screens.h"

namespace {

constexpr i32 window_width = 1024;
constexpr i32 window_height = 832;
constexpr u32 frame_pause = 8;  // milliseconds
constexpr i32 tap_frames = 20;  // a key that is held for fewer is tapped

void pipeline_prepare() {
    pipeline_cull_enable(true);
    pipeline_cull_orientation(counter_clockwise_is_front);
    pipeline_blend_factor(blend_source_alpha, blend_one_minus_source_alpha);
}

// One screen back, or out of the program from the title menu.
void escape_apply() {
    app.help_visible = false;
    app.keys_visible = false;
    if (screens.title_menu_open) {
        app.running = false;
    } else if (screens.map_list_open) {
        screens.map_list_open = false;
        screens.player_setup_open = !screens.editor_open;
    } else if (screens.replay_open) {
        replay_end();
    } else if (screens.editor_open) {
        screens.editor_open = false;
        editor_leave();
        screens.title_menu_open = true;
    } else if (screens.player_setup_open) {
        screens.player_setup_open = false;
        screens.title_menu_open = true;
    } else {
        game_file_write();
        screens.player_setup_open = true;
    }
    game_file_look();
}

void game_key_apply() {
    if (input_key_is_held(key_shift)) {
        replay_begin();
    } else if (game_menu_is_shown()) {
        game_return();
    }
}

// With shift it gives a hint. Held, the key shows what can be done; a tap toggles the page of keys.
void show_key_apply() {
    bool pressed = input_key_is_pressed(key_f2);
    if (pressed && input_key_is_held(key_shift)) {
        hint_give();
    } else if (pressed) {
        game_file_look();
        app.show_frames = 1;
    } else if (app.show_frames > 0) {
        app.show_frames += app.show_frames < tap_frames ? 1 : 0;
    }
    if (app.show_frames == 0 || input_key_is_held(key_f2)) {
        return;
    }
    if (app.show_frames < tap_frames) {
        app.keys_visible = !app.keys_visible;
        app.help_visible = false;
    }
    app.show_frames = 0;
}

void keys_apply() {
    if (input_key_is_pressed(key_escape)) {
        escape_apply();
    }
    if (input_key_is_pressed(key_f1)) {
        app.help_visible = !app.help_visible;
        app.keys_visible = false;
    }
    show_key_apply();
    if (input_key_is_pressed(key_f3)) {
        app.memory_report_visible = !app.memory_report_visible;
    }
    if (input_key_is_pressed(key_f9)) {
        trial_key_apply();
    }
    if (input_key_is_pressed(key_f4)) {
        game_key_apply();
    }
    if (input_key_is_pressed(key_f11)) {
        fullscreen_toggle();
    }
}

void screen_frame() {
    if (screens.title_menu_open) {
        title_menu_frame();
    } else if (screens.player_setup_open) {
        player_setup_frame();
    } else if (screens.map_list_open) {
        map_list_frame();
    } else {
        game_screen_frame();
    }
    walk_frame_end();
    if (app.help_visible) {
        help_overlay_draw();
    }
    if (app.show_frames > 0) {
        held_page_draw();
    } else if (app.keys_visible) {
        keys_page_draw();
    }
    if (app.memory_report_visible) {
        memory_report_draw();
    }
}

void standing_line_show() {
    if (board_is_shown() && !screens.editor_open) {
        game_line_tell();
    } else {
        standing_tell({});
    }
    str line;
    if (standing_step(line)) {
        display_stand(line);
    }
}

void refusal_show() {
    bool refuses = board_is_shown() && refused.frames_left > 0;
    if (refuses != app.refusal_visible) {
        app.refusal_visible = refuses;
        display_refuse(refuses);
    }
}

// On the whole screen no title is seen.
void tidings_show() {
    str line;
    if (render_target.fullscreen || !tidings_step(line)) {
        return;
    }
    display_tell(line);
    if (line.length == 0) {
        kept_try();
    }
}

void gpu_error_stop(u32 code) {
    assert(code != 0);
    message_write({"gl error: ", number_text(code), "\n"});
    std::exit(0);
}

}  // namespace

void fullscreen_toggle() {
    render_target.fullscreen = !render_target.fullscreen;
    display_set_fullscreen(render_target.fullscreen);
    render_target.width = window_width;
    render_target.height = window_height;
    if (render_target.fullscreen) {
        display_get_info(render_target.width, render_target.height);
    }
    render_target_rebuild();
}

void program_start() {
    globals_reset();
    rest = {};
    system_init(system_all, key_repeat_off);
    arenas_create();
    random_seed(system_time());
    display_open(window_width, window_height, "Quorrel", display_core_profile, display_samples_one);
    renderer_init();
    // What the renderer loaded lives on the GPU or in globals from now on.
    arena_rewind(arena_persistent, 0);
    title_map_build();
    catalogues_load();
    game_file_look();
    pipeline_prepare();
    app.running = true;
}

bool program_frame() {
    assert(arenas[arena_frame].base != nullptr);  // between start and end
    arena_rewind(arena_frame, 0);
    input_poll();
    rest_frame_begin();
    if (display_is_closed()) {
        app.running = false;
    }
    keys_apply();
    walk_frame_begin();
    camera_matrices_build(render_target.width, render_target.height);
    camera_input_apply(render_target.width, render_target.height);
    if (game_is_shown()) {
        turn_update();
        game_file_write_at_times();
    } else if (screens.replay_open) {
        replay_update();
    }
    if (display_is_hidden()) {
        game_file_write();
    }
    render_frame_begin();
    screen_frame();
    render_frame_end();
    fault_assert(program_fault);
    standing_line_show();
    refusal_show();
    if (u32 error = pipeline_get_error()) {
        gpu_error_stop(error);
    }
    tidings_show();
    display_set_ornament(screens.title_menu_open);
    system_sleep(frame_pause);
    pipeline_present();
    rest_frame_end();
    return app.running;
}

void program_restore_gpu() {
    renderer_release();
    i64 mark = arenas[arena_persistent].offset;
    renderer_init();
    arena_rewind(arena_persistent, mark);
    pipeline_prepare();
}

void program_end() {
    game_file_write();
    map_work_finish();
    display_close();
    renderer_release();
    arenas_free();
    system_release();
}
