#!/usr/bin/env bash
# Plays the host on a real display, by keyboard and mouse, on the demonstration company of an empty home:
#
#   tools/display.sh HOST [PICTURES]
#
# A name is typed and confirmed, a column dragged and the layout stored from the menu, the rows printed, the window
# made larger. What came of it is looked up in the company file; says what is missing, and exits with 1.
set -euo pipefail
host=$1 pictures=${2:-}
home=$(mktemp -d)
display=:$((90 + RANDOM % 100))
export DISPLAY=$display HOME=$home XDG_RUNTIME_DIR=$home QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY XDG_DATA_HOME XDG_CONFIG_HOME
Xvfb "$display" -screen 0 1280x800x24 >/dev/null 2>&1 &
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$home"' EXIT
sleep 1

await() {
    local tries
    for ((tries = 0; tries < 100; ++tries)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    echo "not seen: $*" >&2
    picture failed
    exit 1
}
picture() { [ -z "$pictures" ] || import -window root "$pictures/display-$1.png"; }
click() { xdotool mousemove "$1" "$2" click "${3:-1}"; sleep 0.3; }
stored() { sqlite3 "$home/.local/share/korvanta/demo-20.company" "$1"; }
order() { stored "select sColName, iRaj from Grid_State" | sort -t'|' -k2n | cut -d'|' -f1 | tr '\n' ' '; }
holds() { "$1" "$2" | grep -q "$3"; }

"$host" --demo --employees 20 2>"$home/errors" &
await xdotool search --onlyvisible --name 'حقوق و دستمزد'
window=$(xdotool search --onlyvisible --name 'حقوق و دستمزد' | head -1)
sleep 1.5

click 880 157
xdotool type --delay 30 "typed"
xdotool key Return
click 60 641
await holds stored "select desk from Paymozd" '^typed$'
picture typed

xdotool key ctrl+g
await holds stored "select sColName from Grid_State" .
xdotool key Return
before=$(order)
xdotool mousemove 652 113 mousedown 1 mousemove 640 113 mousemove 600 113 mousemove 560 113 mousemove 540 113 mouseup 1
sleep 0.3
click 640 300 3
xdotool key Down Down Down Return # the third entry: stores the layout
differs() { [ "$(order)" != "$before" ]; }
await differs
sleep 0.3
xdotool key Return
picture dragged

xdotool key ctrl+p
await xdotool search --onlyvisible --name 'پيش نمايش چاپ'
sleep 0.5
picture print
click 844 43
await xdotool search --onlyvisible --name 'PDF'
sleep 0.5
xdotool key Return
await test -s "$home/.local/share/korvanta/install/PDF/J_BASE_MOZD_1.pdf"
xdotool key Escape
sleep 0.5

xdotool windowsize "$window" 1240 780
sleep 0.7
picture large
corner=$(import -window root -crop 1x1+1200+60 -depth 8 txt:- | grep -o '#[0-9A-F]\{6\}' | head -1)
[ "$corner" = "#1F5C99" ] || { echo "the module's caption does not reach the window's new edge: $corner" >&2; exit 1; }
grep -v 'XDG_RUNTIME_DIR\|propagateSizeHints' "$home/errors" && exit 1
echo "display: all was seen"
