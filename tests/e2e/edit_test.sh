#!/usr/bin/env bash
# A turing machine made from nothing, saved, played to its end, opened, changed, saved again and
# deleted, with the mouse and the keyboard alone. After each step the files must be what they have to
# be.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

# Clicks at an offset from the window's centre, y upwards, with a button, as often as told.
click_at() {
    for _ in $(seq "${4:-1}"); do
        click $((512 + $1)) $((416 - $2)) "${3:-1}"
        settle
    done
}

# Pushes buttons of the menus.
tap() {
    for button in "$@"; do
        push "$button"
        settle
    done
}

press() {
    for key in "$@"; do
        keys "$key"
        settle
    done
}

# Presses keys while a modifier is held.
press_with() {
    xdotool keydown "$1"
    press "${@:2}"
    xdotool keyup "$1"
}

# Presses keys while the mouse is at an offset from the centre.
press_over() {
    mouse_move $((512 + $1)) $((416 - $2))
    settle
    press "${@:3}"
}

pair_select() {
    click_at 0 200 3 2
    click_at -128 0
    click_at 128 0
}

# Saves the map as "a-b"; its file must then hold this win mode and transition.
map_save() {
    press_with ctrl s
    press a minus b Return
    printf '%s\n' "map 0 0 1" "win $1" "deck 1 4 4 4" "tape 5" "goal 4 2 1 2 2 2" "stone 0" \
        ". -128 0" "* 128 0" "$2" | cmp "$work/player/$map" - || fail "the map is not as it must be"
    printf 'base maps/base\na-b %s\n' "$map" | cmp "$list" - || fail "the list is not as it must be"
}

map=custom_turing_machines/a_b
list=$work/player/resources/turing_maps.txt
display_start
player_make
mkdir "$work/player/maps"
printf 'map 0 0 128\n. 0 0\n' >"$work/player/maps/base"
printf 'base maps/base\n' >"$list"
game_start 1024x832
wait_until title_is_shown

say "two states, a transition with an action, a goal"
tap family_after editor
press_over -128 0 1 3
press_over 128 0 1 u
pair_select
press 2
click_at 96 368
press_with shift c
press Return i
click_at 280 -296
click_at 280 -328
click_at 96 336
click_at 256 176 1 4
click_at 256 144 1 2
click_at 256 112
click_at 256 80 1 2
screenshot edit_goal
click_at 0 -144
map_save 1 '=> 0 1 0 0 32 "C"'

say "one human seat plays it to the end"
press Escape
tap play_game seats_fewer seats_fewer seats_ok map_after map_play
click_at -128 0
click_at 128 0
wait_until winner_is_shown red

say "its win mode and bend are changed; then it is deleted"
press Escape Escape
tap editor
press_with ctrl o
tap map_after map_edit
click_at -280 -296
pair_select
press u
map_save 0 '=> 0 1 1 0 32 "C"'
press_with ctrl o
tap map_after
click_at 304 -336
[ ! -e "$work/player/$map" ] || fail "$map was not deleted"
printf 'base maps/base\n' | cmp "$list" - || fail "the list is not as it must be"
printf "saving map a-b as $map\n%.0s" 1 2 | cmp "$output" - || fail "not the lines expected"
press Escape Escape
keys Escape
game_ends_with 0
