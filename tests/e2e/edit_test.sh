#!/usr/bin/env bash
# A map of two families made from nothing, saved, played to its end, opened, changed, saved again and
# deleted, with the mouse and the keyboard alone. After each step the files must be what they have to
# be.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

# Clicks at an offset from the window's centre, y upwards.
click_at() {
    click $((512 + $1)) $((416 - $2)) "${3:-1}"
    settle
}

# Clicks that often.
clicks_at() {
    for _ in $(seq "$1"); do
        click_at "$2" "$3"
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

# Presses a key while a modifier is held.
press_with() {
    xdotool keydown "$1"
    press "$2"
    xdotool keyup "$1"
}

# Presses a key while the mouse is at an offset from the centre.
press_over() {
    mouse_move $((512 + $1)) $((416 - $2))
    settle
    press "$3"
}

expect_file() {
    cmp "$work/player/$1" - || fail "$1 is not as it must be"
}

# The family's list holds the map it began with and these lines.
expect_list() {
    printf "base maps/base\n$1" | expect_file "resources/${family}_maps.txt"
}

# From the title menu, where the family is shown: a plain state with a stone and an accepting one,
# 256 apart, a transition between them with a rule of that one character, and "all accepting".
map_draw() {
    tap editor
    press_over -128 0 1
    press 3
    press_over 128 0 1
    press u
    pair_select
    press 2
    click_at 96 368
    press_with shift "$1"
    press Return i
    click_at 280 -296
}

pair_select() {
    click_at 0 200 3
    click_at 0 200 3
    click_at -128 0
    click_at 128 0
}

map_save() {
    press_with ctrl s
    press a minus b Return
}

# Opens the map list from the editor and chooses its second map.
map_list_open() {
    press_with ctrl o
    tap map_after
}

# From the editor: one human seat plays the list's second map and moves the stone.
map_play() {
    press Escape
    tap play_game seats_fewer seats_fewer seats_ok map_after map_play
    click_at -128 0
    click_at 128 0
}

# From a won game: opens the map in the editor and changes its win mode and bend.
map_change() {
    wait_until winner_is_shown red
    screenshot "edit_won_$family"
    press Escape Escape
    tap editor
    map_list_open
    tap map_edit
    click_at -280 -296
    pair_select
    press u
}

map_delete() {
    map_list_open
    click_at 304 -336
    [ ! -e "$work/player/$map" ] || fail "$map was not deleted"
    expect_list ""
    press Escape Escape
}

display_start
player_make
mkdir "$work/player/maps"
printf 'map 0 0 128\nhand 2\n. 0 0\n' >"$work/player/maps/base"
for family in state pushdown turing; do
    printf 'base maps/base\n' >"$work/player/resources/${family}_maps.txt"
done
game_start 1024x832
wait_until title_is_shown

say "a pushdown machine"
family=pushdown
map=custom_pushdown_machines/a_b
pushdown_text() {
    printf '%s\n' "map 0 0 1" "win $1" "deck 1 4 4 4" "hand 1" "stone 0" ". -128 0" "* 128 0" "$2"
}
map_draw 8
click_at -280 -328
map_save
pushdown_text 1 '=> 0 1 0 0 32 "*"' | expect_file $map
expect_list "a-b $map\n"
map_play
click_at 0 -336 # the one card
map_change
map_save
pushdown_text 0 '=> 0 1 1 0 32 "*"' | expect_file $map
expect_list "a-b $map\n"
map_delete

say "a turing machine"
family=turing
map=custom_turing_machines/a_b
turing_text() {
    printf '%s\n' "map 0 0 1" "win $1" "deck 1 4 4 4" "tape 5" "goal 4 2 1 2 2 2" "stone 0" \
        ". -128 0" "* 128 0" "$2"
}
tap family_after
map_draw c
click_at 280 -328
click_at 96 336
clicks_at 4 256 176
clicks_at 2 256 144
clicks_at 1 256 112
clicks_at 2 256 80
screenshot edit_goal
click_at 0 -144
map_save
turing_text 1 '=> 0 1 0 0 32 "C"' | expect_file $map
expect_list "a-b $map\n"
map_play
map_change
map_save
turing_text 0 '=> 0 1 1 0 32 "C"' | expect_file $map
expect_list "a-b $map\n"
map_delete

say "all of it was said"
for directory in custom_pushdown_machines custom_turing_machines; do
    printf "saving map a-b as $directory/a_b\n%.0s" 1 2
done | cmp "$output" - || fail "not the lines expected"
keys Escape
game_ends_with 0
