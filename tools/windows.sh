# The Windows build on Debian; sourced behind tools/setup.sh.

# check_windows: torvane, the executor's --check and their tests by mingw-w64, and the tests under wine.
check_windows() {
  packages=(g++-mingw-w64-x86-64-posix googletest libcli11-dev nlohmann-json3-dev wine64)
  install_packages
  build windows
  # A Windows of its own, without the parts that show web pages and run other machines' code.
  WINEPREFIX=$PWD/build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= \
    timeout 600 ctest --preset windows || fail "the tests failed under wine"
}
