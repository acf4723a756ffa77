#!/usr/bin/env bash
# The pages of the manual against what --help says: manual_test.sh PROGRAM=PAGE...
#
# Each command and each option stands on the program's page, and the page names none that the program has not.
set -euo pipefail
fail() { printf 'manual: %s\n' "$*" >&2; exit 1; }

commands_of() { "$@" --help | sed -nE '/^Subcommands:/,$s/^  ([a-z]+) .*/\1/p'; }
options_of() { "$@" --help | sed -nE '/^Options:/,/^$/s/^  (-[^ ]+).*/\1/p' | grep -oE -- '--[a-z-]+'; }

for pair in "$@"; do
  program=${pair%%=*} page=${pair#*=}
  commands=$(commands_of "$program")
  options=$({ options_of "$program"
    for command in $commands; do
      options_of "$program" "$command"
      for below in $(commands_of "$program" "$command"); do options_of "$program" "$command" "$below"; done
    done; } | sort -u)
  for command in $commands; do
    grep -qE "^\.B(I|R) \"?$command[ \"]" "$page" || fail "$page does not tell the command $command"
  done
  told=$(grep -oE -- '--[a-z][a-z-]+' "$page" | sort -u)
  missing=$(comm -23 <(printf '%s\n' "$options") <(printf '%s\n' "$told"))
  [ -z "$missing" ] || fail "$page does not tell" $missing
  unknown=$(comm -13 <(printf '%s\n' "$options") <(printf '%s\n' "$told"))
  [ -z "$unknown" ] || fail "$page tells what $program has not:" $unknown
done
