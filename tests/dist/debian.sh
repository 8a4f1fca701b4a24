# The Debian package: judged by lintian, then installed by apt in a fresh minimal system and used there by somebody
# without rights, then removed.
check "lintian finds no error" lintian --allow-root --fail-on error "$deb"
control=$(dpkg-deb -f "$deb")
check "It is the version" holds "$control" "Version: $version-1"
check "It depends on the window toolkit" holds "$control" "libwxgtk3.2-1"

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
root=$work/root
in_root() { "${as_root[@]}" env -u XDG_DATA_HOME -u XAUTHORITY LC_ALL=C.UTF-8 chroot "$root" "$@"; }
as_ann() { in_root runuser -u ann -- env HOME=/home/ann DISPLAY="$DISPLAY" XAUTHORITY=/home/ann/.Xauthority "$@"; }
drop_root() {
  "${as_root[@]}" umount "$root/proc"
  "${as_root[@]}" rm -rf --one-file-system "$root"
}

# A minimal system of the release that this machine runs, from the mirror that it uses; kept for the next time.
make_root() {
  local suite mirror kept
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
  mirror=$(apt-get indextargets --format '$(CODENAME) $(COMPONENT) $(SITE)' 'Created-By: Packages' |
    sed -n "s/^$suite main //p" | head -n 1)
  kept=${TAMARIND_CACHE:-$HOME/.cache/tamarind}/root-$suite-$architecture.tar
  if [ ! -e "$kept" ]; then
    "${as_root[@]}" debootstrap --variant=minbase "$suite" "$root" "$mirror"
    mkdir -p "$(dirname "$kept")"
    "${as_root[@]}" tar -C "$root" -cf "$kept.new" .
    mv "$kept.new" "$kept"
  else
    mkdir "$root"
    "${as_root[@]}" tar -C "$root" -xf "$kept"
  fi
  "${as_root[@]}" mount -t proc proc "$root/proc"
  "${as_root[@]}" cp /etc/resolv.conf "$root/etc"
  in_root useradd --create-home ann
}
clean_up+=(drop_root)
check "A fresh system is made" make_root
"${as_root[@]}" cp "$deb" "$root/tmp"
in_root find / -xdev -name '*tamarind*' >"$work/before"
install_in_root() {
  in_root apt-get update -q &&
    in_root env DEBIAN_FRONTEND=noninteractive apt-get install -yq --no-install-recommends "/tmp/$(basename "$deb")"
}
check "apt installs it with what it depends on" install_in_root
check "Nothing installed is damaged" is "$(in_root dpkg --verify tamarind 2>&1)" ""
check "The terminal program is found" is "$(as_ann tamarind-cli --version)" "tamarind-cli $version"

make_game
"${as_root[@]}" cp -r "$work/game/Rail Simulator" "$root/home/ann/"
in_root chown -R ann /home/ann
game="/home/ann/Rail Simulator"
own=/home/ann/.local/share/tamarind
library=$(in_root find /usr/lib/tamarind)
check "It works in the person's own folder" \
  is "$(as_ann tamarind-cli --game "$game" open "$game/$track")" "$own/TempFiles/Track.xml"
check "A package gets the installer that the installation brings" \
  as_ann tamarind-cli --yes --game "$game" package assets "$game/Assets/Fernhollow/AlderVale"
packaged=$(cd "$root$own" && find . -name AssetSetup.exe -type f)
check "It is the whole program" cmp "$root$own/$packaged" "$root/usr/lib/tamarind/RouteSetup.exe"
check "The folder has the templates" as_ann test -s "$own/BluePrints/Blue_Named.xml"
check "The folder has the help" as_ann test -s "$own/Tamarind.chm" -a -s "$own/help/index.html"

prefer_game "$work/preferences" '\home\ann\Rail Simulator'
"${as_root[@]}" cp "$work/preferences/preferences.txt" "$root$own/"
"${as_root[@]}" cp "${XAUTHORITY:-$HOME/.Xauthority}" "$root/home/ann/.Xauthority"
in_root chown ann "$own/preferences.txt" /home/ann/.Xauthority
as_ann tamarind >"$work/window" 2>&1 &
check "The window opens" shows_window "$main_window"
"${as_root[@]}" rm "$root$own/preferences.txt"
check "It closes" close_window "$main_window"
wait
check "The settings are the person's" is "$(in_root stat -c %U "$own/preferences.txt")" ann
in_root mkdir -p /srv/superuser
check "The superuser does not write into the installation either" \
  holds "$(in_root env HOME=/srv/superuser tamarind-cli --game "$game" open "$game/$track")" /srv/superuser/.local/share/tamarind/
check "The installation is as it was" is "$(in_root dpkg --verify tamarind 2>&1)" ""
check "Nothing was added to it" same_names "$(in_root find /usr/lib/tamarind)" "$library"

check "apt removes it" in_root env DEBIAN_FRONTEND=noninteractive apt-get purge -yq tamarind
in_root find / -xdev -name '*tamarind*' -not -path '/home/*' -not -path '/srv/*' >"$work/after"
check "Nothing of it stays in the system" same_names "$(cat "$work/after")" "$(cat "$work/before")"
check "The person's folder stays" in_root test -s "$own/preferences.txt" -a -e "$own/TempFiles"
