#!/usr/bin/env bash
# A map is made, saved and played, and all nine lessons are won, by keys alone: arrows walk, Enter
# clicks. The mouse rests in the middle of the window.

# shellcheck disable=SC2086 # what is pressed is a list of words

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

# Keys that do nothing, one a frame: so many that a move has ended behind them.
pause=$(printf 'x b %.0s' {1..18})

# Presses keys slowly enough for one that is pressed twice not to count as held.
press() {
    xdotool key --delay 12 "$@"
}

begin() {
    game_start 1024x832
    mouse_move 512 416
    wait_until title_is_shown
}

# The keys of each move.
play() {
    local move
    for move in "$@"; do
        press $move $pause
    done
}

won() {
    wait_until winner_is_shown red
}

# The next lesson of the list.
next() {
    won
    press n
    wait_until board_is_shown
}

end() {
    press Escape Escape
    wait_until title_is_shown
    press Escape
    game_ends_with 0
}

# Leaves a game as it stands before its first turn, with one seat and cards that are always dealt alike.
game_put() {
    {
        printf '%s\n' "quorrel game 1" "family $1" "name $2" "seat human red" "cards 1 4 4 4 8 4"
        echo "chance 63033b0ca389c35a c097314d939736f8 3b92d3f0106bc147 196e4ec2da05b945"
        sed 's/^/| /' "resources/maps/$1/$2"
    } >"$work/player/under_way.quorrel-game"
}

# From the title menu, of its family, to the board of the map that a key chooses in the list.
one_seat_play() {
    press Up Up Up Left Up Return Return Down Down Right Return "$@" Return
    wait_until board_is_shown
}

display_start
say "a pushdown map of six states, its save, a game on it"
begin
press Down Right Return
wait_until board_is_shown
up="shift+Up shift+Up shift+Up shift+Up shift+Up"
left="shift+Left shift+Left shift+Left shift+Left shift+Left"
right="shift+Right shift+Right shift+Right shift+Right shift+Right"
deselect="shift+Return shift+Return"
press $up shift+Up shift+Up shift+Up 1 3 $left 1 $left 1 $up 1 $right 1 $right 1 $deselect
press Down Return Left Return 2 4 shift+8 Return c $deselect
for way in Left Up Right Right Down; do
    press Return $way Return 2 v $deselect
done
press ctrl+s s i x Return
wait_until test -e "$work/player/custom_pushdown_machines/six"
press Escape Left Return
one_seat_play End
play "Left Left Return Right Right Up Right Right Return Left Return" \
    "Left Down Left Return Right Up Right Return Left Return" \
    "Down Return Up Return Up Return" "Down Down Return Up Up Return Right Return"
won
end

say "the lessons of the state machines"
begin
press Up Right Return Return Down Left Return
one_seat_play Home
play "Left Left Return Right Up Return" "Return Right Return" "Return Right Return"
next
play "Left Left Left Left Return Down Return" "Right Return Right Return" "Return Down Return"
next
play "Left Left Left Return Right Return" "Return Right Return" "Return Right Return" \
    "Return Right Return" "Return Right Return"
won
end

say "the lessons of the pushdown machines"
game_put pushdown first_cards
begin
press F4
wait_until board_is_shown
play "Down Left Return Up Return Right Right Return" \
    "Left Down Left Return Right Up Right Right Return Left Return" \
    "Down Return Up Right Return Return" "Down Return Up Right Return Left Return"
next
play "Right Down Right Right Return Up Left Return Left Return" \
    "Right Down Right Right Return Left Left Up Left Return Down Return" \
    "Right Down Return Left Up Return Right Return" "Down Return Up Return Right Return" \
    "Down Left Down Return Up Right Return Down Return"
next
play "Down Down Return Up Left Return Left Return" "Right Return Left Up Return Up Return" \
    "Right Down Right Return Left Up Left Up Return Right Return" \
    "Down Return Up Return Right Return" "Left Down Return Right Return Left Left Return"
won
end

say "the lessons of the turing machines"
game_put turing first_tape
begin
press F4
wait_until board_is_shown
play "Left Up Return Down Return" "Return Return" "Return Return"
next
play "Right Return Return" "Return Return" "Return Return"
next
play "Up Up Return Down Return" "Return Down Return" "Return Right Return" "Return Right Return"
won
end
