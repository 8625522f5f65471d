# What the measurements on a desktop share. Sourced; leaves the project's root as working directory.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

build=$(realpath build/bench)
work=$(mktemp -d)
trap 'kill "${program_id:-}" "${virtual_display:-}" 2>/dev/null || true; rm -rf "$work"' EXIT

# A display, and a folder to play in as working directory.
window_open() {
    cp -r resources "$work/"
    virtual_display_start 1280x1024
    trap 'kill "${program_id:-}" "${virtual_display:-}" 2>/dev/null || true; rm -rf "$work"' EXIT
    cd "$work"
    export HOME=$work
}

program_start() {
    "$@" >"$work/output" 2>/dev/null &
    program_id=$!
}

program_stop() {
    kill "$program_id" 2>/dev/null || true
    wait "$program_id" 2>/dev/null || true
}

click() {
    xdotool mousemove "$1" "$2" click 1
    sleep 0.5
}

# From the title to a screen; the board is that of the first pushdown map. The pointer then lies where
# it points at nothing.
screen_open() {
    case $1 in
        title | help) ;;
        editor | dialog) click $((128 + 816)) $((96 + 752)) ;;
        *) click $((128 + 512)) $((96 + 752)) ;;
    esac
    case $1 in
        help) xdotool key F1 ;;
        dialog) xdotool key ctrl+s ;;
        list | board) click $((128 + 512)) $((96 + 768)) ;;
    esac
    [ "$1" != board ] || click $((128 + 512)) $((96 + 752))
    xdotool mousemove 640 400
    sleep 2
}
