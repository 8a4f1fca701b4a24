# What is in each package, name by name.
help_pages=$(cd build/linux/bin && find help -type f)
in_program="BluePrints/Blue_Named.xml
BluePrints/Blue_Route.xml
BluePrints/Blue_Series.xml
RouteSetup.exe
Tamarind.chm
$help_pages"
icons=$(printf 'share/icons/hicolor/%s/apps/tamarind.png\n' 16x16 24x24 32x32 48x48 64x64 256x256)
on_desktop="share/applications/tamarind.desktop
share/bash-completion/completions/tamarind
share/bash-completion/completions/tamarind-cli
$icons
share/icons/hicolor/scalable/apps/tamarind.svg
share/metainfo/tamarind.metainfo.xml"

below() { sed "s|^|$1|"; }
names_in_zip() { unzip -Z1 "$zip" | grep -v '/$'; }
names_in_tar() { tar -tzf "$tar" | grep -v '/$'; }
names_in_deb() { dpkg-deb --fsys-tarfile "$deb" | tar -t | grep -v '/$'; }

check "The help has its contents, a start page and more pages" \
  bash -c 'grep -qx help/index.html <<<"$1" && grep -qx help/Tamarind.hhp <<<"$1" && [ "$(grep -c "\.html$" <<<"$1")" -ge 10 ]' - "$help_pages"
check "The sums are those of every package" \
  same_names "$(cd "$dist" && sha256sum --check --strict SHA256SUMS | sed 's/: OK$//')" \
  "$(basename -a "$zip" "$setup" "$deb" "$tar")"
check "The zip holds the programs and what belongs to them" same_names "$(names_in_zip)" \
  "$(below Tamarind/ <<<"$in_program
Tamarind.exe
tamarind-cli.exe
CHANGELOG.txt
LICENCES.txt
LICENSE.txt
README.txt
tamarind-cli.txt")"
check "The tar holds the programs, what belongs to them, and what a desktop wants" same_names "$(names_in_tar)" \
  "$(below "tamarind-$version/" <<<"$in_program
tamarind
tamarind-cli
CHANGELOG.md
LICENCES.txt
LICENSE
README.md
tamarind-cli.md
$on_desktop
share/man/man1/tamarind-cli.1
share/man/man1/tamarind.1")"
check "The Debian package holds the same at the system's places" same_names "$(names_in_deb)" \
  "$(below ./usr/lib/tamarind/ <<<"$in_program
tamarind
tamarind-cli
shared-installation"
  below ./usr/ <<<"$on_desktop
bin/tamarind
bin/tamarind-cli
share/doc/tamarind/LICENCES.txt.gz
share/doc/tamarind/README.md
share/doc/tamarind/changelog.Debian.gz
share/doc/tamarind/changelog.gz
share/doc/tamarind/copyright
share/doc/tamarind/tamarind-cli.md
share/man/man1/tamarind-cli.1.gz
share/man/man1/tamarind.1.gz")"

names_libraries() { # text library...
  local text=$1 name
  shift
  for name in "$@"; do grep -q "^== $name " <<<"$text" || { echo "nothing of $name"; return 1; }; done
}
licences=$(unzip -p "$zip" Tamarind/LICENCES.txt)
header_only="libcli11-dev libfmt-dev libstb-dev nlohmann-json3-dev"
runtime="gcc-mingw-w64-x86-64-posix mingw-w64-x86-64-dev"
check "The zip names the licences of what is linked into the Windows programs" \
  names_libraries "$licences" libwxgtk3.2-dev libexpat1-dev $header_only $runtime
check "The tar names the licences of what is linked into the Linux programs" \
  names_libraries "$(tar -xzOf "$tar" "tamarind-$version/LICENCES.txt")" $header_only $runtime
for words in 'wxWindows Library Licence' 'Neil Hodgson' 'Permission is hereby granted' 'GCC RUNTIME LIBRARY EXCEPTION' \
  'GNU LESSER GENERAL PUBLIC LICENSE'; do
  check "The licences are whole texts: $words" grep -qi "$words" <<<"$licences"
done
check "The help file is one, and no empty one" \
  bash -c 'unzip -p "$1" Tamarind/Tamarind.chm | head -c 4 | grep -qx ITSF && [ "$(unzip -p "$1" Tamarind/Tamarind.chm | wc -c)" -gt 100000 ]' - "$zip"
check "The templates have their placeholders" \
  bash -c 'for n in Named Series Route; do unzip -p "$1" Tamarind/BluePrints/Blue_$n.xml | grep -q ZZZZZZ || exit 1; done' - "$zip"
is_stripped() { file -b "$1" | grep -q ', stripped'; }
mkdir "$work/contents"
tar -xzf "$tar" -C "$work/contents" --strip-components=1
unzip -q "$zip" -d "$work/contents"
check "The Linux programs are stripped" is_stripped "$work/contents/tamarind"
check "The terminal program is stripped" is_stripped "$work/contents/tamarind-cli"
has_no_symbols() { x86_64-w64-mingw32-objdump -t "$1" | grep -q 'no symbols'; }
for name in Tamarind.exe tamarind-cli.exe RouteSetup.exe; do
  check "$name is stripped" has_no_symbols "$work/contents/Tamarind/$name"
  check "$name holds no path of the machine that built it" \
    bash -c '! grep -aqE "$2/|$HOME/|/tmp/|build-[A-Za-z0-9]{6}" "$1"' - "$work/contents/Tamarind/$name" "$here"
done
check "All packages bring the same installer" cmp "$work/contents/RouteSetup.exe" "$work/contents/Tamarind/RouteSetup.exe"
