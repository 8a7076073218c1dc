# shellcheck shell=bash disable=SC2154
# Builds, strips and describes the files that users copy. Source after common.sh and wine.sh.

dist_tool() {
    case "$1" in
        x86) echo "i686-w64-mingw32-$2" ;;
        x64) echo "x86_64-w64-mingw32-$2" ;;
        *) die "no such architecture: $1" ;;
    esac
}

imports_of() { LC_ALL=C "$(dist_tool "$1" objdump)" -p "$2" | sed -n 's/^\tDLL Name: //p' | sort -uf; }

# The export table's names; objdump prints them after "[Ordinal/Name Pointer] Table".
exports_of() {
    LC_ALL=C "$(dist_tool "$1" objdump)" -p "$2" |
        awk '/^\[Ordinal\/Name Pointer\] Table/ { in_table = 1; next }
             in_table && /^\t\[/ { print $NF; next }
             NF == 0 { in_table = 0 }' | sort
}

describe_library() {
    local arch=$1 file=$2
    printf '%s: %d bytes\n  imports: %s\n  exports: %s\n' "${file#"$root/"}" "$(stat -c %s "$file")" \
        "$(imports_of "$arch" "$file" | paste -sd' ')" "$(exports_of "$arch" "$file" | paste -sd' ')"
}

# An unchanged file keeps its time, so that nothing that follows from it is made anew.
place_in_dist() {
    if cmp -s "$1" "$2"; then rm "$1"; else mv "$1" "$2"; fi
}

make_dist() {
    local arch=$1 built="$build/$1/bin" out="$root/dist/$1" file name
    build_preset "$arch"
    mkdir -p "$out" "$root/dist/include"
    for file in "$built/kovrel.dll" "$built/kovrel.tlb"; do
        [ -f "$file" ] || die "the build of $arch left no ${file##*/}"
    done
    # The same for both.
    for file in "$build/$arch/include"/*; do
        name=${file##*/}
        cp "$file" "$root/dist/include/$name.new"
        place_in_dist "$root/dist/include/$name.new" "$root/dist/include/$name"
    done
    for file in "$built"/*.dll "$built/kovrel.tlb" "$built/Kovrel.Assembly.manifest"; do
        name=${file##*/}
        cp "$file" "$out/$name.new"
        case "$name" in *.dll) "$(dist_tool "$arch" strip)" "$out/$name.new" ;; esac
        place_in_dist "$out/$name.new" "$out/$name"
        case "$name" in *.dll) describe_library "$arch" "$out/$name" ;; esac
    done
}
