#!/usr/bin/env bash
# What each shell offers behind torvane's commands, against what --help says of them: completion_test.sh TORVANE
set -euo pipefail
torvane=$(readlink -f "$1")
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
fail() { printf 'completion: %s\n' "$*" >&2; exit 1; }
cd "$root"
mkdir folder
touch a.t2d B.T4D 'c d.t4d' e.txt

# offered SHELL WORD...: the candidates for the last word, one a line, sorted. zsh's own routines tell what they are
# given here.
in_bash='source ./bash; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _torvane
  [ ${#COMPREPLY[@]} -eq 0 ] || printf "%s\n" "${COMPREPLY[@]}"'
in_zsh='_describe() { local -a all=("${(@P)argv[-1]}"); print -rl -- "${(@)all%%:*}" }
  compadd() { shift; print -rl -- "$@" }
  _files() { setopt nullglob; [[ "$*" != *-/* ]] || print -rl -- *(/); [[ "$*" != -g* ]] || print -rl -- *(/) ${~2}; [[ $# -gt 0 ]] || print -rl -- * }
  _message() { }
  words=("$@"); CURRENT=$#; set --; source ./zsh'
offered() {
  local shell=$1
  shift
  case $shell in
    bash) bash --norc -c "$in_bash" bash torvane "$@" ;;
    zsh) zsh -f -c "$in_zsh" zsh torvane "$@" ;;
    fish) HOME=$root fish --no-config -c 'source ./fish; complete -C "$argv"' -- "torvane $*" | cut -f 1 ;;
  esac | sed 's|/$||' | sort -u
}
# expect SHELL EXPECTED WORD...
expect() {
  local shell=$1 expected=$2 said
  shift 2
  said=$(offered "$shell" "$@")
  [ "$said" = "$(printf '%s' "$expected" | sort -u)" ] ||
    fail "$shell offers behind torvane $*: $said; it should be: $expected"
}

options_of() { "$torvane" "$@" --help | sed -nE '/^Options:/,/^$/s/^  (-[^ ]+).*/\1/p' | tr , '\n'; }
commands_of() { "$torvane" "$@" --help | sed -nE '/^Subcommands:/,$s/^  ([a-z]+) .*/\1/p'; }

# expect_command SHELL WORD...: its options and the commands below it, and so on with these.
expect_command() {
  local shell=$1 options commands command
  shift
  options=$(options_of "$@") commands=$(commands_of "$@")
  [ -n "$options" ] || fail "--help names no options of torvane $*"
  # fish offers one letter behind one dash alone.
  [ "$shell" != fish ] || options=$(grep '^--' <<<"$options")
  expect "$shell" "$options" "$@" "$([ "$shell" = fish ] && echo --- | cut -c 1-2 || echo -)"
  [ -z "$commands" ] || expect "$shell" "$commands" "$@" ''
  for command in $commands; do expect_command "$shell" "$@" "$command"; done
}

tried=0
for shell in bash zsh fish; do
  if ! command -v $shell >/dev/null; then
    [ -z "${CI:-}" ] || fail "$shell is not installed"
    echo "$shell is not installed: its completion is not tried"
    continue
  fi
  "$torvane" completion $shell >$shell
  expect_command $shell
  designs=$'a.t2d\nB.T4D\nc d.t4d\nfolder'
  # fish offers other files behind the designs.
  if [ $shell = fish ]; then
    [ "$(offered fish info 'a')" = a.t2d ] || fail 'fish offers no design'
  else
    expect $shell "$designs" info ''
    expect $shell "$designs" gcode --store x.ini a.t2d ''
    expect $shell "$(printf '%s\n' "$designs" bash zsh fish e.txt | while read -r f; do [ -e "$f" ] && echo "$f"; done)" info --store ''
  fi
  expect $shell folder setting list --home ''
  expect $shell $'comma\npoint' info --locale ''
  expect $shell '' patterns --diameter ''
  expect $shell $'bash\nfish\nzsh' completion ''
  tried=$((tried + 1))
done
[ $tried -gt 0 ] || exit 77
