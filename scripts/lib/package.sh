# shellcheck shell=bash disable=SC2154
# Packs what dist/ holds: the zip archive and the installer. Source after common.sh.

product_version() { sed -n 's/^project(kovrel VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt"; }

# One time for everything packed, so that the same sources give the same packages.
package_time() {
    if [ -n "${SOURCE_DATE_EPOCH:-}" ]; then
        echo "$SOURCE_DATE_EPOCH"
    else
        git -C "$root" log -1 --format=%ct 2>/dev/null || stat -c %Y "$root/CMakeLists.txt"
    fi
}

# What the classic hosts read is in their code page, with their ends of lines.
stage_samples() {
    local folder=$1 file
    mkdir -p "$folder"
    for file in cpp/recibo.cpp cpp/recibo.exe.manifest.in ficha formularios recorrido sin_registro; do
        if [ -e "$root/examples/$file" ]; then (cd "$root/examples" && cp -r --parents "$file" "$folder"); fi
    done
    find "$folder" -regex '.*\.\(vbs\|js\|bas\|cls\|frm\)' -print0 | while IFS= read -r -d '' file; do
        iconv -f UTF-8 -t CP1252 "$file" | sed 's/\r*$/\r/' >"$file.new"
        mv "$file.new" "$file"
    done
}

# stage_package FOLDER: what users get, as they get it.
stage_package() {
    local folder=$1 part file
    rm -rf "$folder"
    mkdir -p "$folder"
    for part in x86 x64; do
        [ -f "$root/dist/$part/kovrel.dll" ] || die "dist/$part/kovrel.dll is missing: a package holds both"
    done
    for part in x86 x64 include; do
        if [ -d "$root/dist/$part" ]; then cp -r "$root/dist/$part" "$folder/$part"; fi
    done
    for file in README.md docs/guia.md docs/referencia.md docs/imagenes; do
        if [ -e "$root/$file" ]; then (cd "$root" && cp -r --parents "$file" "$folder"); fi
    done
    stage_samples "$folder/samples"
    find "$folder" -type f -exec chmod 644 {} +
    find "$folder" -exec touch -h -d "@$(package_time)" {} +
}

# The package's files as three lists of calls: EachFile, EachFolder (the deeper ones first) and
# EachTopEntry, each with the name of a macro that takes a path.
list_for_installer() {
    local folder=$1
    printf '!define STAGE "%s"\n' "$folder"
    nsis_list EachFile < <(cd "$folder" && find . -type f -printf '%P\n' | LC_ALL=C sort)
    nsis_list EachFolder < <(cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r)
    nsis_list EachTopEntry < <(cd "$folder" && find . -mindepth 1 -maxdepth 1 -printf '%P\n' | LC_ALL=C sort)
}

nsis_list() {
    printf '!macro %s ACTION\n' "$1"
    sed 's|/|\\|g; s|.*|    !insertmacro ${ACTION} "&"|'
    printf '!macroend\n'
}

# make_setup FOLDER VERSION FILE: the installer of a staged package.
make_setup() {
    local folder=$1 version=$2 file=$3
    list_for_installer "$folder" >"$folder.nsh"
    makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFILES=$folder.nsh" \
        "-DOUTPUT=$file" "$root/installer/kovrel.nsi" >"$folder.log" 2>&1 ||
        { cat "$folder.log" >&2; die "makensis failed"; }
}

make_zip() {
    local folder=$1 file=$2
    rm -f "$file"
    (cd "${folder%/*}" && find "${folder##*/}" -type f | LC_ALL=C sort |
        TZ=UTC zip -q -X -9 "$file" -@) || die "zip failed"
}

# dist/kovrel-VERSION.zip and dist/kovrel-VERSION-setup.exe.
make_packages() {
    local version name folder
    version=$(product_version)
    [ -n "$version" ] || die "CMakeLists.txt names no version"
    name="kovrel-$version"
    folder="$build/package/$name"
    say "packing $name"
    stage_package "$folder"
    make_zip "$folder" "$root/dist/$name.zip"
    make_setup "$folder" "$version" "$root/dist/$name-setup.exe"
    (cd "$root" && stat -c '%n: %s bytes' "dist/$name.zip" "dist/$name-setup.exe")
}
