# What ./run and ./test share. Sourced, with the repository's root as working directory.

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

missing_packages() {
    local package
    while read -r package; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            printf '%s\n' "$package"
    done < <(sed 's/#.*//; /^[[:space:]]*$/d' "$@" | sort -u)
}

# Installs what is missing of the lists given, saying what.
install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    command -v apt-get >/dev/null ||
        die "These Debian packages are missing, and there is no apt-get to install them: ${missing[*]}"

    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q)
    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            die "These packages are missing; install them as root, or install sudo: ${missing[*]}"
        apt=(sudo "${apt[@]}")
    fi
    say "Installing: ${missing[*]}"
    "${apt[@]}" update || die "apt-get update failed."
    "${apt[@]}" install -y --no-install-recommends "${missing[@]}" || die "apt-get install failed."
}

has_sequencer() { [[ -c /dev/snd/seq ]] && (: <>/dev/snd/seq) 2>/dev/null; }

# Packages for the emulated machine, where this one has no sequencer.
install_everything() {
    local lists=(scripts/packages.txt)
    has_sequencer || lists+=(tests/sequencer/packages)
    install_packages "${lists[@]}"
}

# Configures where needed and builds everything, quietly when all is well.
build() {
    local log=build/build.log
    mkdir -p build
    say "Building (build/release; the first time takes some minutes)..."
    { cmake --preset release && cmake --build --preset release; } >"$log" 2>&1 ||
        { tail -n 60 "$log" >&2; die "The build failed; all of its output is in $log."; }
}
