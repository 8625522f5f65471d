# What the end-to-end tests share: the real program in a real window on a display of its own, driven
# with the mouse and the keyboard. Sourced; QUORREL_PROGRAM may name another program than the one of
# the test preset.
#
# Coordinates are pixels from the window's top-left corner. A colour is "R G B", each 0 to 255.
# A failed check ends the test; a picture of the screen and the program's output are then kept.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

screen_size=1280x1024
patience=100 # seconds that anything waited for may take, on a busy machine too
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
    umount --lazy "$work/player" 2>/dev/null || true # a test may have mounted it
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
    openbox &>/dev/null &
    pids+=($!)
    wait_until window_manager_runs
}

window_manager_runs() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

# Makes a new player's directory, which a test may add to before the program starts.
player_make() {
    mkdir -p "$work/player"
    cp -r resources "$work/player/"
}

# Starts the program in the player's directory, with what arguments there are behind the size that is
# given for its window, and waits for that. Sets `window`, `game`.
game_start() {
    [ -d "$work/player" ] || player_make
    (cd "$work/player" && exec "$program" "${@:2}") >"$output" 2>&1 &
    game=$!
    pids+=("$game")
    wait_until window_find
    wait_until window_is "$1"
}

window_find() {
    kill -0 "$game" 2>/dev/null || fail "the program ended before its window opened"
    window=$(xdotool search --onlyvisible --name '^Quorrel( - .*)?$' 2>/dev/null)
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

# Prints the colours of a part of the window, one a line: left, top, width, height.
region() {
    import -silent -window "$window" -crop "${3}x$4+$1+$2" -depth 8 rgb:- |
        od -An -v -tu1 -w3 | awk '{print $1, $2, $3}'
}

# Prints the colour at a place of the window.
pixel() {
    region "$1" "$2" 1 1
}

# Whether one of the colours read is near the given one: each part within 2, or the tolerance.
has_colour() {
    awk -v wanted="$1" -v tolerance="${2:-2}" '
        BEGIN { split(wanted, colour) }
        {
            far = 0
            for (i = 1; i <= 3; ++i) {
                difference = $i - colour[i]
                if (difference < -tolerance || difference > tolerance) far = 1
            }
            if (!far) found = 1
        }
        END { exit !found }'
}

# Whether the colour at a place is near the given one; the tolerance may follow it.
pixel_is() {
    pixel "$1" "$2" | has_colour "${@:3}"
}

# Waits until a place has a colour.
pixel_wait() {
    wait_until pixel_is "$@"
}

# Waits until a place no longer has a colour.
pixel_wait_not() {
    wait_until pixel_is_not "$@"
}

pixel_is_not() {
    ! pixel_is "$@"
}

# Whether a part of the window, given like that of `region`, shows a colour anywhere.
region_has() {
    region "${@:1:4}" | has_colour "${@:5}"
}
