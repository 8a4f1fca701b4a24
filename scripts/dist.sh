#!/usr/bin/env bash
# Makes the packages of a release in build/dist (or TAMARIND_DIST), of the builds in build/linux and build/windows. The
# same commit gives the same bytes: every time stamp is the commit's. With TAMARIND_SIGN_CERTIFICATE the Windows programs are signed; see
# scripts/sign.sh and docs/release.md.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here"
export LC_ALL=C.UTF-8 TZ=UTC
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH
umask 022
dist=${TAMARIND_DIST:-$here/build/dist}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "dist: $*" >&2; exit 1; }
setting() { sed -n "s/^$2:[^=]*=//p" "build/$1/CMakeCache.txt"; } # preset variable

# A build that was configured for something else is not what people should get.
check_build() { # preset
  [ -e "build/$1/CMakeCache.txt" ] || fail "build/$1 is not built yet"
  [ "$(setting "$1" CMAKE_BUILD_TYPE)" = Release ] || fail "build/$1 is not a Release build"
  [ -z "$(setting "$1" TAMARIND_SANITIZE)" ] || fail "build/$1 is built with sanitizers"
}

stage() { # preset part folder
  cmake --install "build/$1" --strip --component "$2" --prefix "$3" >"$work/log" || { cat "$work/log" >&2; exit 1; }
}

# Access rights and times as they are everywhere.
settle() { # folder
  find "$1" -type d -exec chmod 755 {} +
  find "$1" -exec touch -hd "@$SOURCE_DATE_EPOCH" {} +
}

make_zip() { # folder-name file
  (cd "$work" && find "$1" | sort | zip -X -9 -q -@ "$2")
}

make_tar() { # folder-name file
  tar -C "$work" --sort=name --format=ustar --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" -cf - "$1" |
    gzip -9n >"$2"
}

check_build linux
check_build windows
version=$(setting linux CMAKE_PROJECT_VERSION)
[ "$version" = "$(setting windows CMAKE_PROJECT_VERSION)" ] || fail "the builds are of different versions"
rm -rf "$dist"
mkdir -p "$dist"

windows=$work/Tamarind
stage windows program "$windows"
./scripts/chm_time.py "$windows/Tamarind.chm"
if [ -n "${TAMARIND_SIGN_CERTIFICATE:-}" ]; then
  ./scripts/sign.sh "$windows"/*.exe
  echo "dist: signed with $TAMARIND_SIGN_CERTIFICATE"
else
  echo "dist: not signed, since TAMARIND_SIGN_CERTIFICATE names no certificate"
fi
stage windows documents "$windows"
settle "$windows"
make_zip Tamarind "$dist/tamarind-$version-windows.zip"
./scripts/dist-setup.sh "$windows" "$version" "$here/build/windows/generated/tamarind.ico" \
  "$dist/tamarind-$version-windows-setup.exe"

for part in program documents desktop; do stage linux "$part" "$work/$part"; done
# One installer and one help file for all packages.
cp "$windows/RouteSetup.exe" "$windows/Tamarind.chm" "$work/program"
./scripts/dist-deb.sh "$work/program" "$work/documents" "$work/desktop" "$version" "$dist"
linux=tamarind-$version
mkdir "$work/$linux"
cp -r "$work/program/." "$work/documents/." "$work/desktop/." "$work/$linux"
settle "$work/$linux"
make_tar "$linux" "$dist/tamarind-$version-linux-$(dpkg --print-architecture).tar.gz"

cd "$dist"
sha256sum -- * >"$work/SHA256SUMS"
cp "$work/SHA256SUMS" .
cat SHA256SUMS
