# Shared by ./run, ./test and ./bench: installs what is missing and builds. Sourced, never started.
# need KIND...      install the packages of scripts/packages.txt of these kinds that are not there yet
# build PRESET      configure and build with all cores
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
