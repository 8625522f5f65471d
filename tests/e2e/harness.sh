# What the end-to-end tests share: the real program in a real window on a display of its own, driven
# with the mouse and the keyboard. Sourced; QUORREL_PROGRAM may name another program than the one of
# the test preset.
#
# Coordinates are pixels from the window's top-left corner. A colour is "R G B", each 0 to 255.
# A failed check ends the test; a picture of the screen and the program's output are then kept.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

screen_size=1280x1024
patience=30 # seconds that anything waited for may take
program=$(realpath "${QUORREL_PROGRAM:-build/test/quorrel}")
pictures="$(dirname "$program")/screenshots"
export LSAN_OPTIONS="suppressions=$PWD/tests/e2e/leaks.supp:print_suppressions=0"
work=$(mktemp -d)
output="$work/output"
pids=()

# Ends what this test started and takes its files away.
clean_up() {
    local status=$?
    if [ "$status" -ne 0 ] && [ -n "${DISPLAY:-}" ]; then
        screenshot "failed_$(basename "$0" .sh)" || true
        cat "$output" 2>/dev/null || true
    fi
    kill "${pids[@]}" "${virtual_display:-}" 2>/dev/null || true
    wait || true
    rm -rf "$work"
    exit "$status"
}

# Repeats a command until it succeeds; fails after the patience has run out.
wait_until() {
    local end=$((SECONDS + patience))
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "waited in vain for: $*"
        sleep 0.02
    done
}

# A display with a window manager, which fullscreen needs.
display_start() {
    virtual_display_start "$screen_size"
    trap clean_up EXIT
    dwm 2>/dev/null &
    pids+=($!)
    wait_until window_manager_runs
}

window_manager_runs() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

# Starts the program in a new player's directory and waits for its window. Sets `window`, `game`.
game_start() {
    mkdir -p "$work/player"
    cp -r resources "$work/player/"
    (cd "$work/player" && exec "$program") >"$output" 2>&1 &
    game=$!
    pids+=("$game")
    wait_until window_find
    wait_until window_is "$1"
}

window_find() {
    kill -0 "$game" 2>/dev/null || fail "the program ended before its window opened"
    window=$(xdotool search --onlyvisible --name '^Quorrel$')
}

# Prints the window's place and size as X, Y, WIDTH and HEIGHT.
window_geometry() {
    xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)='
}

# Whether the window has this size, such as 1024x832.
window_is() {
    local X Y WIDTH HEIGHT
    eval "$(window_geometry)"
    [ "${WIDTH}x$HEIGHT" = "$1" ]
}

# Waits for the program to end and expects the exit status.
game_ends_with() {
    local status=0
    wait_until game_ended
    wait "$game" || status=$?
    [ "$status" -eq "$1" ] || fail "exit status $status instead of $1"
}

game_ended() {
    ! kill -0 "$game" 2>/dev/null
}

mouse_move() {
    xdotool mousemove --window "$window" "$1" "$2"
}

# Clicks at a place, with the left button (1) or the one given.
click() {
    mouse_move "$1" "$2"
    xdotool click "${3:-1}"
}

# Presses keys by their X names, such as Escape or ctrl+s.
keys() {
    xdotool key --delay 0 "$@"
}

screenshot() {
    mkdir -p "$pictures"
    import -silent -window root "$pictures/$1.png"
}

# Prints the colour at a place of the window.
pixel() {
    import -silent -window "$window" -crop "1x1+$1+$2" -depth 8 rgb:- | od -An -tu1 |
        awk '{print $1, $2, $3}'
}

# Whether the colour at a place is within 2 of the given one.
pixel_is() {
    pixel "$1" "$2" | awk -v wanted="$3" '
        {
            split(wanted, colour)
            for (i = 1; i <= 3; ++i) {
                difference = $i - colour[i]
                if (difference < -2 || difference > 2) exit 1
            }
        }'
}

# Waits until a place has a colour.
pixel_wait() {
    wait_until pixel_is "$@"
}
