# What the scripts share. Sourced; leaves the project's root as working directory.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build_packages=(g++ cmake ninja-build pkg-config libsdl2-dev libepoxy-dev libx11-dev libdbus-1-dev
    libpng-dev zlib1g-dev libgl1-mesa-dri libdecor-0-plugin-1-cairo)
# To drive the program on virtual displays, with window managers of both kinds and on Wayland.
window_packages=(xvfb xdotool x11-utils x11-xkb-utils x11-xserver-utils
    imagemagick openbox dwm weston)
apt_patience=120 # seconds

say() {
    echo "== $*"
}

fail() {
    echo "error: $*" >&2
    exit 1
}

# Runs a command as root.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "this needs root: $*"
    fi
}

# The given Debian packages that are not installed.
packages_missing() {
    comm -23 <(printf '%s\n' "$@" | sort) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
            sed -n 's/^installed //p' | sort)
}

# Runs apt-get, which waits for another one to end.
apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout="$apt_patience" "$@"
}

# Brings apt's lists up to date. Their lock is the one that apt itself does not wait for.
apt_update() {
    local said end=$((SECONDS + apt_patience))
    until said=$(apt_get update 2>&1); do
        [[ $said = */lists/lock* && $SECONDS -lt $end ]] || fail "$said"
        sleep 1
    done
}

# Installs those of the given Debian packages that are missing.
packages_install() {
    if ! command -v apt-get >/dev/null; then
        say "no apt-get here: taking these as installed: $*"
        return
    fi
    local missing
    mapfile -t missing < <(packages_missing "$@")
    if [ "${#missing[@]}" -eq 0 ]; then
        return
    fi
    say "installing ${missing[*]}"
    apt_update
    apt_get install -y --no-install-recommends "${missing[@]}"
}

# Configures and builds a preset of CMakePresets.json.
preset_build() {
    say "building the $1 preset"
    cmake --preset "$1"
    cmake --build --preset "$1"
}

# Starts a virtual display of the given size on a free number and points DISPLAY to it; it ends with
# this script.
virtual_display_start() {
    local number output log
    log=$(mktemp)
    # A number is free when a server can lock it. Without -noreset the server would start over,
    # and turn clients away meanwhile, whenever its last client leaves.
    for number in {90..129}; do
        exec {output}< <(
            exec setsid Xvfb ":$number" -displayfd 1 -screen 0 "$1x24" -noreset -nolisten tcp \
                2>"$log"
        )
        virtual_display=$!
        if read -r <&"$output"; then
            trap 'kill "$virtual_display" 2>/dev/null || true' EXIT
            rm "$log"
            unset WAYLAND_DISPLAY
            export DISPLAY=":$number"
            return
        fi
    done
    fail "Xvfb does not start: $(tail -n 1 "$log")"
}
