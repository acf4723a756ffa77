#!/usr/bin/env bash
# A day at the station on a real X server, by real keys: from an empty home a design is typed, saved and built,
# and the next start finds it again. real_display.sh CMAKE BUILD_FOLDER; leaves with 77 where no X server
# starts, or its window manager or xdotool is missing.
set -euo pipefail
cmake=$1 build=$2
title='real display'
source "$(dirname "$0")/on_display.sh"
design=$folder/TV_Design_Files/Mast.t2d

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
