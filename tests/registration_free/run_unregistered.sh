#!/bin/bash
# Runs programs in a Wine prefix where the library has never been registered, each with the files that
# an application ships: run_unregistered.sh WINE BIN TESTS EXAMPLE MANIFEST EXPECTED ACTIVATING
#   BIN       folder of kovrel.dll and Kovrel.Assembly.manifest
#   TESTS     a test program
#   EXAMPLE   the example, which must print what the file EXPECTED holds
#   MANIFEST  of an application that names the library's assembly
#   ACTIVATING  the example that activates the library's manifest itself
set -euo pipefail
source "$(dirname "$0")/../support/prefix_copy.sh"

wine=$1 bin=$2 tests=$3 example=$4 manifest=$5 expected=$6 activating=$7
copy_prefix "${WINEPREFIX:?}/.unregistered"
if grep -qi kovrel "$WINEPREFIX"/*.reg; then
    echo "FAILED: the library is registered"
    exit 1
fi
drive="$WINEPREFIX/drive_c"

# lay FOLDER PROGRAM LIBRARY_FOLDER: an application with the library in its folder, or in a subfolder
# named after the assembly.
lay() {
    mkdir -p "$drive/$1" "$drive/$3"
    cp "$2" "$drive/$1"
    cp "$manifest" "$drive/$1/$(basename "$2").manifest"
    cp "$bin/kovrel.dll" "$bin/Kovrel.Assembly.manifest" "$drive/$3"
}

# receipt FOLDER: what the example prints.
receipt() {
    timeout 60 "$wine" "C:\\$1\\$(basename "$example")" 12345678a 1234.56 2 2024 </dev/null |
        tr -d '\r'
}

mkdir "$drive/alone"
cp "$example" "$drive/alone"
echo "without the manifests:"
if printed=$(receipt alone); then
    echo "FAILED: the example works without the manifests"
    exit 1
fi
diff -u --label expected --label printed <(echo 'Error 0x80040154') - <<<"$printed"

echo "with the manifests:"
lay beside "$example" beside
receipt beside | diff -u --label expected --label printed "$expected" -

echo "with the library's manifest alone, activated by the program:"
cp "$activating" "$drive/alone"
activate() {
    timeout 60 "$wine" "C:\\alone\\$(basename "$activating")" "$1" 12345678 </dev/null | tr -d '\r'
}
activate 'C:\beside\Kovrel.Assembly.manifest' | diff -u --label expected --label printed <(echo "Letra: Z") -
if printed=$(activate 'C:\alone\Kovrel.Assembly.manifest'); then
    echo "FAILED: the example works without the manifest"
    exit 1
fi
diff -u --label expected --label printed <(echo "CreateActCtxW: 0x00000002") - <<<"$printed"

lay inside "$tests" inside/Kovrel.Assembly
timeout 60 "$wine" "C:\\inside\\$(basename "$tests")"
