# shellcheck shell=bash disable=SC2154
# Windows under the virtual display, worked with keys, and their pictures in $demo.
# Source after common.sh and wine.sh; $demo is the folder of the pictures.

# patiently WHAT COMMAND...: repeats a command until it succeeds, for 30 seconds at most.
patiently() {
    local what=$1 tries=0
    shift
    until "$@" >/dev/null 2>&1; do
        [ $((tries += 1)) -le 300 ] || die "$what within 30 seconds"
        sleep 0.1
    done
}

find_window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1 | grep .; }
is_in_front() { [ "$(xdotool getactivewindow)" = "$1" ]; }
is_gone() { ! xwininfo -id "$1" | grep -q 'Map State: IsViewable'; }

# window_named TITLE PID: the window with that title, as soon as it is there.
window_named() {
    local tries=0
    until find_window "$1"; do
        kill -0 "$2" 2>/dev/null || die "the program that shows \"$1\" has ended"
        [ $((tries += 1)) -le 300 ] || die "no window \"$1\" within 30 seconds"
        sleep 0.1
    done
}

# The window with its title bar and borders, for import -crop.
frame_of() {
    {
        xprop -notype -id "$1" _NET_FRAME_EXTENTS
        xwininfo -id "$1"
    } | awk '
        /^_NET_FRAME_EXTENTS =/ { gsub(/[^0-9 ]/, ""); left = $1; right = $2; top = $3; bottom = $4 }
        /Absolute upper-left X/ { x = $NF }
        /Absolute upper-left Y/ { y = $NF }
        /^ *Width:/ { width = $NF }
        /^ *Height:/ { height = $NF }
        END { printf "%dx%d+%d+%d", width + left + right, height + top + bottom, x - left, y - top }'
}

bring_to_front() {
    xdotool windowactivate --sync "$1" 2>/dev/null || true
    patiently "\"$(xdotool getwindowname "$1")\" did not come to the front" is_in_front "$1"
}

# keep_picture NAME WINDOW [AREA]: keeps what the screen shows of a window that has come to the
# front, or of the area of another one that lies behind it.
keep_picture() {
    bring_to_front "$2"
    # Drawn, also what the program draws a moment after the window has come.
    sleep 0.7
    import -window root -crop "$(frame_of "${3:-$2}")" +repage "$demo/$1.png"
    printf '%s\n' "${demo#"$root/"}/$1.png"
}

press() { xdotool key --clearmodifiers "$@"; }

# fill KEY... TEXT: presses keys and types a text over what the field holds.
fill() {
    local text=${!#}
    press "${@:1:$#-1}"
    press ctrl+a
    xdotool type "$text"
}

# The pointer out of the way: what lies under it is drawn differently.
hide_pointer() { xdotool mousemove 1279 1023; }
