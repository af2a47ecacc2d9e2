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

# A separate session: Ctrl+C must reach only the program, which still needs its screen. The server chooses its number,
# since only it finds numbers that servers outside this file system use.
virtual_screen() {
    local answer
    answer=$(mktemp)
    setsid Xvfb -displayfd 3 -screen 0 "$1x24" 3>"$answer" >/dev/null 2>&1 &
    screen=$!
    for _ in $(seq 100); do
        [ ! -s "$answer" ] || break
        sleep 0.05
    done
    screen_name=":$(cat "$answer")"
    rm "$answer"
    [ "$screen_name" != : ] && return
    kill "$screen" 2>/dev/null || true
    say "The virtual screen does not start."
    exit 1
}
