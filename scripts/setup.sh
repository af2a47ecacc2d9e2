# Shared by the scripts of this tree: installs packages, builds, starts a virtual screen. Sourced, never run.
# need KIND...             install the missing packages of these kinds from scripts/packages.txt
# build PRESET             configure and build with all cores
# virtual_screen SIZE      start an X server; $screen is its process, $screen_name the value for DISPLAY
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"

say() { printf '%s\n' "$*" >&2; }

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else say "Please run as root or install sudo: $* needs it."; exit 1
    fi
}

need() {
    local kind package wanted missing=()
    for kind in "$@"; do
        for wanted in $(awk -v kind="$kind" '!/^#/ && $2 == kind { print $1 }' scripts/packages.txt); do
            package=$(dpkg-query -W -f='${Status}' "$wanted" 2>/dev/null || true)
            [[ $package == *"install ok installed"* ]] || missing+=("$wanted")
        done
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing: ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
}

build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >&2
    cmake --build --preset "$preset" --parallel "$(nproc)" "$@" >&2
}

# A separate session: Ctrl+C must reach only the program, which still needs its screen.
virtual_screen() {
    local number=90
    while [ -e "/tmp/.X11-unix/X$number" ]; do number=$((number + 1)); done
    setsid Xvfb ":$number" -screen 0 "$1x24" >/dev/null 2>&1 &
    screen=$! screen_name=":$number"
    for _ in $(seq 100); do
        [ -e "/tmp/.X11-unix/X$number" ] && return
        sleep 0.05
    done
    say "The virtual screen $screen_name does not start."
    exit 1
}
