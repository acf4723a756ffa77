# LinuxCNC's own interpreter, which a test lets read the programs written for it; sourced behind tools/setup.sh.

# fetch_interpreter: rs274 into build/interpreter, which goes in front of the path. Nothing is installed: the package
# would bring a whole machine control along. Where it cannot be had, the test says so and is skipped.
fetch_interpreter() {
  local folder=$PWD/build/interpreter parts=(linuxcnc-uspace)
  if [ ! -x "$folder/rs274" ]; then
    if command -v apt-get >/dev/null && command -v dpkg >/dev/null && apt-cache show linuxcnc-uspace >/dev/null 2>&1; then
      # The libraries that no other program here brings.
      mapfile -t -O 1 parts < <(apt-cache depends linuxcnc-uspace |
        sed -n 's/^ *Depends: \(libboost-python[0-9.]*\|libpython3[0-9.]*\|libtirpc3\)$/\1/p')
      rm -rf "$folder"
      mkdir -p "$folder/packages"
      (cd "$folder/packages" && apt-get download "${parts[@]}" >/dev/null 2>&1) || true
      local package
      for package in "$folder"/packages/*.deb; do
        [ -f "$package" ] && dpkg -x "$package" "$folder/root"
      done
      rm -rf "$folder/packages"
      printf '%s\n' '#!/bin/sh' "root='$folder/root/usr'" \
        'export LD_LIBRARY_PATH="$root/lib:$root/lib/$(uname -m)-linux-gnu"' 'exec "$root/bin/rs274" "$@"' >"$folder/made"
      # Without a file it says how it is used, if it starts at all.
      if [ -x "$folder/root/usr/bin/rs274" ] && chmod +x "$folder/made" &&
        { "$folder/made" -? 2>&1 || true; } | grep -qi usage; then
        mv "$folder/made" "$folder/rs274"
      fi
    fi
  fi
  if [ -x "$folder/rs274" ]; then
    export PATH=$folder:$PATH
  else
    say "LinuxCNC's interpreter cannot be had here: the programs for it are read by our own reader alone"
  fi
}
