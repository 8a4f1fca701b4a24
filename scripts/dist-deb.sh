#!/usr/bin/env bash
# Makes the Debian package: dist-deb.sh PROGRAM DOCUMENTS DESKTOP VERSION FOLDER, of the folders with the three parts of
# an installation, into FOLDER. The program's own folder is nobody's there: see data/linux/shared-installation.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
: "${SOURCE_DATE_EPOCH:?}"
program=$1 documents=$2 desktop=$3 version=$4 folder=$5
linux=$here/data/linux
architecture=$(dpkg --print-architecture)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
lib=$root/usr/lib/tamarind
doc=$root/usr/share/doc/tamarind

mkdir -p "$lib" "$doc" "$root/usr/bin" "$root/DEBIAN" "$work/debian"
cp -r "$program/." "$lib"
cp "$linux/shared-installation" "$lib"
chmod 644 "$lib/RouteSetup.exe" # a program for Windows
for name in tamarind tamarind-cli; do ln -s "../lib/tamarind/$name" "$root/usr/bin/$name"; done
cp -r "$desktop/share/." "$root/usr/share"
gzip -9n "$root"/usr/share/man/man1/*

cp "$documents/README.md" "$documents/tamarind-cli.md" "$documents/LICENCES.txt" "$doc"
cp "$documents/CHANGELOG.md" "$doc/changelog"
{
  printf 'tamarind (%s-1) unstable; urgency=medium\n\n  * See changelog.gz.\n\n' "$version"
  printf ' -- %s  %s\n' "$(sed -n 's/^Maintainer: //p' "$linux/control.in")" "$(date -uRd "@$SOURCE_DATE_EPOCH")"
} >"$doc/changelog.Debian"
gzip -9n "$doc/changelog" "$doc/changelog.Debian" "$doc/LICENCES.txt"

# The licence's first line is its name, the next one with words the copyright; the rest is indented as a field.
copyright=$(sed -n 's/^Copyright (c) //p' "$documents/LICENSE")
sed -n '/^Permission/,$p' "$documents/LICENSE" | sed 's/^$/./; s/^/ /' >"$work/licence"
sed -e "s/@COPYRIGHT@/$copyright/" -e "/@LICENCE@/{r $work/licence" -e 'd}' "$linux/copyright.in" >"$doc/copyright"

# dpkg-shlibdeps wants a source package around it.
printf 'Source: tamarind\n\nPackage: tamarind\nArchitecture: any\n' >"$work/debian/control"
depends=$(cd "$work" && dpkg-shlibdeps -O --ignore-missing-info root/usr/lib/tamarind/tamarind root/usr/lib/tamarind/tamarind-cli |
  sed -n 's/^shlibs:Depends=//p')
[ -n "$depends" ] || { echo "dist-deb: no dependencies found" >&2; exit 1; }
sed -e "s/@VERSION@/$version/" -e "s/@ARCHITECTURE@/$architecture/" -e "s/@DEPENDS@/$depends/" \
  -e "s/@KILOBYTES@/$(du -sk --apparent-size --exclude=DEBIAN "$root" | cut -f1)/" "$linux/control.in" >"$root/DEBIAN/control"
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
find "$root" -type d -exec chmod 755 {} +
find "$root" -exec touch -hd "@$SOURCE_DATE_EPOCH" {} +
dpkg-deb --root-owner-group -Zxz --build "$root" "$folder/tamarind_${version}_$architecture.deb" >/dev/null
