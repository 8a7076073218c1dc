# shellcheck shell=bash
# A Wine prefix of a test's own, gone with the script. Its system files are only links to those of
# the original; what is written to is its own.

# copy_prefix REGISTRY: leaves WINEPREFIX naming a copy of the prefix that it names, with the
# registry files of that folder.
copy_prefix() {
    local original=${WINEPREFIX:?} registry=$1
    WINEPREFIX=$(mktemp -d "$original.XXXXXX")
    export WINEPREFIX
    trap end_prefix_copy EXIT
    trap 'exit 143' TERM INT HUP
    # A file that another test takes away meanwhile is no loss.
    cp -al "$original/." "$WINEPREFIX" 2>/dev/null || [ -d "$WINEPREFIX/drive_c/windows/system32" ]
    rm -f "$WINEPREFIX"/*.reg
    cp "$registry"/*.reg "$WINEPREFIX"
}

end_prefix_copy() {
    wineserver -k >/dev/null 2>&1 || true
    timeout 10 wineserver -w >/dev/null 2>&1 || true
    rm -rf "$WINEPREFIX"
}
