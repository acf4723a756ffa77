# The Windows build on Debian; sourced behind tools/setup.sh.

# check_windows: torvane, the executor and their tests by mingw-w64. Under wine the first writes the program of each
# sample as the release build does, which stands, and the tests run.
check_windows() {
  packages=(g++-mingw-w64-x86-64-posix googletest libcli11-dev nlohmann-json3-dev libeigen3-dev wine64)
  install_packages
  configure windows
  cmake --build build/windows --target torvane_tests >&2 || fail "the windows build failed"
  if on_windows cmd /c exit >/dev/null 2>&1; then
    compare_programs
    local tests
    for tests in build/windows/tests/*_tests.exe; do
      on_windows "$tests" --gtest_brief=1 || fail "tests failed under wine: $(basename "$tests")"
    done
  else
    say "wine starts nothing here: the Windows programs are built and not run"
  fi
}

# A Windows of its own, without the parts that show web pages and run other machines' code.
on_windows() {
  WINEPREFIX=$PWD/build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= timeout 900 /usr/lib/wine/wine64 "$@"
}

compare_programs() {
  local design name common=(--locale point --now "2026-03-02 09:30:00")
  for design in samples/*.t[24]d; do
    name=$(basename "${design%.*}")
    build/release/torvane gcode "$design" --out - --home build "${common[@]}" --store build/none.ini >build/linux.out
    on_windows build/windows/torvane.exe gcode "$design" --out - --home build "${common[@]}" --store build/none.ini \
      >build/windows.out || fail "$name: torvane.exe failed under wine"
    # The folder's name alone differs.
    diff <(grep -av '^\[FilePath=' build/linux.out) <(grep -av '^\[FilePath=' build/windows.out) >&2 ||
      fail "$name: another program than that of the release build"
  done
}
