#!/usr/bin/env bash
# What is printed on the keys is what they type, on keyboards of several countries: the name under
# which a map is saved is typed by pressing keys by their numbers.

# shellcheck disable=SC2086 # places and sizes are lists of words

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source "$(dirname "${BASH_SOURCE[0]}")/screens.sh"

typed="~!&|^*(),aB7"
# The keys for it: a number alone, with shift (S) or with the key that chooses characters (G).
declare -A keyboards=(
    [us]="S49 S10 S16 S51 S15 S17 S18 S19 59 38 S56 16"
    [de]="G35 S10 S15 G94 49 65 S35 S17 S18 59 38 S56 16"
    [fr]="G11 65 61 10 G15 G18 51 14 20 58 24 S56 S16"
    [es]="G13 65 S10 S15 G10 S34 65 S35 S17 S18 59 38 S56 16"
    ["us dvorak"]="S49 S10 S16 S51 S15 S17 S18 S19 25 38 S57 16"
    [ru]="S49 S10 S16 S51 S15 S17 S18 S19 59 38 S56 16"
)

key_press() {
    case $1 in
        S*) xdotool keydown 50 key --delay 0 "${1#S}" keyup 50 ;;
        G*) xdotool keydown 108 key --delay 0 "${1#G}" keyup 108 ;;
        *) xdotool key --delay 0 "$1" ;;
    esac
}

# Saves the map under a name that a command types, and expects the program to say the name.
name_typed() {
    names+=("saving map $1 ")
    setxkbmap us
    settle
    keys ctrl+s
    "${@:2}"
    settle
    keys Return
    wait_until names_are_said
}

names=()
names_are_said() {
    [ "$(grep -Fc "${names[-1]}" "$output")" -eq \
        "$(printf '%s\n' "${names[@]}" | grep -Fxc "${names[-1]}")" ]
}

# Takes a keyboard and presses keys of it.
keys_press() {
    local key
    settle # the keys before were those of the other keyboard
    setxkbmap $1
    settle
    for key in "${@:2}"; do
        key_press "$key"
    done
}

picture() {
    import -silent -window "$window" rgb:- | sha1sum
}

# Whether the board does not move: the key d moves it.
board_stands() {
    local before
    before=$(picture)
    sleep 0.3
    [ "$(picture)" = "$before" ]
}

board_moves() {
    ! board_stands
}

# Whether the window of this name has the focus.
has_keys() {
    [ "$(xdotool getwindowfocus getwindowname 2>/dev/null)" = "$1" ]
}

export LC_ALL=C.UTF-8
display_start
game_start 1024x832
wait_until title_is_shown
push editor
wait_until board_is_shown
mouse_aside
for keyboard in "${!keyboards[@]}"; do
    say "keyboard: $keyboard"
    name_typed "$typed" keys_press "$keyboard" ${keyboards[$keyboard]}
done
name_typed aBc keys a Caps_Lock b Caps_Lock c

say "both shift keys count as one; a key without a symbol is none"
both_shifts() {
    xdotool keydown 50 keydown 62 key --delay 0 38 keyup 50 key --delay 0 56 keyup 62 key --delay 0 247 54
}
name_typed ABc both_shifts

say "a key that is held while another window has the keys is let go of"
keys 1
wait_until board_stands
xdotool keydown d
wait_until board_moves
xev &>/dev/null &
pids+=($!)
wait_until has_keys "Event Tester"
xdotool keyup d
wait_until board_stands
kill "${pids[-1]}"
wait_until has_keys Quorrel
wait_until board_stands
keys Escape
wait_until title_is_shown
keys Escape
game_ends_with 0
