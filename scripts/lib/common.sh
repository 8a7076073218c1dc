# shellcheck shell=bash disable=SC2034
# What every script shares: the source tree's root, messages, one script at a time per tree.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build="$root/build"

say() { printf '== %s\n' "$*"; }
warn() { printf 'warning: %s\n' "$*" >&2; }
die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

is_installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }
have_wine32() { is_installed wine32:i386; }

# The prefix and the build trees serve one script at a time. Long-lived children are started with
# descriptor 9 closed (9>&-), so that the lock ends with the script.
lock_tree() {
    mkdir -p "$build"
    exec 9>"$build/.lock"
    if ! flock -n 9; then
        say "another script is at work in this tree: waiting for it"
        flock 9
    fi
}

session_child=
# Runs a command so that a signal to the script is obeyed at once, not after the command's end.
run_child() {
    "$@" &
    session_child=$!
    local code=0
    wait "$session_child" || code=$?
    session_child=
    return "$code"
}

# One line: processors to use at once.
jobs_at_once() { nproc; }

configure_preset() {
    local preset=$1
    if [ -f "$build/$preset/build.ninja" ]; then return; fi
    (cd "$root" && cmake --preset "$preset" >"$build/$preset.configure.log" 2>&1) ||
        { cat "$build/$preset.configure.log" >&2; die "cannot configure $preset"; }
}

# What builds and checks run under while tests of windows go on: "nice".
beside=()

# Configures when needed and builds one preset; further arguments go to cmake --build.
build_preset() {
    local preset=$1
    shift
    say "building $preset"
    configure_preset "$preset"
    "${beside[@]}" cmake --build "$build/$preset" -j "$(jobs_at_once)" "$@" 9>&- ||
        die "the build of $preset failed"
}
