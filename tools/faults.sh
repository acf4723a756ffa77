#!/usr/bin/env bash
# Who notices a fault: works the faults of tools/faults/set into the sources, one at a time, and says which test
# turns red. A line for each, then the totals. The release build stands, with its tests; build nothing else in the
# folder meanwhile.
#
#   tools/faults.sh [--room NAME] [--own] [--set FILE] [NUMBER | FROM-TO]
#
# A fault's line is found by its text and the line before it, in whatever file it stands by now. The room's own
# tests come first; if they notice nothing, all tests, unless --own. A crash counts as noticed, and what takes
# longer than a minute. Ends badly if a fault is gone from the sources or does not build: name it in
# tools/faults/left_out with the reason and draw again, tools/faults/draw.sh >tools/faults/set.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() { sed -n '2,12s/^# \{0,1\}//p' "$0" >&2; exit 2; }
room='' only_own='' set=tools/faults/set first=1 last=1000000
while [ $# -gt 0 ]; do
  case $1 in
    --room) room=${2:-}; shift ;;
    --own) only_own=yes ;;
    --set) set=${2:-}; shift ;;
    [0-9]*-[0-9]*) first=${1%-*} last=${1#*-} ;;
    [0-9]*) first=$1 last=$1 ;;
    *) usage ;;
  esac
  shift
done
[ -f "$set" ] || usage

build=build/release
work=build/faults
mkdir -p "$work"
file=''
restore() {
  [ -n "$file" ] || return 0
  cp "$work/whole" "$file"
  file=''
}
trap restore EXIT
trap 'exit 130' INT TERM HUP

# What a fault does to other processes and to the home folder stays among its own.
alone=()
if unshare --pid --fork --kill-child --mount-proc true 2>/dev/null; then
  # The shell in front sees to what ends there without a parent.
  alone=(unshare --pid --fork --kill-child --mount-proc bash -c '"$@"; exit $?' alone)
fi

# place BEFORE LINE FILE...: FILE:NUMBER of the one line that is meant.
place() {
  perl -e '
    my ($before, $line, @files) = @ARGV;
    my (@both, @alone);
    for my $name (@files) {
      open my $in, "<", $name or next;
      my ($former, $number) = ("", 0);
      while (<$in>) {
        ++$number;
        s/^\s+|\s+$//g;
        next if $_ eq "";
        push @alone, "$name:$number" if $_ eq $line;
        push @both, "$name:$number" if $_ eq $line && $former eq $before;
        $former = $_;
      }
    }
    my @found = @both ? @both : @alone;
    print $found[0] if @found == 1;
  ' "$@"
}

targets_of() {
  case $1 in
    window) printf 'window_%s ' station_window designs_by_keys messages_on_screen settings_by_keys preview_on_screen \
      drawings names_in_window layout operations_on_screen dialogs_on_screen rows_on_screen at_hand help_on_screen \
      start_on_screen lines_on_drawing files_from_outside ;;
    compare) echo cli_tests ;;
    dryrun) printf '%s_tests ' dryrun timeline mandrel ;;
    *) echo "$1_tests" ;;
  esac
}
others_of() {
  case $1 in
    window) targets_of dryrun ;;
    dryrun) targets_of window ;;
    *) printf '%s_tests ' text design calc gcode persist handoff executor rooms workbench host live advice restart \
      post laminate cli ;;
  esac
}

make_targets() { nice -n 5 cmake --build "$build" ${JOBS:+-j "$JOBS"} --target "$@" >"$work/build" 2>&1 </dev/null; }

# red PROGRAM: the test of it that notices, or nothing.
red() {
  local path=$build/$1 log=$work/log
  [ -x "$path" ] || path=$build/tests/$1
  local rc=0 options=(--gtest_fail_fast) screen=
  # Windows are shown nowhere; elsewhere a program that finds no screen has none.
  case $1 in window_* | dryrun_tests | timeline_tests | mandrel_tests) options=() screen=offscreen ;; esac
  (ulimit -v 8000000 -c 0
    HOME=$PWD/$work QT_QPA_PLATFORM=$screen exec "${alone[@]}" timeout -k 5 60 "$path" "${options[@]}") \
    >"$log" 2>&1 </dev/null || rc=$?
  [ $rc -ne 0 ] || return 0
  local name
  name=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\).*/\1/p; s/^FAIL!  : torvane::\([^ ]*\)(.*/\1/p' "$log" | head -n 1)
  [ -n "$name" ] || name=$(sed -n 's/^\[ RUN      \] \(.*\)/\1/p; s/^PASS   : torvane::\([^ ]*\)(.*/after \1/p' "$log" | tail -n 1)
  [ $rc -ne 124 ] && [ $rc -ne 137 ] || name="${name:-its start} without an end"
  echo "${name:-a crash}"
}

# noticed TARGET...: sets by to the test that notices, of those programs that the fault has got into.
noticed() {
  local target name path helpers helper
  by=''
  for target in "$@"; do
    path=$build/$target
    [ -x "$path" ] || path=$build/tests/$target
    helpers=''
    case $target in
      host_*) helpers="Torvane_Executor.exe arguments" ;;
      executor_* | workbench_* | handoff_* | cli_*) helpers="torvane Torvane_Executor.exe arguments" ;;
    esac
    for helper in "$path" $helpers; do
      [ "$helper" = "$path" ] || helper=$build/$helper
      [ "$helper" -nt "$work/mark" ] && break
      helper=''
    done
    [ -n "$helper" ] || continue
    name=$(red "$target")
    [ -n "$name" ] || continue
    by="$name of $target" program=$target
    return
  done
}

# trust PROGRAM: ends it all if the program is red without a fault; each is tried once.
declare -A sound=()
trust() {
  restore
  [ -z "${sound[$1]:-}" ] || return 0
  make_targets "$1"
  local name
  name=$(red "$1")
  [ -z "$name" ] || { echo "$1 is red without a fault: $name"; exit 1; }
  sound[$1]=yes
}

number=0 run=0 own=0 elsewhere=0 unnoticed=0 unfit=0
while IFS= read -r head && IFS= read -r before && IFS= read -r line && IFS= read -r with; do
  read -r _ of hint kind <<<"$head"
  before=${before#  } line=${line#- } with=${with#+ }
  number=$((number + 1))
  [ $number -ge "$first" ] && [ $number -le "$last" ] || continue
  [ -z "$room" ] || [ "$room" = "$of" ] || continue
  at=$(place "$before" "$line" "$hint")
  [ -n "$at" ] || at=$(place "$before" "$line" $(find src -name '*.cpp'))
  title="$number $of ${at:-$hint} $kind"
  if [ -z "$at" ]; then
    unfit=$((unfit + 1))
    echo "$title: GONE from the sources"
    continue
  fi
  cp "${at%:*}" "$work/whole"
  file=${at%:*}
  WITH=$with perl -pi -e 's/^(\s*).*$/$1$ENV{WITH}/ if $. == '"${at##*:}" "$file"
  touch "$work/mark"
  run=$((run + 1))
  if ! make_targets $(targets_of "$of"); then
    if grep -q 'error:' "$work/build"; then
      run=$((run - 1)) unfit=$((unfit + 1))
      echo "$title: DOES NOT BUILD"
    else
      own=$((own + 1))
      echo "$title: noticed by the start of its test program"
    fi
    restore
    continue
  fi
  noticed $(targets_of "$of")
  if [ -n "$by" ]; then
    trust "$program"
    own=$((own + 1))
    echo "$title: noticed by $by"
  elif [ -n "$only_own" ]; then
    unnoticed=$((unnoticed + 1))
    echo "$title: UNNOTICED by its room"
  else
    all=torvane_tests
    case $of in window | dryrun) all=$(others_of "$of") ;; esac
    make_targets $all || true
    noticed $(others_of "$of" | sed "s/\b${of}_tests //")
    if [ -n "$by" ]; then
      trust "$program"
      elsewhere=$((elsewhere + 1))
      echo "$title: noticed elsewhere, by $by"
    else
      unnoticed=$((unnoticed + 1))
      echo "$title: UNNOTICED"
      printf -- '    - %s\n    + %s\n' "$line" "$with"
    fi
  fi
  restore
done <"$set"
echo "$run faults: $((own + elsewhere)) noticed, $own of them by the room's own tests; $unnoticed unnoticed; $unfit of no use"
[ $unfit -eq 0 ]
