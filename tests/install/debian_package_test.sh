#!/usr/bin/env bash
# The Debian package from the existing build: its files and its computed dependencies.
# Usage: debian_package_test.sh BUILD_DIR VERSION
set -euo pipefail
build=$1 version=$2
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$out" >/dev/null
deb=$out/quorlin_${version}_amd64.deb

fail() { echo "FAILED: $*"; exit 1; }

[ -f "$deb" ] || fail "no $(basename "$deb"): $(ls "$out")"
[ "$(dpkg-deb -f "$deb" Package)" = quorlin ] || fail "package name"
[ "$(dpkg-deb -f "$deb" Architecture)" = amd64 ] || fail "architecture"

files=$(dpkg-deb -c "$deb" | awk '{print $6}')
for f in ./usr/bin/quorlin ./usr/share/applications/quorlin.desktop ./usr/share/mime/packages/quorlin.xml \
  ./usr/share/man/man1/quorlin.1.gz ./usr/share/icons/hicolor/48x48/apps/quorlin.png \
  ./usr/share/icons/hicolor/256x256/apps/quorlin.png; do
  grep -qx -- "$f" <<<"$files" || fail "$f missing from the package"
done
grep -q '^\./usr/share/metainfo/.*\.metainfo\.xml$' <<<"$files" || fail "no metainfo"

depends=$(dpkg-deb -f "$deb" Depends)
names=$(sed -e 's/([^)]*)//g' -e 's/[,|]/ /g' <<<"$depends" | tr -s ' ' '\n')
for p in libc6 libstdc++6 libqt6widgets6 libqt6gui6 libqt6core6 libx11-6 libxext6; do
  grep -qxF "$p" <<<"$names" || fail "Depends lacks $p: $depends"
done
# Every package named is one Debian has: the build machine has them all installed.
for p in $names; do
  dpkg-query -W "$p" >/dev/null 2>&1 || fail "Depends names an unknown package $p"
done

dpkg-deb -x "$deb" "$out/tree"
file -b "$out/tree/usr/bin/quorlin" | grep -q ', stripped' || fail "the program is not stripped"
echo "package ok: $depends"
