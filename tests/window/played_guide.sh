#!/usr/bin/env bash
# The first part in five minutes, played as the operator's guide tells it, by keys and mouse on a real X server: from
# the start card to the finished dry run. played_guide.sh CMAKE BUILD_FOLDER; leaves with 77 where no X server starts,
# its window manager or xdotool is missing, or the dry run has no window. It waits for what it sees, never for a time.
set -euo pipefail
cmake=$1 build=$2
title='played guide'
source "$(dirname "$0")/on_display.sh"
design=$folder/TV_Design_Files/first.t2d program=$folder/TV_G-Code_Files/first.T2G

# click X Y: in the window that has the keyboard; a negative place is counted from its right or lower edge.
click() {
  local WINDOW WIDTH HEIGHT X Y SCREEN
  eval "$(xdotool getactivewindow getwindowgeometry --shell)"
  xdotool mousemove --window "$WINDOW" $(($1 < 0 ? WIDTH + $1 : $1)) $(($2 < 0 ? HEIGHT + $2 : $2)) click 1
}
type_text() { xdotool type --delay 20 -- "$1"; }

"$root/usr/bin/Torvane_Designer" 2>"$root/said" & station=$!
window 'Torvane Designer'
click 28 51 # New
# The part: the number of layers has the keyboard, and the other fields stand before it.
press shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab
into_fields 24 0.25 '' 0.010 '' 4 28 4 4 3
# The schedule: hoops outside, 45 degrees between them. The keyboard is in the first row's layer type.
type_text h
press Right Down
type_text 45
press Down Left
type_text h
window 'Torvane Designer\*'
press ctrl+s
answer Save first.t2d
until_true test -s "$design"
window 'Torvane Designer'
press ctrl+o
answer Open first.t2d
window 'Torvane Designer'

click -90 -60 # Build
answer ' Message' '' # the carriage's offset is to be measured first
answer Settings 1.875
window 'Torvane Designer'
click -90 -60
until_true test -s "$program"
grep -q '^D0 LA=2_of_3' "$program" || fail 'the program does not tell its layers'

window 'first.T2G.* - Torvane dry run'
press plus plus plus plus plus plus # a thousand times as fast as the machine
window 'first.T2G, waits for the button - Torvane dry run'
press space
# Each further wait by the large button, which does nothing while none is waited for; then the heat gun.
has_come_to_the_heat_gun() {
  xdotool search --onlyvisible --name '^first.T2G, runs until stopped - Torvane dry run$' ||
    { click 200 -80 && false; }
}
until_true has_come_to_the_heat_gun
click -50 28 # Stop
window 'first.T2G, stopped - Torvane dry run'

"$root/usr/bin/Torvane_Executor.exe" --check "$program" >"$root/proof" || fail "the proof: $(cat "$root/proof")"
[ "$(grep -c 'has no angle behind its C' "$root/proof")" = 2 ] && grep -q 'layer 2: .* covers 100.00 %' "$root/proof" ||
  fail "the guide tells of another proof: $(cat "$root/proof")"
window 'Torvane Designer'
press ctrl+q
until_true ended
wait $station || fail "the station ended with $?: $(cat "$root/said")"
