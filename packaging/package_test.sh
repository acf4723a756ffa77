#!/usr/bin/env bash
# What other programs of a computer read of the package, by the tools that judge it: package_test.sh CPACK BUILD_FOLDER.
# Leaves with 77 where such a tool is missing, which fails where CI is set.
set -euo pipefail
cpack=$1 build=$2
fail() { printf 'package: %s\n' "$*" >&2; exit 1; }
missing=()
for tool in dpkg-shlibdeps file lintian desktop-file-validate appstreamcli update-mime-database; do
  command -v $tool >/dev/null || missing+=($tool)
done
if [ ${#missing[@]} -gt 0 ]; then
  [ -z "${CI:-}" ] || fail "${missing[*]} are not installed"
  echo "not installed: ${missing[*]}"
  exit 77
fi
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
"$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$root" >"$root/log" 2>&1 || fail "$(cat "$root/log")"
package=$(echo "$root"/*.deb)
# It closes no bug of the archive's.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "$package" ||
  fail 'lintian found what stands above'

dpkg-deb -x "$package" "$root/tree"
share=$root/tree/usr/share
[ -x "$root/tree/usr/bin/Torvane_Designer" ] || exit 0
desktop=$share/applications/torvane-designer.desktop types=$share/mime/packages/torvane-designer.xml
about=$share/metainfo/torvane-designer.metainfo.xml
desktop-file-validate "$desktop" || fail 'the desktop file is none'
appstreamcli validate --no-net "$about" || fail 'appstreamcli found what stands above'
update-mime-database "$share/mime" 2>"$root/log" || fail "$(cat "$root/log")"

# Four kinds of files: each has its ending, its icon, and is said to be opened by the station.
named() { sed -nE "s/.*$1.*/\1/p" "$2" | tr ';' '\n' | sed '/^$/d' | sort; }
kinds=$(named '<mime-type type="([^"]*)"' "$types")
[ "$(named '^MimeType=(.*)$' "$desktop" | sed '/^$/d')" = "$kinds" ] || fail "the desktop file opens other files than $kinds"
[ "$(named '<mediatype>([^<]*)<' "$about")" = "$kinds" ] || fail "the station is said to open other files than $kinds"
grep -q '^Exec=Torvane_Designer %f$' "$desktop" || fail 'a file is not handed to the station'
for ending in t2d t4d t2g t4g; do
  grep -qE "^50:application/x-torvane-${ending:1:1}axis-[a-z]*:\*\.$ending$" "$share/mime/globs2" ||
    fail "*.$ending is of no kind: $(cat "$share/mime/globs2")"
done
for icon in $(named '<generic-icon name="([^"]*)"' "$types") $(named '^Icon=(.*)$' "$desktop"); do
  [ -n "$(find "$share/icons/hicolor" -name "$icon.svg")" ] || fail "there is no icon $icon"
done
