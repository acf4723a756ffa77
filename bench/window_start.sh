#!/usr/bin/env bash
# From the start of the station's process to its first window on a display, in milliseconds; five starts.
# window_start.sh BUILD-FOLDER
set -euo pipefail
build=$(readlink -f "$1")
folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$folder"' EXIT
exec 3>"$folder/display"
Xvfb -displayfd 3 -screen 0 1400x1000x24 2>/dev/null &
until grep -q . "$folder/display"; do sleep 0.1; done
export DISPLAY=:$(cat "$folder/display") QT_QPA_PLATFORM=xcb TORVANE_HOME=$folder TORVANE_STORE=$folder/t.ini
for _ in 1 2 3 4 5; do
  begin=$(date +%s%N)
  "$build/Torvane_Designer" &
  station=$!
  until xdotool search --onlyvisible --pid $station >/dev/null 2>&1; do sleep 0.005; done
  echo $((($(date +%s%N) - begin) / 1000000))
  kill $station
  wait $station 2>/dev/null || true
done
