# Set-up that ./run and ./check share; sourced from the project's folder.
# Installs what is missing, configures once and builds.

say() { printf '%s\n' "$*" >&2; }
fail() { say "$0: $*"; exit 1; }

packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libeigen3-dev libgtest-dev libbenchmark-dev locales
  qt6-base-dev fonts-roboto)

install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This is no Debian system: install the equivalents of ${packages[*]} yourself."
    return
  fi
  local missing=() package
  for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "to install ${missing[*]} it needs root or sudo"
    root=(sudo)
  fi
  say "Installing ${missing[*]}"
  "${root[@]}" apt-get update >&2 || fail "apt-get update failed"
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}" >&2 ||
    fail "apt-get could not install ${missing[*]}"
}

# configure PRESET: once; the build itself notices later changes.
configure() {
  [ -f "build/$1/build.ninja" ] && return
  local strict=OFF
  [ -n "${CI:-}" ] && strict=ON
  cmake --preset "$1" -DTORVANE_WERROR=$strict >&2 || fail "cmake could not configure the $1 build"
}

# build PRESET [TARGET]
build() {
  configure "$1"
  cmake --build "build/$1" ${2:+--target "$2"} >&2 || fail "the $1 build failed"
}
