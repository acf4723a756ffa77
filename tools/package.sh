#!/usr/bin/env bash
# Builds the packages for other machines into build/release/packages: a .deb and a .tar.gz.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source tools/setup.sh
packages+=(dpkg-dev file)
install_packages
build release
cd build/release
cpack >&2 || fail "the packages could not be made"
ls packages/*.deb packages/*.tar.gz
