#!/usr/bin/env bash
# A day at the station on a real X server, by real keys: from an empty home a design is typed, saved and built,
# and the next start finds it again. real_display.sh CMAKE BUILD_FOLDER; leaves with 77 where no X server
# starts, or its window manager or xdotool is missing.
set -euo pipefail
cmake=$1 build=$2
for program in Xvfb openbox xdotool; do
  command -v $program >/dev/null || { echo "$program is not installed"; exit 77; }
done
root=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$root"' EXIT
fail() { printf 'real display: %s\n' "$*" >&2; exit 1; }

Xvfb -displayfd 3 -screen 0 1280x800x24 3>"$root/display" 2>/dev/null &
for _ in $(seq 100); do [ -s "$root/display" ] && break || sleep 0.1; done
[ -s "$root/display" ] || { echo 'no X server starts here'; exit 77; }
DISPLAY=:$(cat "$root/display")
export DISPLAY HOME=$root/ann XDG_RUNTIME_DIR=$root QT_QPA_PLATFORM=xcb
unset TORVANE_HOME TORVANE_STORE XDG_CONFIG_HOME
mkdir "$HOME"
openbox 2>/dev/null &

# until_true COMMAND...: within half a minute.
until_true() {
  for _ in $(seq 300); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "this did not come about: $*"
}
has_keyboard() {
  xdotool search --onlyvisible --name "^$1\$" windowactivate
  xdotool getactivewindow getwindowname | grep -qx "$1"
}
# window NAME: the visible window whose whole name matches has the keyboard.
window() {
  until_true xdotool search --onlyvisible --name "^$1\$"
  until_true has_keyboard "$1"
}
press() { for key in "$@"; do xdotool key --clearmodifiers "$key"; sleep 0.1; done; }
# into_fields TEXT...: each into the present field, then on to the next one; an empty text leaves it as it is.
into_fields() {
  for text in "$@"; do
    [ -z "$text" ] || xdotool type --delay 20 -- "$text"
    press Tab
  done
}
ended() { ! kill -0 "$station" 2>/dev/null; }

"$cmake" --install "$build" --prefix "$root/usr" >/dev/null
folder=$HOME/Torvane design=$HOME/Torvane/TV_Design_Files/Mast.t2d
start() {
  "$root/usr/bin/Torvane_Designer" 2>"$root/said" & station=$!
  until_true test -s "$HOME/.config/torvane/torvane.ini"
  window 'Torvane Designer'
  sleep 1 # the start has more turns to go: a question after a crash, the first field
}
# answer TITLE TEXT: types the text into that dialog and closes it with Return.
answer() {
  window "$1"
  [ -z "$2" ] || xdotool type --delay 20 -- "$2"
  press Return
}

start
# The number of layers has the keyboard at first; the part's fields stand before it.
press shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab
into_fields 24 0.25 '' 0.01 '' 4 28 4 4 3
press Right
xdotool type 90
answer ' Message' '' # steep angles are for hoops
window 'Torvane Designer\*'
press Return
for angle in 45 30.5; do
  xdotool type --delay 20 -- $angle
  press Return
done
press ctrl+s
answer Save Mast.t2d
until_true test -s "$design"

# A build hands its program to the executor of the station's folder.
rm "$folder/Torvane_Executor.exe"
printf '#!/bin/sh\nprintf "%%s\\n" "$*" >%q\n' "$root/started" >"$folder/Torvane_Executor.exe"
chmod +x "$folder/Torvane_Executor.exe"
window 'Torvane Designer'
press F9
answer ' Message' '' # the carriage's offset is to be measured first
answer Settings 1.875
window 'Torvane Designer'
press F9
until_true test -s "$root/started"
[ "$(cat "$root/started")" = "$folder/TV_G-Code_Files/Mast.T2G" ] || fail "built was $(cat "$root/started")"
grep -q '^\[BEGIN LAYER 3 of 3' "$folder/TV_G-Code_Files/Mast.T2G" || fail 'the program lacks a layer'

press ctrl+q
until_true ended
wait $station || fail "the station ended with $?: $(cat "$root/said")"

start
press ctrl+shift+s
answer Save Again.t2d
until_true test -s "$folder/TV_Design_Files/Again.t2d"
figures() { "$root/usr/bin/torvane" info "$1" | grep -v 't2d'; }
diff <(figures "$design") <(figures "$folder/TV_Design_Files/Again.t2d") || fail 'another design was reopened'

# A second start hands its file to this station, which comes to the front from behind and asks about its changes first.
second() { said=$(timeout 60 "$root/usr/bin/Torvane_Designer" "$1") || fail "the second start ended with $?"; }
(cd "$folder/TV_Design_Files" && second Taper-Mast.t2d && [[ $said == *"$folder/TV_Design_Files/Taper-Mast.t2d" ]]) ||
  fail 'the second start did not hand its file over'
until_true grep -q '^File1=.*Taper-Mast' "$HOME/.config/torvane/torvane.ini"
window 'Torvane Designer'
press shift+Tab
xdotool type --delay 20 -- 2
window 'Torvane Designer\*'
xdotool search --onlyvisible --name '^Torvane Designer\*$' windowminimize
second "$design"
answer ' Message' '' # Yes, save
answer Save Changed.t2d
until_true grep -q '^File1=.*TV_Design_Files.Mast.t2d' "$HOME/.config/torvane/torvane.ini"
window 'Torvane Designer'
until_true test -s "$folder/TV_Design_Files/Changed.t2d"
diff <(figures "$design") <(figures "$folder/TV_Design_Files/Again.t2d") || fail 'the former design was changed'
press ctrl+q
until_true ended
