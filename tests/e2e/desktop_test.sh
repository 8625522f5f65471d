#!/usr/bin/env bash
# The picture on desktops of all sizes: what is drawn and what reacts agree. The title's buttons are
# found by their colours in the window and pressed three pixels inside and outside their edges.
# QUORREL_STORM is for how many seconds the window gets another size in every frame.

# shellcheck disable=SC2086 # places and sizes are lists of words

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"

# Starts a display of a size, with a window manager if one is named.
desktop_start() {
    virtual_display_start "$1"
    trap clean_up EXIT
    if [ $# -gt 1 ]; then
        "${@:2}" &>/dev/null &
        pids+=($!)
        wait_until window_manager_runs
    fi
}

# Prints left, top, right and bottom of all that has the colours of a button's face, if anything has.
buttons_box() {
    import -silent -window "$window" png:- |
        convert -quiet png:- -fuzz 6% -fill white -opaque 'rgb(77,94,142)' -opaque 'rgb(60,75,121)' \
            -opaque 'rgb(44,58,100)' -fuzz 0 -fill black +opaque white -format '%@' info: |
        awk -F '[x+]' '$1 > 0 { print $3, $4, $3 + $1 - 1, $4 + $2 - 1 }'
}

buttons_stand() {
    local box
    box=$(buttons_box)
    [ -n "$box" ] && [ "$box" = "$last_box" ] || { last_box=$box; false; }
}

# Clicks a place, leaves it for the middle of the menu, and gives the game time for it.
click_shortly() {
    click "$1" "$2"
    mouse_move $(((left + right) / 2)) $(((top + bottom) / 2))
    sleep 0.3
}

buttons_moved() {
    [ "$(buttons_box)" != "$last_box" ]
}

# The title menu's outermost buttons are Quit, left, and Editor, right, both at the bottom.
buttons_agree() {
    last_box=
    wait_until buttons_stand
    local left top right bottom
    read -r left top right bottom <<<"$last_box"
    screenshot "desktop_${1// /_}"
    click_shortly $((right + 4)) $((bottom - 4))
    click_shortly $((right - 4)) $((bottom + 4))
    click_shortly $((left - 4)) $((bottom - 4))
    ! buttons_moved || fail "$1: a click beside a button did something"
    click_shortly $((right - 4)) $((bottom - 4))
    wait_until buttons_moved
    keys Escape
    wait_until buttons_stand
    say "$1: the buttons from $left $top to $right $bottom react where they are drawn"
}

# Ends the game by the corner of its Quit button.
quit_press() {
    last_box=
    wait_until buttons_stand
    local left top right bottom
    read -r left top right bottom <<<"$last_box"
    click $((left + 4)) $((bottom - 4))
    game_ends_with 0
    [ ! -s "$output" ] || fail "the program had something to say"
}

# Whether the window keeps its place and size for a second.
window_rests() {
    [ "$(for _ in {1..10}; do window_geometry && sleep 0.1; done | sort -u | wc -l)" -eq 4 ]
}

desktop_end() {
    kill "${pids[@]}" "$virtual_display" 2>/dev/null || true
    wait || true
    pids=()
    window=
}

# Starts the program without waiting for a size.
game_launch() {
    [ -d "$work/player" ] || player_make
    (cd "$work/player" && exec env "$@" "$program") >"$output" 2>"$work/errors" &
    game=$!
    pids+=("$game")
}

# A desktop whose panel leaves the lowest 40 lines free of windows.
cat >"$work/panel.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc"><margins><bottom>40</bottom></margins></openbox_config>
XML
desktop_start 1366x768 openbox --config-file "$work/panel.xml"
game_launch
wait_until window_find
buttons_agree "1366 by 768 with a panel"
[ "$(xwininfo -id "$window" | awk '/Absolute upper-left Y|Height/ { y += $NF } END { print y }')" -le 728 ] ||
    fail "the window reaches below the panel"
keys F11
wait_until window_is 1366x768
buttons_agree "1366 by 768 fullscreen"
quit_press
desktop_end

desktop_start 800x600
game_launch
wait_until window_find
buttons_agree "800 by 600 without window manager"
for size in "1 1" "1 3000" "16384 10" "700 20"; do
    xdotool windowsize "$window" $size
    sleep 0.1
done
xdotool windowunmap "$window" windowmap --sync "$window" windowsize "$window" 700 500 windowmove "$window" 0 0
wait_until window_is 700x500
xdotool windowfocus "$window"
buttons_agree "700 by 500 after stranger sizes"
keys F11
wait_until window_is 800x600
buttons_agree "800 by 600 filled"
quit_press
desktop_end

desktop_start 1280x1024 dwm
say "without the OpenGL that it needs one line is said"
game_launch MESA_GL_VERSION_OVERRIDE=2.1
game_ends_with 1
grep -q '^failed to open the display: ' "$output" && [ "$(wc -l <"$output")" -eq 1 ] || fail "not the line expected"
game_launch
wait_until window_find
buttons_agree "1280 tiled"
for ((step = 0; step < 60 * ${QUORREL_STORM:-2}; ++step)); do
    echo "windowsize $window $((1 + step * 170 % 1301)) $((1 + step * 290 % 1103))"
    ((step % 3)) || echo "key --delay 0 F11"
    echo "sleep 0.016"
done | xdotool -
wait_until window_rests # the keys that wait are taken one a frame
xdotool windowmove "$window" 40 60 windowsize "$window" 701 507
wait_until window_is 701x507
buttons_agree "1280 after a storm of sizes"
quit_press
desktop_end

desktop_start 2560x1440 openbox
game_launch
wait_until window_find
wait_until window_is 1024x832
keys F11
wait_until window_is 2560x1440
buttons_agree "2560 by 1440 fullscreen"
[ $((${last_box##* } - $(awk '{ print $2 }' <<<"$last_box"))) -gt 800 ] || fail "the picture is small"
xrandr --newmode small 60 1280 1280 1280 1280 800 800 800 800
xrandr --addmode screen small
xrandr --output screen --mode small
wait_until window_is 1280x800
buttons_agree "fullscreen on a display that became 1280 by 800"
quit_press
desktop_end

desktop_start 1400x1000
export XDG_RUNTIME_DIR=$work
chmod 700 "$work"
weston --backend=x11-backend.so --shell=kiosk-shell.so --scale=2 --width=700 --height=500 \
    --socket=quorrel-test --idle-time=0 &>"$work/weston" &
pids+=($!)
wait_until test -S "$work/quorrel-test"
game_launch WAYLAND_DISPLAY=quorrel-test ASAN_OPTIONS=detect_leaks=0 # SDL2 keeps some memory there
window=$(xwininfo -root -children | awk '/Weston/ { print $1 }')
buttons_agree "scale 2"
quit_press
desktop_end

say "without a display one line is said"
status=0
env -u DISPLAY -u WAYLAND_DISPLAY "$program" >"$output" 2>/dev/null || status=$?
[ "$status" -eq 1 ] || fail "exit status $status instead of 1"
grep -c '' "$output" | grep -qx 1 || fail "not one line"
grep -q '^failed to open the display: ' "$output" || fail "not the line expected"
