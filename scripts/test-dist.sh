#!/usr/bin/env bash
# Looks at the packages in build/dist, installs each of them and starts what is in it: those for Windows under Wine in a
# prefix of their own, the Debian package in a clean root. Needs the superuser's rights for that root.
# `test-dist.sh PART…` runs only some of: contents linux debian windows signing same_bytes.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
if [ -z "${TAMARIND_SCREEN:-}" ]; then
  TAMARIND_SCREEN=1 exec "$here/scripts/with-display.sh" "$0" "$@"
fi
cd "$here"
export LC_ALL=C.UTF-8 GSETTINGS_BACKEND=memory
dist=$here/build/dist
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[^=]*=//p' build/linux/CMakeCache.txt)
architecture=$(dpkg --print-architecture)
zip=$dist/tamarind-$version-windows.zip
setup=$dist/tamarind-$version-windows-setup.exe
deb=$dist/tamarind_${version}_$architecture.deb
tar=$dist/tamarind-$version-linux-$architecture.tar.gz
work=$(mktemp -d)
clean_up=()
finish() {
  local step
  for step in "${clean_up[@]}"; do $step || true; done
  rm -rf --one-file-system "$work"
}
trap finish EXIT

parts=("$@")
[ ${#parts[@]} -gt 0 ] || parts=(contents linux debian windows signing same_bytes)
. tests/dist/checks.sh
for part in "${parts[@]}"; do
  printf '\n== %s\n' "$part"
  . "tests/dist/$part.sh"
done
echo
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
