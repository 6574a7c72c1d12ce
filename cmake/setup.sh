# Sourced by run and test, from the root of the repository: installs what is missing and builds.

say() { printf '%s\n' "$*" >&2; }

# install_packages [further packages...]: installs the Debian packages of cmake/packages.txt, and those
# named, that are not there yet.
install_packages() {
    local missing=() package as_root=()
    while read -r package; do
        [ -n "$package" ] || continue
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$package")
    done < <(cat cmake/packages.txt; printf '%s\n' "$@")
    [ ${#missing[@]} -eq 0 ] && return 0
    say "Installing: ${missing[*]}"
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# build FOLDER [cmake options...] [-- targets...]: configures once and builds; quiet unless it fails.
build() {
    local folder=$1 log
    shift
    local options=() targets=()
    while [ $# -gt 0 ] && [ "$1" != -- ]; do options+=("$1"); shift; done
    [ $# -gt 0 ] && { shift; targets=("$@"); }
    log=$folder/build.log
    mkdir -p "$folder"
    say "Building in $folder (the first time takes a few minutes) ..."
    if ! { cmake -S . -B "$folder" -G Ninja "${options[@]}" &&
           cmake --build "$folder" ${targets[@]:+--target "${targets[@]}"}; } > "$log" 2>&1; then
        grep -nE -A6 'error|FAILED' "$log" | head -60 >&2
        say "The build failed; the whole log is $log"
        return 1
    fi
}
