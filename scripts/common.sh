# What ./run and ./test share. Sourced with the repository's root as the working folder.
# shellcheck shell=bash

# shellcheck source=scripts/packages.sh
source scripts/packages.sh

say() { printf '%s\n' "$*"; }

fail()
{
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# Runs a command as root: as it is for root, else through sudo or su, whichever the machine has.
as_root()
{
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    elif command -v su >/dev/null; then
        su -c "$(printf '%q ' "$@")"
    else
        fail "only root can install packages, and this machine has neither sudo nor su. As root: $*"
    fi
}

# missing_packages PACKAGE... prints those that are not installed, one a line.
missing_packages()
{
    local package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            printf '%s\n' "$package"
        fi
    done
}

# install_missing PACKAGE... installs what is missing and asks for root only then.
install_missing()
{
    if ! command -v dpkg-query >/dev/null; then
        say "This is not a Debian system. Needed here under its own package names: $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if [ "${#missing[@]}" -eq 0 ]; then
        return
    fi
    say "To be installed: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        say "Only root can install packages; the password that is asked for now is for that."
    fi
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
    as_root "${apt[@]}" update || say "The package lists could not all be renewed; going on with those at hand."
    as_root "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...] configures and builds one of CMakePresets.json; without a target, everything.
build()
{
    local preset=$1
    shift
    cmake --preset "$preset" -Wno-dev
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

# lay_out PROGRAMS FOLDER puts the program into a folder, which becomes the one that holds its databases. Every client
# starts it from there over the network, so what only a debugger reads stays in the build. The program is there whole or
# as it was before: a client may start it at any moment.
lay_out()
{
    local built=$1/tallyboard laid_out=$2/tallyboard
    mkdir -p "$2"
    strip -o "$built.stripped" "$built"
    if ! cmp -s "$built.stripped" "$laid_out"; then
        install -m 755 "$built.stripped" "$laid_out.new" || { rm -f "$laid_out.new"; fail "$2 does not take the program."; }
        mv -f "$laid_out.new" "$laid_out"
    fi
}

# run_tour PROGRAMS FOLDER sets up a new school and goes through a sample school; pictures and workbooks go to FOLDER.
run_tour()
{
    local programs=$1 folder=$2 school
    school=$(mktemp -d)
    "$programs/tally-sample" "$school"
    rm -rf "$folder"
    mkdir -p "$folder"
    local status=0
    XDG_RUNTIME_DIR=$school QT_QPA_PLATFORM=offscreen "$programs/tally-tour" "$school" "$folder" || status=$?
    rm -rf "$school"
    return "$status"
}
