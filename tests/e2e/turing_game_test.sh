#!/usr/bin/env bash
# A turing game from the title menu to its winner and back, with mouse and keyboard alone.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

display_start
player_make
# A tape of three ones, and three forced moves that make sixes of them: red, blue, red.
duel_add turing <<'MAP'
map 0 0 128
win 0
deck 3 1 1 1
tape 3
goal 0 2 18
stone 0
. -3 0
. -1 0
. 1 0
* 3 0
=> 0 1 0 0 24 "6R"
=> 1 2 0 0 24 "6R"
=> 2 3 0 0 24 "6R"
MAP
first="128 416" second="384 416" third="640 416" last="896 416"

# Beside and between the tape's cards, where only the head's highlight is drawn.
tape_gaps=("296 80" "440 80" "584 80" "728 80")

# Waits until the head is on a card of the tape: the gaps on both sides of it are lit.
head_wait() {
    local i wanted
    for i in "${!tape_gaps[@]}"; do
        wanted="$band"
        if [ "$i" -eq "$1" ] || [ "$i" -eq $(($1 + 1)) ]; then
            wanted="$highlight"
        fi
        pixel_wait ${tape_gaps[$i]} "$wanted"
    done
}

goal_is_shown() {
    region_has 200 712 624 64 "${ink[white]}" "$shading"
}

say "the menus: one human, one computer, the map's preview"
game_start 1024x832
wait_until title_is_shown
push family_after
push play_game
wait_until seats_are_shown
seats_choose
seat_wait 1 blue
wait_until seat_is_computer 1
push seats_ok
wait_until map_list_is_shown
pixel_wait 812 416 "$accepting" "$shading"

say "the tape, its head and the goal"
push map_play
mouse_aside
board_wait "$work/player/custom_turing_machines/duel"
turn_wait red
head_wait 0
wait_until goal_is_shown

say "a move, the computer's move, the winning move"
click $first
click $second
pixel_wait $third "$stone" "$shading"
turn_wait red
head_wait 2
click $third
click $last
mouse_aside
wait_until winner_is_shown red
head_wait 0
goal_is_shown || fail "the winner's goal is missing"

say "space plays again"
keys space
wait_until board_is_shown
pixel_wait $first "$stone" "$shading"
turn_wait red

keys Escape
wait_until seats_are_shown
shipped_map_visit turing
