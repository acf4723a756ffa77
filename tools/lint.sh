# Checks of the source text; sourced behind tools/setup.sh.

# check_format: every source file stands as .clang-format says.
check_format() {
  packages=(clang-format)
  install_packages
  find src tests bench fuzz -name '*.h' -o -name '*.cpp' | xargs clang-format --dry-run -Werror ||
    fail "clang-format would change what stands above"
}

# lint_base: the commit that changes are counted from: BASE where it is set; else where this branch left the shared
# one; else the commit before this one. Nothing for a first commit or without git.
lint_base() {
  local head commit
  head=$(git rev-parse -q --verify HEAD 2>/dev/null) || return 0
  for commit in "${BASE:-}" "$(git merge-base HEAD origin/HEAD 2>/dev/null)" HEAD~1; do
    commit=$(git rev-parse -q --verify "${commit:-none}^{commit}" 2>/dev/null) || continue
    [ "$commit" != "$head" ] || continue
    echo "$commit"
    return
  done
}

# check_lint: clang-tidy over the sources that changed, at most LINT_FILES of them [40], of a changed header the
# source beside it; without a base over as many of all sources. The release build stands.
check_lint() {
  packages=(clang-tidy)
  install_packages
  local base changed
  base=$(lint_base)
  if [ -n "$base" ]; then
    changed=$(git diff --name-only --diff-filter=d "$base" -- src; git ls-files -o --exclude-standard -- src)
  else
    changed=$(find src -name '*.cpp')
  fi
  changed=$(sed -n 's/\.h$/.cpp/; /\.cpp$/p' <<<"$changed" | grep -v '_windows\.cpp$' | sort -u |
    while read -r file; do [ -f "$file" ] && echo "$file"; done | head -n "${LINT_FILES:-40}") || true
  say "clang-tidy over what changed since ${base:-the beginning}: ${changed:-nothing}"
  [ -n "$changed" ] || return 0
  # Each file for itself, with the headers themselves: those that the compiler keeps ready are of another's kind.
  cmake --preset release -B build/lint -DTORVANE_UNITY=OFF >/dev/null
  sed -i -E 's/ -Winvalid-pch//g; s/ -include [^ "]*cmake_pch\.hxx//g' build/lint/compile_commands.json
  xargs -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet --extra-arg=-Wno-unknown-warning-option \
    <<<"$changed" || fail "clang-tidy found what stands above"
}
