#!/usr/bin/env bash
# An installation into a folder of its own, used by two people: installation_test.sh CMAKE BUILD_FOLDER VERSION
set -euo pipefail
cmake=$1 build=$2 version=$3
root=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$root"' EXIT
fail() { printf 'installation: %s\n' "$*" >&2; exit 1; }

"$cmake" --install "$build" --prefix "$root/usr" >/dev/null
bin=$root/usr/bin samples=$root/usr/share/torvane/samples
# The notices of what is compiled in go with the programs.
for notice in 'University of Cincinnati' 'Redistributions in binary form' 'Niels Lohmann' 'Permission is hereby'; do
  grep -q "$notice" "$root/usr/share/doc/torvane-designer/copyright" || fail "no notice of $notice"
done
# The station finds its guide, with the pictures that it names.
if [ -x "$bin/Torvane_Designer" ]; then
  guide=$root/usr/share/torvane/guide
  for picture in $(grep -o '(pictures/[^)]*)' "$guide/operator-guide.md" | tr -d '()'); do
    [ -s "$guide/$picture" ] || fail "the guide lacks $picture"
  done
fi
unset TORVANE_HOME TORVANE_STORE XDG_CONFIG_HOME
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$root

# start USER: the station's window until it has stored its first setting, which is after its folder is ready;
# without Qt the command line makes the folder too.
start() {
  local home=$root/$1 pid
  local store=$home/.config/torvane/torvane.ini
  mkdir -p "$home"
  rm -f "$store"
  if [ ! -x "$bin/Torvane_Designer" ]; then
    HOME=$home "$bin/torvane" info --brief "$samples/Tube-4x24.t2d" >/dev/null
    return
  fi
  HOME=$home "$bin/Torvane_Designer" & pid=$!
  for _ in $(seq 200); do
    [ -s "$store" ] && break
    kill -0 $pid 2>/dev/null || fail "Torvane_Designer ended at once"
    sleep 0.1
  done
  kill $pid
  wait $pid || true
}

# Twice at once, then once more.
start ann & start ann & wait
station=$root/ann/Torvane
for sample in "$samples"/*.t[24]d; do
  cmp "$sample" "$station/TV_Design_Files/$(basename "$sample")"
done
for program in "$bin"/*; do
  [ "$(readlink "$station/$(basename "$program")")" = "$program" ] || fail "the station has no $(basename "$program")"
done
[ "$(ls "$station" | wc -l)" = $(($(ls "$bin" | wc -l) + 2)) ] || fail "the station holds $(ls "$station")"

# The road of a winding: a program from a sample, proved by the executor that the station finds in its folder.
export HOME=$root/ann
program=$("$bin/torvane" gcode "$station/TV_Design_Files/Tube-4x24.t2d")
[ "$program" = "$station/TV_G-Code_Files/Tube-4x24.T2G" ] || fail "the program is $program"
(cd "$station" && ./Torvane_Executor.exe --check "$program") | grep -q "$program" || fail "no proof of $program"

# The same program for another winder: the machine files are found where they are installed.
"$bin/torvane" post "$program" --machine grbl | grep -qx "${program%.T2G}.grbl.nc" || fail "nothing is posted"

for program in "$bin"/*; do
  name=$(basename "$program")
  [ "$("$program" --version)" = "$name $version" ] || fail "$name --version says $("$program" --version)"
  "$program" --help | grep -q '^Usage: ' || fail "$name --help says $("$program" --help)"
done

# A file named at the start is opened, by the station that runs in the folder where one does.
if [ -x "$bin/Torvane_Designer" ]; then
  store=$HOME/.config/torvane/torvane.ini
  mkdir "$root/a b"
  cp "$samples/Taper-Mast.t2d" "$root/a b/One.t2d"
  cp "$samples/Hemi-Vessel-150mm.t4d" "$root/Two.t4d"
  rm "$store"
  cd "$root/a b"
  # Opened together, they come to one station, whichever is the first.
  "$bin/Torvane_Designer" One.t2d >"$root/one.said" & one=$!
  "$bin/Torvane_Designer" ../Two.t4d >"$root/two.said" & two=$!
  cd "$root"
  path=${root//\//\\}
  opened() { grep -qxE "File[12]=${path//\\/\\\\}$1" "$store" 2>/dev/null; }
  for _ in $(seq 300); do
    opened '\\a b\\One.t2d' && opened '\\Two.t4d' && break
    sleep 0.1
  done
  opened '\\a b\\One.t2d' || fail "the one named design was not opened: $(cat "$store")"
  opened '\\Two.t4d' || fail "the other named design was not opened: $(cat "$store")"
  handed="Handed to the station that runs in $station: $root"
  case $(cat one.said two.said) in
    "$handed/a b/One.t2d") pid=$two other=$one ;;
    "$handed/Two.t4d") pid=$one other=$two ;;
    *) fail "two starts said $(cat one.said two.said)" ;;
  esac
  wait $other || fail "a start that handed its file over ended with $?"
  kill $pid
  wait $pid || true
fi

# What the user changed stays; links of an installation that is gone, or another's, are turned to this one.
printf 'mine' >"$station/TV_Design_Files/Tube-4x24.t2d"
rm "$station/TV_Design_Files/Taper-Mast.t2d" "$station/Torvane_Executor.exe"
printf 'the real one' >"$station/Torvane_Executor.exe"
ln -sfn "$root/gone/bin/torvane" "$station/torvane"
start ann
[ "$(cat "$station/TV_Design_Files/Tube-4x24.t2d")" = mine ] || fail "a design was replaced"
[ ! -e "$station/TV_Design_Files/Taper-Mast.t2d" ] || fail "a sample came back"
[ "$(cat "$station/Torvane_Executor.exe")" = 'the real one' ] || fail "the user's executor was replaced"
[ "$(readlink "$station/torvane")" = "$bin/torvane" ] || fail "a dead link was left"

# Another user has a folder of his own, the installation has got nothing.
start bob
cmp "$samples/Tube-4x24.t2d" "$root/bob/Torvane/TV_Design_Files/Tube-4x24.t2d"
[ -z "$(find "$root/usr" -name 'TV_*')" ] || fail "the installation was written to"
