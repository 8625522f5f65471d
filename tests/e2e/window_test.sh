#!/usr/bin/env bash
# The window itself: its size and background, fullscreen and back, quitting, and no display at all.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"

background="0 0 123" # 0.2 of linear blue

display_start

say "a window of 1024 by 832 opens"
game_start 1024x832
pixel_wait 4 4 "$background"
pixel_wait 1019 827 "$background"
screenshot title_menu

say "F11 fills the screen, and again gives the window back"
for _ in 1 2; do
    keys F11
    wait_until window_is "$screen_size"
    pixel_wait 4 4 "$background"
    pixel_wait 1275 1019 "$background"
    keys F11
    wait_until window_is 1024x832
    pixel_wait 1019 827 "$background"
done

say "Escape quits"
keys Escape
game_ends_with 0
[ ! -s "$output" ] || fail "the program had something to say"

say "closing the window quits"
game_start 1024x832
keys alt+F4
game_ends_with 0

say "a signal to end quits"
game_start 1024x832
kill "$game"
game_ends_with 0

say "without a display one line is said"
status=0
env -u DISPLAY -u WAYLAND_DISPLAY "$program" >"$output" 2>/dev/null || status=$?
[ "$status" -eq 1 ] || fail "exit status $status instead of 1"
[ "$(wc -l <"$output")" -eq 1 ] || fail "not one line"
grep -q '^failed to open the display: ' "$output" || fail "not the line expected"
