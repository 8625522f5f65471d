#!/usr/bin/env bash
# A state-machine game from the title menu to its winner and back, with mouse and keyboard alone.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

display_start
player_make
# Three forced moves: red, blue, red.
duel_add state <<'MAP'
map 0 0 128
win 1
stone 0
. -3 0
. -1 0
. 1 0
* 3 0
=> 0 1 0 0 24 ""
=> 1 2 0 0 24 ""
=> 2 3 0 0 24 ""
MAP
first="128 416" second="384 416" third="640 416" last="896 416"

say "the menus: one human, one computer, the map's preview"
game_start 1024x832
wait_until title_is_shown
push family_before
push play_game
wait_until seats_are_shown
seats_choose
seat_wait 0 red
seat_wait 1 blue
pixel_wait 416 384 "$panel" # no third seat
wait_until seat_is_human 0
wait_until seat_is_computer 1
push seats_ok
wait_until map_list_is_shown
pixel_wait 212 416 "$stone" "$shading" # 600 of the map's 768 pixels
pixel_wait 812 416 "$accepting" "$shading"
pixel_wait 896 416 "$panel"

say "the selection is marked, and a right click takes back its last part"
push map_play
mouse_aside
board_wait "$work/player/custom_state_machines/duel"
pixel_wait $first "$stone" "$shading"
turn_wait red
click $first
click $last # which no transition from the first state reaches
mouse_aside
pixel_wait 128 380 "136 0 90" "$shading" # red halo
pixel_wait 896 380 "0 0 202" "$shading"  # blue halo
click $last 3
mouse_aside
pixel_wait 896 380 "$background"
pixel_is 128 380 "136 0 90" "$shading" || fail "the first choice was taken back, too"

say "a move, the computer's move, the winning move"
click $second
pixel_wait $third "$stone" "$shading"
turn_wait red
click $third
click $last
mouse_aside
wait_until winner_is_shown red
turn_wait red

say "space plays again"
keys space
wait_until board_is_shown
pixel_wait $first "$stone" "$shading"
pixel_wait $last "$accepting" "$shading"

keys Escape
wait_until seats_are_shown
shipped_map_visit state
