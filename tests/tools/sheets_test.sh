#!/usr/bin/env bash
# Makes the work sheets of docs/teaching anew and compares them with those that lie there. With
# QUORREL_RECORD set they are replaced.

set -euo pipefail
root=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$root/tools/teaching_sheets" "$folder"
if [ -n "${QUORREL_RECORD:-}" ]; then
    cp "$folder"/* "$root/docs/teaching/sheets"
fi
diff -r "$root/docs/teaching/sheets" "$folder"
