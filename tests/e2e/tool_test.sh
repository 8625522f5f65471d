#!/usr/bin/env bash
# quorrel_maps finds the player's maps and the game's own from wherever it is started, and takes no
# folder of that name for the game's.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

tool=$(realpath "$(dirname "${QUORREL_PROGRAM:-build/test/quorrel}")/quorrel_maps")
root=$PWD
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_DATA_HOME="$work/data"
unset ASAN_OPTIONS
mkdir -p "$work/home/resources"
printf 'map 0 0 128\nhand 2\nstone 0\n. 0 0\n=> 0 0 0 0 0 "A"\n' >"$work/mine.quorrel"

say "maps are taken in where the game's own data lies"
"$tool" add "$work/mine.quorrel"
[ -z "$(find custom_* 2>/dev/null)" ] || fail "a map came into the game's own data"

for place in "$root" "$work/data/quorrel" "$work/home" /; do
    say "from $place"
    cd "$place"
    [ "$("$tool" list)" = "pushdown mine custom_pushdown_machines/mine" ] || fail "$("$tool" list)"
    for map in mine first_cards custom_pushdown_machines/mine resources/maps/pushdown/first_cards; do
        "$tool" draw "$map" >"$work/said" 2>&1 || fail "$map: $(cat "$work/said")"
        ! grep -q failed "$work/said" || fail "$map: $(grep failed "$work/said")"
    done
done

say "without standard streams"
"$tool" add "$work/mine.quorrel" --family turing <&- >&- 2>&- || true
grep -q '^mine ' "$work/data/quorrel/resources/turing_maps.txt" || fail "the map is not listed"
