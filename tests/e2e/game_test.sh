#!/usr/bin/env bash
# A pushdown game against a computer from the title menu to the winner, then a map that ships, with
# mouse and keyboard alone.

# shellcheck disable=SC2086 # places and sizes are lists of words

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

display_start
player_make
# All cards are alike and fit everywhere but on the way to the last state.
mkdir -p "$work/player/maps"
cat >"$work/player/maps/duel" <<'MAP'
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
sed -i '1i duel maps/duel' "$work/player/resources/pushdown_maps.txt"
left="128 416" right="640 416"
middle_card="512 752" # of an odd number
discard_pile="640 80"

say "the menus: one human, one computer that never draws by chance, the map's preview"
game_start 1024x832
wait_until title_is_shown
pixel_wait 1019 827 "$background"
push play_game
wait_until seats_are_shown
push seats_fewer
seat_switch 1
push second_seat_stronger
push seats_ok
wait_until map_list_is_shown
pixel_wait 812 416 "$accepting" "$shading"

say "a card is drawn, the turn is ended, the computer empties its hand"
push map_play
mouse_aside
board_wait "$work/player/maps/duel"
turn_wait red
pixel_wait_not ${buttons[deck]} "$band"
pixel_wait $discard_pile "$band"
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

say "a map that ships is opened and drawn; Escape walks back to the title menu and out"
keys Escape
wait_until seats_are_shown
push seats_ok
push map_after
push map_play
mouse_aside
board_wait "$(sed -n '1s/.* //p' resources/pushdown_maps.txt)"
keys Escape
wait_until seats_are_shown
keys Escape
wait_until title_is_shown
keys Escape
game_ends_with 0
[ ! -s "$output" ] || fail "the program had something to say"

# Two computers go round and round; how many acts of theirs are kept.
cat >"$work/player/maps/ring" <<'MAP'
map 0 0 128
win 1
stone 0
. -1 0
. 1 0
* 0 -1
=> 0 1 1
=> 1 0 1
MAP
echo "ring maps/ring" >>"$work/player/resources/state_maps.txt"
acts_kept() {
    { cat "$work/player/under_way.quorrel-game" || true; } 2>/dev/null | grep -c '^ai ' || true
}

acts_are_kept() {
    [ "$(acts_kept)" -ge "$1" ]
}

say "killed at any moment, it goes on at the next start; QUORREL_KILLS times"
game_start 1024x832 --play ring --seats easy,easy
wait_until board_is_shown
for ((kills = ${QUORREL_KILLS:-2}; kills > 0; --kills)); do
    acts=$(acts_kept)
    wait_until acts_are_kept $((acts + 4))
    sleep "0.$((RANDOM % 10))"
    kept=$(acts_kept)
    kill -KILL "$game"
    { wait "$game"; } 2>/dev/null || true
    [ "$(acts_kept)" -ge "$kept" ] || fail "of $kept acts $(acts_kept) are left"
    game_start 1024x832
    wait_until title_is_shown
    keys F4
    wait_until board_is_shown
done
