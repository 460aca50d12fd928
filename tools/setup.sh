# shellcheck shell=bash
# What the project's commands share: packages, locale, configuring and building.
# Sourced from the project's folder by scripts that have "set -euo pipefail".

# Debian packages without which the project is not configured, built or checked.
packages=(
    cmake ninja-build g++
    qt6-base-dev qt6-tools-dev qt6-l10n-tools
    libqt6opengl6-dev qt6-translations-l10n
    libbenchmark-dev
    clang-format clang-tidy locales
    debhelper desktop-file-utils appstream
)
# Packages that only save time. They come along when something is installed, and alone are no
# reason to ask for network and root.
optional_packages=(ccache)

say() { printf '== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        printf 'This needs root, and there is no sudo: %s\n' "$*" >&2
        return 1
    fi
}

# Prints those of the named packages that are not installed.
missing_packages() {
    local package state
    for package in "$@"; do
        state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || true
        [[ $state == installed ]] || printf '%s ' "$package"
    done
}

# Installs what is missing; an installed machine needs neither network nor root.
install_packages() {
    command -v dpkg-query >/dev/null ||
        die "this is no Debian system; install the counterparts of these packages" \
            "and use the CMake presets directly: ${packages[*]}"
    local missing
    missing=$(missing_packages "${packages[@]}")
    [[ -n $missing ]] || return 0

    if command -v apt-get >/dev/null; then
        missing+=$(missing_packages "${optional_packages[@]}")
        say "Installing $missing"
        local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120)
        # shellcheck disable=SC2086 # the list is split into package names
        if ! as_root "${apt[@]}" -qq update </dev/null ||
            ! as_root "${apt[@]}" -qq install -y --no-install-recommends $missing </dev/null; then
            say "The installation failed"
        fi
    fi
    missing=$(missing_packages "${packages[@]}")
    [[ -z $missing ]] || die "these packages are missing and could not be installed: $missing"
}

# Tests of number input run in a locale whose decimal separator is the comma.
generate_german_locale() {
    if ! locale -a | grep -qix 'de_DE\.utf-\?8'; then
        say "Generating the locale de_DE.UTF-8"
        as_root localedef -i de_DE -f UTF-8 de_DE.UTF-8
    fi
}

# configure <preset>: only when that was not done since the presets last changed.
configure() {
    local preset=$1 build_file=build/$1/build.ninja launcher=()
    if [[ -f $build_file && ! CMakePresets.json -nt $build_file ]]; then
        return 0
    fi
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    say "Configuring build/$preset"
    cmake --preset "$preset" "${launcher[@]}"
}

# build <preset> [<target>...]: everything, or the named targets.
build() {
    local preset=$1
    shift
    install_packages
    configure "$preset"
    say "Building ${*:-everything} in build/$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
