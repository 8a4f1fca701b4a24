# Made again of the same builds, at another time and under another umask, every package has the same bytes.
make_again() {
  (umask 077 && cd / && TZ=Pacific/Auckland TAMARIND_DIST=$work/again "$here/scripts/dist.sh") | tee "$work/dist.log"
}
check "The packages are made again" make_again
check "It is told that they are not signed" grep -q '^dist: not signed, since' "$work/dist.log"
for file in "$zip" "$setup" "$deb" "$tar"; do
  check "$(basename "$file") has the same bytes" cmp "$file" "$work/again/$(basename "$file")"
done
check "The times in the zip are the commit's" \
  is "$(TZ=UTC unzip -lv "$zip" | awk '/Tamarind\.exe$/ { print $5, $6 }')" \
  "$(date -ud "@$(($(git log -1 --format=%ct) / 2 * 2))" '+%Y-%m-%d %H:%M')"
