#!/usr/bin/env bash
# Pushdown games from the title menu to their winners and back, with mouse and keyboard alone:
# against a computer, then two humans in turn.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

display_start
player_make
# All cards are alike and fit everywhere but on the way to the last state.
duel_add pushdown <<'MAP'
map 0 0 128
win 0
deck 20 1 1 1
hand 2
stone 0
. -3 0
. 1 0
* 3 0
=> 0 1 1 0 36 "A"
=> 1 0 1 0 -36 "a"
=> 0 2 12 0 120 "B"
MAP
left="128 416" right="640 416" last="896 416"

middle_card="512 752" # of an odd number
# Of a hand of two: the cards' places, and a place beside each that only its highlight covers.
first_card="440 752" second_card="584 752"
beside_first="368 752" beside_second="656 752"
# Below the cards' counts, where only a hand is drawn.
hand_foot="480 808"
discard_pile="640 80"

say "the menus: one human, one computer, the map's preview"
game_start 1024x832
wait_until title_is_shown
push play_game
wait_until seats_are_shown
seats_choose
seat_wait 1 blue
wait_until seat_is_computer 1
push seats_ok
wait_until map_list_is_shown
pixel_wait 812 416 "$accepting" "$shading"

say "the deck, the hand and its selected card"
push map_play
mouse_aside
board_wait "$work/player/custom_pushdown_machines/duel"
turn_wait red
pixel_wait_not ${buttons[deck]} "$band"
pixel_wait $discard_pile "$band"
pixel_wait $beside_first "$band"
click $first_card
mouse_aside
pixel_wait $beside_first "$highlight"
click $second_card
mouse_aside
pixel_wait $beside_second "$highlight"
pixel_wait $beside_first "$band"

say "a card that does not fit moves nothing"
click $left
click $last
mouse_aside
pixel_wait 896 380 "0 0 202" "$shading" # blue halo
pixel_is $left "$stone" "$shading" || fail "the stone has left"
pixel_is $beside_second "$highlight" || fail "the card is no longer selected"

say "a card is drawn, the turn is ended, the computer empties its hand"
push deck
pixel_wait_not ${buttons[end_turn]} "$band"
pixel_wait_not 360 752 "$band" # the first of three cards
push end_turn
pixel_wait $right "$stone" "$shading"
turn_wait red
pixel_wait_not $discard_pile "$band"
click $middle_card
click $right
click $left
mouse_aside
wait_until winner_is_shown blue

say "space plays again"
keys space
wait_until board_is_shown
pixel_wait $left "$stone" "$shading"
pixel_wait $discard_pile "$band"
turn_wait red

say "two humans: the cover hides the hand until space is pressed"
keys Escape
wait_until seats_are_shown
seat_switch 1
wait_until seat_is_human 1
push seats_ok
push map_play
mouse_aside
wait_until board_is_shown
pixel_wait_not $hand_foot "$band"
click $first_card
click $left
click $right
mouse_aside
wait_until turn_cover_is_shown blue
region_has 448 670 128 20 "${ink[red]}" "$shading" || fail "the first seat's count is missing"
region_has 448 702 128 20 "${ink[blue]}" "$shading" || fail "the second seat's count is missing"
pixel_is $hand_foot "$band" || fail "the hand shows"
keys space
wait_until board_is_shown
pixel_wait_not $hand_foot "$band"
push deck
push end_turn
mouse_aside
wait_until turn_cover_is_shown red
keys space
wait_until board_is_shown
click $middle_card
click $right
click $left
mouse_aside
wait_until winner_is_shown red

keys Escape
wait_until seats_are_shown
shipped_map_visit pushdown
