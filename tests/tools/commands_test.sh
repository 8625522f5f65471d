#!/usr/bin/env bash
# Runs the lines of commands.golden that begin with "$ ", one after the other in an empty directory,
# and compares what they say, on both streams, and their exit status where it is not 0. With
# QUORREL_RECORD set the answers are written anew.

set -euo pipefail
golden=$(realpath "$(dirname "${BASH_SOURCE[0]}")/commands.golden")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_DATA_HOME=$folder/data
quorrel_maps() { "$QUORREL_MAPS" "$@"; }

mkdir "$folder/here"
cd "$folder/here"
grep '^[$#]' "$golden" | while IFS= read -r line; do
    echo "$line"
    [[ $line == \$* ]] || continue
    status=0
    (eval "${line#$ }") </dev/null 2>&1 || status=$?
    [ "$status" -eq 0 ] || echo "= $status"
done | sed "s|$folder|FOLDER|g" >"$folder/said"

if [ -n "${QUORREL_RECORD:-}" ]; then
    cp "$folder/said" "$golden"
fi
diff "$golden" "$folder/said"
