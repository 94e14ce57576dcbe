#!/usr/bin/env bash
# `cmake --install` into a scratch root, then the tree is checked with the desktop's own tools.
# Usage: installed_tree_test.sh BUILD_DIR
set -euo pipefail
build=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR="$root" cmake --install "$build" --prefix /usr >/dev/null
share=$root/usr/share

fail() { echo "FAILED: $*"; exit 1; }

[ -x "$root/usr/bin/quorlin" ] || fail "no usr/bin/quorlin"
"$root/usr/bin/quorlin" --version | grep -q '^quorlin ' || fail "the installed program does not run"

desktop=$share/applications/quorlin.desktop
desktop-file-validate "$desktop"
grep -qx 'Categories=Utility;' "$desktop" || fail "not in Utility"
grep -qx 'StartupWMClass=quorlin' "$desktop" || fail "no StartupWMClass"

metainfo=$(ls "$share"/metainfo/*.metainfo.xml)
appstreamcli validate --no-net --pedantic "$metainfo"
grep -q '<launchable type="desktop-id">quorlin.desktop</launchable>' "$metainfo" || fail "metainfo launches no quorlin.desktop"

mime=$share/mime/packages/quorlin.xml
xmllint --noout "$mime"
type=$(xmllint --xpath 'string(//*[local-name()="glob"][@pattern="*.tpl"]/../@type)' "$mime")
[ "$type" = "application/x-quorlin-project" ] || fail "*.tpl maps to '$type'"
# The desktop's own caches: the glob reaches the MIME database and the type reaches Quorlin.
update-mime-database "$share/mime"
grep -qx 'application/x-quorlin-project:\*\.tpl' "$share/mime/globs" || fail "*.tpl not in the MIME database"
update-desktop-database "$share/applications"
grep -qx 'application/x-quorlin-project=quorlin.desktop;' "$share/applications/mimeinfo.cache" \
  || fail "projects do not open in Quorlin"

for size in 16 22 24 32 48 64 128 256; do
  icon=$share/icons/hicolor/${size}x${size}/apps/quorlin.png
  file -b "$icon" | grep -q "^PNG image data, $size x $size, 8-bit/color RGBA" || fail "icon $icon: $(file -b "$icon")"
done

man=$share/man/man1/quorlin.1.gz
gzip -t "$man"
MANWIDTH=80 man --warnings -l "$man" 2>&1 >/dev/null | grep . && fail "the man page has warnings"
MANWIDTH=80 man -l "$man" | grep -q 'quorlin \[FILE.tpl\]' || fail "the man page shows no synopsis"
echo "installed tree ok"
