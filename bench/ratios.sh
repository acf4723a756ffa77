#!/usr/bin/env bash
# What programs, numbers and proofs take beside a fixed piece of work of the same run: processor time, user and
# system, each the median of several turns. The ratio holds on a busy computer, the times do not.
#   bench/ratios.sh build/release [small]      small: sizes that only show that it works
set -euo pipefail
export LC_ALL=C
build=$(readlink -f "${1:?folder of the build}")
small=${2:-}
work=$(mktemp -d "${TMPDIR:-/tmp}/torvane-ratios.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/TV_G-Code_Files"
turns=3
[ -z "$small" ] || turns=1

tag() { printf '<%s>%s</w>\r\n' "$1" "$2"; }
# The same text so many times, semicolons between.
row() { local all; printf -v all "%$1s" ''; all=${all// /$2;}; printf '%s' "${all%;}"; }

# A tube of 24 inches: name, diameter, band, layers. By mandrel shift, at 45 degrees.
two_axis() {
  { tag DecimalComma NO; tag Version 420.000; tag Units in; tag Diameter_Left "$2"; tag Diameter_Right "$2"
    tag Length_Total 24.00; tag Band_Width "$3"; tag Band_Thickness 0.010; tag Number_of_Layers "$4"
    tag Winding_Angles "$(row "$4" 45)"; tag Winding_Right_Coord "$(row "$4" 4.00)"
    tag Winding_Left_Coord "$(row "$4" 28.00)"; tag Winding_Speed "$(row "$4" fast)"
    tag Winding_Method "$(row "$4" ms)"; tag Layer_Type "$(row "$4" REG)"; tag Add_Revs "$(row "$4" 0)"
    tag Mandrel_RPM "$(row "$4" 28.6)"; tag Carriage_Speeds "$(row "$4" 6.00)"
  } > "$work/$1.t2d"
}

# The same with wrapped ends: name, passes of a group, groups.
four_axis() {
  { tag DecimalComma NO; tag Version 420.000; tag Type FLAT; tag Units in; tag Length_Total 24.00
    tag Band_Width 0.250; tag Band_Thickness 0.012; tag Diameter '4;4'; tag Z_Coords '28;4'
    tag Hemi_Coords '28;4'; tag Opening_Diameter '1;1'; tag Skirt_Length '0;0'; tag Winding_Rate MED
    tag DHPath_Offsets '0.75;30;28;1.5;4;2;0.75'; tag Number_of_Layers 1
    tag Layer "$(printf '1;REG;0;6.25;4.00;18.12 | %s x %s | 180\260;180\260;45\260' "$2" "$3")"
  } > "$work/$1.t4d"
}

# Milliseconds of a command, the median of the turns.
median() {
  local turn user system TIMEFORMAT='%3U %3S'
  for ((turn = 0; turn < turns; ++turn)); do
    { time "$@" > /dev/null 2>&1 || true; } 2>> "$work/times"
  done
  while read -r user system; do echo $((10#${user/./} + 10#${system/./})); done < "$work/times" |
    sort -n | sed -n "$(((turns + 1) / 2))p"
  rm "$work/times"
}

# Name, milliseconds, milliseconds of what it is held against and its name.
tell() {
  awk -v name="$1" -v one="$2" -v other="$3" -v what="$4" -v more="${5:-}" 'BEGIN {
    printf "%-44s %8d ms  %6.1f times %s (%d ms)%s\n", name, one, one / (other > 0 ? other : 1), what, other, more }'
}

write() { "$build/torvane" gcode --home "$work" --store "$work/store.ini" --locale point "$1"; }

program() {
  local file=$work/TV_G-Code_Files/$(basename "${2%.*}").$([ "${2##*.}" = t2d ] && echo T2G || echo T4G) mine
  mine=$(median write "$2")
  tell "$1, $(wc -l < "$file") lines" "$mine" "$(median dd if="$file" of="$work/copy" bs=1M)" "dd"
  rm "$work/copy"
}

proof() {
  local file=$work/TV_G-Code_Files/$(basename "${1%.*}").T2G mine memory=
  [ -f "$file" ] || write "$1" > /dev/null 2>&1
  mine=$(median "$build/Torvane_Executor.exe" --check --store "$work/store.ini" "$file")
  if [ -x /usr/bin/time ]; then
    /usr/bin/time -f %M -o "$work/memory" "$build/Torvane_Executor.exe" --check --store "$work/store.ini" "$file" \
      > /dev/null 2>&1 || true
    memory=", $(tail -1 "$work/memory") KB"
  fi
  tell "proof of $(grep -vc -e '^.\?$' -e '^\[' "$file") statements" "$mine" "$(median sha256sum "$file")" "sha256sum" "$memory"
}

two_axis tube-1k 4.000 0.250 4
two_axis tube-10k 4.000 0.025 4
if [ -n "$small" ]; then
  program "two axes" "$work/tube-10k.t2d"
  four_axis wraps 10 20
  program "four axes" "$work/wraps.t4d"
  proof "$work/tube-1k.t2d"
  proof "$work/tube-10k.t2d"
else
  two_axis tube-100k 4.000 0.002 4
  two_axis tube-2m 40.000 0.001 5
  two_axis tube-5m 40.000 0.001 11
  program "two axes" "$work/tube-5m.t2d"
  four_axis wraps 1000 200
  program "four axes" "$work/wraps.t4d"
  for size in 1k 10k 100k 2m 5m; do proof "$work/tube-$size.t2d"; done
fi
if [ -x "$build/torvane_bench" ]; then
  "$build/torvane_bench" --benchmark_filter='^Write(UnderMask|ScaledWholeNumber)$' --benchmark_repetitions=5 \
    --benchmark_report_aggregates_only --benchmark_format=csv 2> /dev/null |
    awk -F, '/UnderMask_median/ { mine = $4 } /ScaledWholeNumber_median/ { other = $4 } END {
      printf "%-44s %8.1f ns  %6.1f times to_chars of its digits (%.1f ns)\n", "a number under a mask", mine, mine / other, other }'
fi
