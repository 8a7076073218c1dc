# shellcheck shell=bash disable=SC2154
# A private Wine session: prefix, display, window manager and server, all ended with the script.
# Source after common.sh; call start_wine_session once a process.

prefix="$build/wine"
session_pids=()

export WINEPREFIX="$prefix" WINEARCH=win64 WINEDEBUG=-all
# No downloads of .NET and a browser engine, and no menu entries in the user's own desktop.
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
unset WAYLAND_DISPLAY DISPLAY XAUTHORITY

end_wine_session() {
    set +e
    trap - EXIT
    trap '' INT TERM HUP  # a second signal would leave the display behind
    if [ -n "$session_child" ]; then kill "$session_child" 2>/dev/null; fi
    if [ -d "$prefix" ]; then
        wineserver -k >/dev/null 2>&1
        timeout -s KILL 10 wineserver -w >/dev/null 2>&1
    fi
    local pid
    for pid in "${session_pids[@]}"; do kill "$pid" 2>/dev/null; done
    for pid in "${session_pids[@]}"; do wait "$pid" 2>/dev/null; done
}

start_display() {
    local answer="$prefix.display" log="$prefix.xvfb.log"
    : >"$answer"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset \
        3>"$answer" >"$log" 2>&1 9>&- &
    local pid=$! tries=0
    session_pids=("$pid" "${session_pids[@]}")
    until [ -s "$answer" ]; do
        kill -0 "$pid" 2>/dev/null || { cat "$log" >&2; die "Xvfb did not start"; }
        [ $((tries += 1)) -le 200 ] || die "Xvfb did not answer within 10 seconds"
        sleep 0.05
    done
    DISPLAY=":$(tr -d "[:space:]" <"$answer")"
    export DISPLAY
    HOME="$build" openbox --sm-disable >"$prefix.openbox.log" 2>&1 9>&- &
    session_pids=($! "${session_pids[@]}")
}

# What a prefix holds follows from this file, Wine's version and whether 32 bits are there.
prefix_recipe() {
    local bits=64
    if have_wine32; then bits=32+64; fi
    {
        cat "$root/scripts/lib/wine.sh" "$root/scripts/lib/prefix.reg"
        dpkg-query -W -f '${Version}' wine64
        echo "$bits"
    } | sha256sum | cut -d' ' -f1
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# Both views of the registry, because some keys differ between 32 and 64 bits.
import_registry_file() {
    local file
    file=$(windows_path "$1")
    if have_wine32; then wine reg import "$file" >/dev/null 2>&1 9>&-; fi
    /usr/lib/wine/wine64 reg import "$file" >/dev/null 2>&1 9>&-
}

# Wine's ADO asks for version 1.0 of its type library and carries it marked 2.8: late-bound calls
# of a record set fail until copies marked 1.0 are registered, one for each bitness.
repair_ado() {
    local key='HKEY_CLASSES_ROOT\TypeLib\{2A75196C-D9EB-4129-B803-931327F72D5C}\1.0'
    printf 'REGEDIT4\r\n\r\n[%s]\r\n@="ADO 1.0"\r\n\r\n' "$key" >"$build/ado.reg"
    local platform folder library copy
    for platform in win32 win64; do
        folder='Program Files'
        if [ "$platform" = win32 ] && have_wine32; then folder='Program Files (x86)'; fi
        library="$prefix/drive_c/$folder/Common Files/System/ADO/msado15.dll"
        copy=ado10-$platform.tlb
        if [ ! -f "$library" ]; then
            warn "Wine lacks $library: ADO record sets will not work in the tests"
            continue
        fi
        wrestool -x --raw -t TYPELIB "$library" >"$prefix/drive_c/windows/$copy"
        printf '\001\000\000\000' | dd of="$prefix/drive_c/windows/$copy" bs=1 seek=24 \
            conv=notrunc status=none
        printf '[%s]\r\n@="C:\\\\windows\\\\%s"\r\n\r\n' "$key\\0\\$platform" "$copy" \
            >>"$build/ado.reg"
    done
    import_registry_file "$build/ado.reg"
}

create_prefix() {
    say "creating the Wine prefix in build/wine"
    rm -rf "$prefix"
    mkdir -p "$prefix"
    wineboot -i >"$build/wineboot.log" 2>&1 9>&- ||
        { cat "$build/wineboot.log" >&2; die "the Wine prefix could not be created"; }
    repair_ado
    wineserver -w
    # The registry before any library is registered, for what must work without.
    mkdir "$prefix/.unregistered"
    cp "$prefix"/*.reg "$prefix/.unregistered/"
    prefix_recipe >"$prefix/.recipe"
}

# The desktop that all programs share. Otherwise the first one that needs it starts it, with that
# program's own output, and whoever reads the output waits for as long as any other program runs.
start_desktop() {
    /usr/lib/wine/wine64 explorer /desktop </dev/null >/dev/null 2>&1 9>&- &
    session_pids=($! "${session_pids[@]}")
}

start_wine_session() {
    trap end_wine_session EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    # Not before scripts/setup has made the locale. Decimal comma, code page 1252, Spanish captions.
    export LC_ALL=es_ES.UTF-8 LANG=es_ES.UTF-8
    mkdir -p "$build"
    # A server left by a run that was killed still points at that run's display.
    if [ -d "$prefix" ]; then wineserver -k >/dev/null 2>&1 || true; fi
    start_display
    if [ "$(cat "$prefix/.recipe" 2>/dev/null)" != "$(prefix_recipe)" ]; then create_prefix; fi
    # Stays alive between tests: a cold start costs seconds.
    wineserver -p 9>&-
    start_desktop
    # Again at every start: Wine puts its own formats back when a program runs in another locale.
    import_registry_file "$root/scripts/lib/prefix.reg" || die "Wine does not run in build/wine"
}

# copy_prefix_to FOLDER: the prefix of a session beside the one under way, as that was before any
# library was registered. Before programs begin to write into the first one.
copy_prefix_to() {
    rm -rf "$1"
    mkdir -p "$(dirname "$1")"
    cp -a "$prefix" "$1"
    cp "$prefix"/.unregistered/*.reg "$1"
}

# use_own_session NAME: the session of such a prefix, in a subshell.
use_own_session() {
    prefix="$prefix-$1"
    export WINEPREFIX="$prefix"
    session_pids=()
    session_child=
    start_wine_session
}

# Registers a DLL; regsvr32 restarts itself in the DLL's own bitness.
register_library() {
    [ -f "$1" ] || die "no such library: $1"
    timeout 60 wine regsvr32 /s "$(windows_path "$1")" 9>&- || die "cannot register $1"
}
