#!/usr/bin/env bash
# Builds the libraries that the Windows programs link statically (wxWidgets, Expat, GoogleTest) from
# Debian's source packages, once per version and set of flags, and prints the folder that holds them.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
cache=${TAMARIND_CACHE:-$HOME/.cache/tamarind}
jobs=$(nproc)
host=x86_64-w64-mingw32
wx_flags=(--host=$host --disable-shared --enable-monolithic --enable-stc --without-libpng --without-libjpeg
  --without-libtiff --without-zlib --without-expat --without-regex --disable-svg --without-nanosvg
  --disable-webview --disable-mediactrl --disable-ribbon --disable-propgrid --disable-richtext --disable-aui
  --disable-xrc --without-opengl --disable-debug_flag --disable-tests)
optimise='-O2 -fno-strict-aliasing'

versions=$(dpkg-query -W -f='${Package} ${Version}\n' g++-mingw-w64-x86-64-posix libwxgtk3.2-dev libexpat1-dev googletest)
key=$(printf '%s\n' "$versions" "${wx_flags[*]}" "$optimise" "$(cat "$here/cmake/mingw-w64.cmake" "$0")" | sha256sum | cut -c1-16)
target=$cache/windows-$key
if [ -e "$target/complete" ]; then
  echo "$target"
  exit 0
fi

mkdir -p "$cache"
exec 9>"$cache/lock"
flock 9
if [ -e "$target/complete" ]; then
  echo "$target"
  exit 0
fi

work=$(mktemp -d "$cache/build-XXXXXX")
trap 'rm -rf "$work"' EXIT
# The folder's name is chance; without this it would stand in the finished programs.
map="-ffile-prefix-map=$work=."
log() { echo "cross-libs: $*" >&2; }

# A source list made from the machine's own binary one, kept apart from the system's.
source_lists() {
  mkdir -p "$work/apt/sources" "$work/apt/lists/partial"
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ -e "$file" ] && grep -E '^deb ' "$file" | sed 's/^deb /deb-src /' >"$work/apt/sources/$(basename "$file" .list).list"
  done
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -e "$file" ] && sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/apt/sources/$(basename "$file")"
  done
  return 0
}

apt_options=(-o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$work/apt/sources"
  -o "Dir::State::Lists=$work/apt/lists" -o "APT::Sandbox::User=root")

# Unpacks a package's source into $work/src: the version of the installed library where a mirror has it, else the
# next older one listed (a mirror may carry a security update's library and not yet its source).
fetch() { # source-package installed-version
  mkdir -p "$work/src"
  local version
  for version in "$2" $(apt-cache "${apt_options[@]}" madison "$1" | awk '/Sources/ {print $3}' | sort -rVu); do
    (cd "$work/src" && apt-get "${apt_options[@]}" source "$1=$version" >&2) && return 0
    rm -rf "${work:?}/src/$1"*
    log "no source of $1 $version"
  done
  return 1
}

version_of() { dpkg-query -W -f='${source:Version}' "$1"; }

build_wx() {
  log "wxWidgets (about eight minutes on two cores)"
  fetch wxwidgets3.2 "$(version_of libwxgtk3.2-dev)"
  mkdir "$work/wx" && cd "$work/wx"
  CC=$host-gcc-posix CXX=$host-g++-posix CFLAGS="$optimise $map" CXXFLAGS="$optimise $map" \
    "$(echo "$work"/src/wxwidgets3.2-*/configure)" "${wx_flags[@]}" --prefix="$target" >"$work/log" 2>&1
  make -j"$jobs" >>"$work/log" 2>&1
  make install DESTDIR="$work/stage" >>"$work/log" 2>&1
}

cmake_build() { # name source options...
  local name=$1 source=$2
  shift 2
  cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$here/cmake/mingw-w64.cmake" \
    -DCMAKE_C_FLAGS="$map" -DCMAKE_CXX_FLAGS="$map" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$target" "$@" >>"$work/log" 2>&1
  cmake --build "$work/$name" >>"$work/log" 2>&1
  DESTDIR="$work/stage" cmake --install "$work/$name" >>"$work/log" 2>&1
}

build_expat() {
  log "Expat"
  fetch expat "$(version_of libexpat1-dev)"
  local source
  source=$(echo "$work"/src/expat-*/expat)
  # Debian's security patches compare XML_DTD with a number, upstream's template defines it without one.
  sed -i 's/^#cmakedefine XML_DTD.*/#define XML_DTD 1/' "$source/expat_config.h.cmake"
  cmake_build expat "$source" -DEXPAT_BUILD_TOOLS=OFF -DEXPAT_BUILD_EXAMPLES=OFF -DEXPAT_BUILD_TESTS=OFF \
    -DEXPAT_SHARED_LIBS=OFF -DEXPAT_BUILD_DOCS=OFF
}

build_googletest() {
  log "GoogleTest"
  cmake_build googletest /usr/src/googletest -DINSTALL_GTEST=ON
}

trap 'status=$?; [ $status -ne 0 ] && [ -e "$work/log" ] && tail -n 40 "$work/log" >&2; rm -rf "$work"' EXIT
log "nothing cached under $target; building"
source_lists
apt-get "${apt_options[@]}" update >&2
build_expat
build_googletest
build_wx
rm -rf "$target"
mv "$work/stage$target" "$target"
touch "$target/complete"
echo "$target"
