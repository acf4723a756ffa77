# A real X server with a window manager and an empty home, for tests that play the station by real keys and mouse;
# sourced with the name of the test in `title`. Leaves with 77 where there is no such server, or xdotool is missing.
for program in Xvfb openbox xdotool; do
  command -v $program >/dev/null || { echo "$program is not installed"; exit 77; }
done
root=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$root"' EXIT
fail() { printf '%s: %s\n' "$title" "$*" >&2; exit 1; }

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
# answer TITLE TEXT: types the text into that dialog and closes it with Return.
answer() {
  window "$1"
  [ -z "$2" ] || xdotool type --delay 20 -- "$2"
  press Return
}
ended() { ! kill -0 "$station" 2>/dev/null; }

"$cmake" --install "$build" --prefix "$root/usr" >/dev/null
folder=$HOME/Torvane
start() {
  "$root/usr/bin/Torvane_Designer" 2>"$root/said" & station=$!
  until_true test -s "$HOME/.config/torvane/torvane.ini"
  window 'Torvane Designer'
  sleep 1 # the start has more turns to go: a question after a crash, the first field
}
