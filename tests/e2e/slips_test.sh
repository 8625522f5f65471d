#!/usr/bin/env bash
# The slips that could cost a player's work, on the real program: after each one the work is in its
# file or in kept/. QUORREL_FAULTS=all ends the program by signals on every screen too.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh


# Where the machine allows it, the player's directory is a disk of its own, seen by this test alone.
if [ "${1:-}" != inside ]; then
    mounting=(unshare --mount)
    [ "$(id -u)" -eq 0 ] || mounting+=(--map-root-user)
    ! "${mounting[@]}" true || exec "${mounting[@]}" bash "$0" inside
fi

player="$work/player"
folder="$player/custom_pushdown_machines"
list="$player/resources/pushdown_maps.txt"

# From the title menu: the editor with a map of one state, whose line makes it known again.
edit_new() {
    push editor
    pixel_wait 512 8 "$band"
    column=$((${column:-0} + 32))
    keys r # ctrl+s moved the camera
    mouse_move $((320 + column)) 288
    keys 1
    settle
    state=". $((column - 192)) 128"
}

# Saves under a name given by keys.
save() {
    keys ctrl+s "$@" Return
    settle
}

leave() {
    keys Escape
    wait_until title_is_shown
}

kept_has() {
    grep -qx "$1" "$player/kept/"* 2>/dev/null
}

expect_kept() {
    wait_until kept_has "$1"
    say "kept: $1"
}

disk_fill() {
    if mountpoint -q "$player"; then
        cat /dev/zero >"$player/filler" 2>/dev/null || true
    else
        prlimit --pid "$game" --fsize=0:
    fi
}

disk_free() {
    rm -f "$player/filler"
    prlimit --pid "$game" --fsize=unlimited:
}

# Whether the list has that many lines.
list_has() {
    [ "$(wc -l <"$list")" -eq "$1" ]
}

display_start
mkdir "$player"
mount -t tmpfs -o size=32m none "$player" || say "no disk can be mounted: no file may grow instead"
player_make
mkdir "$player/maps"
printf '# the base\nmap 0 0 128\n. 0 0\n' >"$player/maps/base"
{
    echo 'base maps/base'
    seq -f 'number_%08g maps/base' 170000
} >"$list"
game_start 1024x832
wait_until title_is_shown

say "Escape, also while something is typed"
edit_new
leave
expect_kept "$state"
edit_new
click $((320 + column)) 288 # the state again: an arrow back to it
keys 2
click 608 48 # change rule
keys shift+a
settle
leave
expect_kept "$state"
kept_has '=> 0 0 0 0 0 ""' || fail "the arrow of the unfinished rule is gone"

say "opening another map"
edit_new
keys ctrl+o
settle
expect_kept "$state"

say "deleting a map on a full disk"
disk_fill
click 816 752
wait_until test ! -e "$player/maps/base"
expect_kept "# the base"
disk_free
for _ in 1 2; do
    keys Escape
    settle
done

say "saving under a name of the same file; an unchanged map is not kept again"
edit_new
earlier=$state
save a minus
leave
edit_new
save a underscore
expect_kept "$earlier"
grep -qx "$state" "$folder/a_" || fail "a_ was not saved"
leave
wait_until list_has 170002
! kept_has "$state" || fail "a saved map was kept"

say "a full disk, one that cannot be written, and folders that vanish"
edit_new
disk_fill
save b
disk_free
if mountpoint -q "$player"; then
    mount -o remount,ro "$player"
    save b
    mount -o remount,rw "$player"
fi
[ ! -e "$folder/b" ] || fail "a file stayed on a disk that takes none"
rm -r "$folder" "$player/kept"
kill -XFSZ "$game"
save b
grep -qx "$state" "$folder/b" || fail "b was not saved"
leave

say "left on a full disk: kept once there is room"
edit_new
disk_fill
leave
wait_until eval '[[ $(xdotool getwindowname "$window") = *"failed to keep map: unnamed" ]]'
! kept_has "$state" || fail "the disk was not full"
disk_free
expect_kept "$state"

for ending in TERM HUP QUIT window; do
    say "the end by $ending"
    edit_new
    if [ "$ending" = window ]; then
        keys alt+F4
    else
        kill "-$ending" "$game"
    fi
    game_ends_with 0
    expect_kept "$state"
    game_start 1024x832
    wait_until title_is_shown
done

say "no standard streams"
kill "$game"
game_ends_with 0
printf '#!/bin/sh\nexec "%s" <&- >&- 2>&-\n' "$program" >"$work/without_streams"
chmod +x "$work/without_streams"
program="$work/without_streams" game_start 1024x832
wait_until title_is_shown
edit_new
save e
leave
grep -qx "$state" "$folder/e" || fail "e was not saved"
kill "$game"
game_ends_with 0
game_start 1024x832
wait_until title_is_shown

say "two games at once"
edit_new
first=$game
first_display=$DISPLAY
first_window=$window
first_virtual_display=$virtual_display
virtual_display_start "$screen_size"
pids+=("$first_virtual_display")
trap clean_up EXIT
output="$work/second"
game_start 1024x832
wait_until title_is_shown
edit_new
save c
DISPLAY=$first_display window=$first_window save d
for name in b c d; do
    grep -qx "$name custom_pushdown_machines/$name" "$list" || fail "$name is not on the list"
done
wait_until list_has 170006
kill "$first" "$game"
game_ends_with 0
game=$first game_ends_with 0

[ "${QUORREL_FAULTS:-}" = all ] || exit 0
for screen in "" play_game "play_game seats_ok" "play_game seats_ok map_play" editor; do
    for ending in TERM HUP; do
        say "the end by $ending after: ${screen:-the start}"
        game_start 1024x832
        wait_until title_is_shown
        for button in $screen; do
            push "$button"
            settle
        done
        kill -XFSZ "$game"
        settle
        kill "-$ending" "$game"
        game_ends_with 0
    done
done
