#!/usr/bin/env bash
# Every system call of a save, of a deletion, of a map that is left and of one that is taken in failed
# and killed in turn, on the real programs: the map's file and the list stay whole, and what goes is
# kept. QUORREL_FAULTS=all tries every call, else a few are tried.

source "$(dirname "${BASH_SOURCE[0]}")/harness.sh"
source tests/e2e/screens.sh

stride=17
[ "${QUORREL_FAULTS:-}" != all ] || stride=1
calls=open,openat,mkdir,access,newfstatat,fstat,umask,flock,fchmod,lseek,read,write,fsync
calls+=,utimensat,linkat,rename,unlink,close
player="$work/player"
folder="$player/custom_pushdown_machines"
list="$player/resources/pushdown_maps.txt"
export ASAN_OPTIONS=detect_leaks=0 # which a traced program cannot
tool="$(dirname "$program")/quorrel_maps"
home="$work/home" # a player's directory that is made anew for every act of two programs

# Starts the game on its editor.
editor_start() {
    game_start 1024x832
    wait_until title_is_shown
    push editor
    pixel_wait 512 8 "$band"
}

game_end() {
    kill -KILL "$game" 2>/dev/null || true
    wait "$game" 2>/dev/null || true
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

# An act is prepared for a name, which may be done in a game that goes on; done while the game is
# traced; seen to be done; and looked at afterwards.

# A map of one state is saved under the name of a file that holds "old" and of no entry on the list.
save_prepare() {
    local i
    ! game_ended || editor_start
    mouse_move 300 300
    keys 1
    settle
    mkdir -p "$folder"
    echo old >"$folder/$1"
    keys ctrl+s
    for ((i = 0; i < ${#1}; ++i)); do
        keys "${1:i:1}"
    done
}

save_do() {
    keys Return
}

save_is_done() {
    grep -q "^$1 " "$list"
}

# The file is the old or the new one whole, the old one is kept before it goes, and no line of the
# list is torn or lost.
save_check() {
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

# The first map of the list is deleted, in a game that knows no other list.
delete_prepare() {
    game_end
    printf '# %s\nmap 0 0 128\n. 1 1\n' "$1" >"$player/maps/$1"
    printf '%s\n' "$1 maps/$1" 'base maps/base' >"$list"
    editor_start
    keys ctrl+o
    pixel_wait 120 20 "$panel"
    settle
}

delete_do() {
    click 816 752
}

delete_is_done() {
    ! grep -q "^$1 " "$list"
}

# The list is the old or the new one, the map is in its file or kept, and the other one is untouched.
delete_check() {
    cmp -s "$list" <(printf '%s\n' "$1 maps/$1" 'base maps/base') ||
        cmp -s "$list" <(echo 'base maps/base') || fail "the list is torn after: $fault"
    grep -qxs "# $1" "$player/maps/$1" "$player/kept/$1".* ||
        fail "$1 is lost after: $fault"
    grep -qx 'hand 2' "$player/maps/base" || fail "the other map is gone after: $fault"
    rm -rf "$player/kept" "$player/maps/$1"
}

# A new map is left with Escape while kept/ has an earlier one.
leave_prepare() {
    if game_ended; then
        editor_start
    else
        push editor
        pixel_wait 512 8 "$band"
    fi
    rm -rf "$player/kept"
    mkdir "$player/kept"
    echo "# $1" >"$player/kept/$1.pushdown.2026-01-01_00-00-00"
    mouse_move 300 300
    keys 1
    settle
}

leave_do() {
    keys Escape
}

leave_is_done() {
    kept_has 'map 0 0 1'
}

# The earlier map stays, none is torn, and what could not be kept at first is kept at the end.
leave_check() {
    local torn
    grep -qx "# $1" "$player/kept/$1".* || fail "the earlier map is gone after: $fault"
    torn=$(grep -Lx -e "# $1" -e 'map 0 0 1' "$player/kept/"*)
    [ -z "$torn" ] || fail "$torn is torn after: $fault"
    if [[ $fault = *failing ]]; then
        kill "$game"
        game_ends_with 0
        leave_is_done || fail "the map is lost after: $fault"
    fi
}

# Does an act on a name under strace with these options, until it is done or the game has settled.
act_try() {
    "$1_prepare" "$2"
    trace_start "${@:4}"
    "$1_do"
    "$3" "$1" "$2"
    trace_end
    "$1_check" "$2"
}

settled() {
    settle
}

killed_or_done() {
    wait_until eval "game_ended || $1_is_done $2"
}

# Fails and kills every call of an act.
faults_try() {
    local act=$1 number call nth faults tried=0
    say "the system calls of a $act"
    fault=none
    act_try "$act" m0 settled
    "${act}_is_done" m0 || fail "there was no $act"
    mapfile -t faults < <(grep -o '^[a-z0-9]*' "$work/trace" | sort | uniq -c |
        awk '{ for (i = 1; i <= $1; ++i) print $2 " " i }')
    say "${#faults[@]} calls"
    for ((number = 0; number < ${#faults[@]}; number += stride)); do
        read -r call nth <<<"${faults[number]}"
        fault="$call $nth failing"
        act_try "$act" "m${number}0" settled -e "inject=$call:error=ENOSPC:when=$nth"
        fault="$call $nth killed"
        act_try "$act" "m${number}1" killed_or_done -e "inject=$call:signal=KILL:when=$nth"
        game_end
        tried=$((tried + 2))
    done
    say "$tried faults injected, nothing lost"
}

# Two programs of one player start for the first time and take in different maps of the same name,
# the first program under strace with these options.
import_try() {
    rm -rf "$home"
    strace -qq -o "$work/trace" -e trace="$calls" "$@" \
        "$tool" add --family turing --directory "$home" "$work/one/twin" &>"$work/said" &
    local first=$!
    "$tool" add --family turing --directory "$home" "$work/two/twin" >/dev/null
    wait "$first" && ! grep -q failed "$work/said" && sound=yes || sound=
    import_check
}

# The list has what ships and the map of the second program, which had no fault; that of the first,
# unless it failed. No map is torn.
import_check() {
    local file
    grep -v custom_turing_machines "$home/resources/turing_maps.txt" |
        cmp -s - resources/turing_maps.txt || fail "the list is torn after: $fault"
    import_has two || fail "the map of the other program is lost after: $fault"
    [ -z "$sound" ] || import_has one || fail "the map is lost after: $fault"
    for file in "$home"/custom_turing_machines/*; do
        cmp -s "$file" "$work/one/twin" || cmp -s "$file" "$work/two/twin" ||
            fail "$file is torn after: $fault"
    done
}

# Whether the list names a file that holds this one of the two maps.
import_has() {
    local name path
    while read -r name path; do
        ! cmp -s "$work/$1/twin" "$home/$path" || return 0
    done <"$home/resources/turing_maps.txt"
    return 1
}

# The first program waits before it puts its list in place, and then its map; after that each of its
# calls fails and kills it, but for those that lock.
imports_try() {
    local name when number call nth faults effect
    say "two first starts that take in maps of one name"
    for name in one two; do
        mkdir "$work/$name"
        printf '# %s\ntape 4\n. 0 0\n' "$name" >"$work/$name/twin"
    done
    for when in 5 7; do
        fault="rename $when delayed"
        import_try -e inject=rename:delay_enter=500000:when="$when"
    done
    mapfile -t faults < <(awk -F'(' -v home="$home" '
        index($0, home) { begun = 1 }
        { nth[$1] += 1 }
        begun && /^[a-z]/ && !/quorrel_lock|^flock/ { print $1, nth[$1] }' "$work/trace")
    say "${#faults[@]} calls"
    for ((number = 0; number < ${#faults[@]}; number += stride)); do
        read -r call nth <<<"${faults[number]}"
        for effect in error=ENOSPC signal=KILL; do
            fault="$call $nth, $effect"
            import_try -e "inject=$call:$effect:when=$nth"
        done
    done
}

display_start
packages_install strace
imports_try
player_make
mkdir "$player/maps"
printf 'map 0 0 128\nhand 2\n. 0 0\n' >"$player/maps/base"
echo 'base maps/base' >"$list"
editor_start
faults_try save
faults_try delete
faults_try leave
game_end
editor_start
[ -z "$(find "$player" -name '.quorrel-*')" ] || fail "temporary files stay"
