#!/usr/bin/env bash
# Every system call of a save failed and killed in turn, on the real program: the map's file and the
# list stay whole, and what the save replaced is kept. QUORREL_FAULTS=all tries every call, else a few
# are tried.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

stride=17
[ "${QUORREL_FAULTS:-}" != all ] || stride=1
calls=open,openat,mkdir,access,newfstatat,fstat,umask,flock,fchmod,lseek,read,write,fsync
calls+=,utimensat,linkat,rename,unlink,close
player="$work/player"
folder="$player/custom_pushdown_machines"
list="$player/resources/pushdown_maps.txt"

# Starts the game on its editor with a map of one state.
editor_start() {
    game_start 1024x832
    wait_until title_is_shown
    push editor
    pixel_wait 512 8 "$band"
    edit
}

edit() {
    mouse_move 300 300
    keys 1
    settle
}

# Saves the map under a name of a file that holds "old" and of no entry on the list.
save() {
    mkdir -p "$folder"
    echo old >"$folder/$1"
    keys ctrl+s
    for letter in $(grep -o . <<<"$1"); do
        keys "$letter"
    done
    "${@:2}"
    keys Return
}

# Attaches strace with these options to the game.
trace_start() {
    strace -qq -o "$work/trace" -e trace="$calls" "$@" -p "$game" &
    tracer=$!
    wait_until grep -q 'TracerPid:[[:space:]]*[1-9]' "/proc/$game/status"
}

trace_end() {
    kill -INT "$tracer" 2>/dev/null || true
    wait "$tracer" || true
}

kept_has() {
    cat "$player/kept/"* 2>/dev/null | grep -qx "$1"
}

# After a save of the map $1: its file is the old or the new one whole, the old one is kept before
# it goes, and no line of the list is torn or lost.
check() {
    if ! grep -qx old "$folder/$1"; then
        grep -qx 'map 0 0 1' "$folder/$1" && tail -c 1 "$folder/$1" | cmp -s - <(echo) ||
            fail "$1 is torn after: $fault"
        kept_has old || fail "the earlier $1 is lost after: $fault"
    fi
    ! grep -Evx 'base maps/base|m[0-9]+ custom_pushdown_machines/m[0-9]+' "$list" ||
        fail "the list is torn after: $fault"
    grep -qx 'base maps/base' "$list" || fail "the list lost its map after: $fault"
    rm -rf "$player/kept"
}

game_killed() {
    wait "$game" 2>/dev/null || true
}

display_start
packages_install strace
player_make
mkdir "$player/maps"
printf 'map 0 0 128\nhand 2\n. 0 0\n' >"$player/maps/base"
echo 'base maps/base' >"$list"

say "the system calls of a save"
editor_start
save m0 trace_start
settle
trace_end
fault=none
check m0
grep -qx 'm0 custom_pushdown_machines/m0' "$list" || fail "m0 is not listed"
mapfile -t faults < <(grep -o '^[a-z0-9]*' "$work/trace" | sort | uniq -c |
    awk '{ for (i = 1; i <= $1; ++i) print $2 " " i }')
say "${#faults[@]} calls"

tried=0
for ((number = 0; number < ${#faults[@]}; number += stride)); do
    read -r call nth <<<"${faults[number]}"
    fault="$call $nth failing"
    save "m${number}0" trace_start -e "inject=$call:error=ENOSPC:when=$nth"
    settle
    trace_end
    check "m${number}0"
    edit
    fault="$call $nth killed"
    save "m${number}1" trace_start -e "inject=$call:signal=KILL:when=$nth"
    wait_until eval 'game_ended || grep -q "m'$number'1 " "$list"'
    trace_end
    kill -KILL "$game" 2>/dev/null || true
    game_killed
    check "m${number}1"
    tried=$((tried + 2))
    editor_start
done
[ -z "$(find "$player" -name '.quorrel-*')" ] || fail "temporary files stay"
say "$tried faults injected, nothing lost"
