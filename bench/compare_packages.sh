#!/usr/bin/env bash
# Packaging a route and installing the package, each beside `cp -r` of the same folder: BIN is the folder of the
# programs. FILES (20000) files of SIZE (100000) bytes, RUNS (5) rounds in turn; the medians and their ratios are last.
set -euo pipefail
bin=$(cd "$1" && pwd)
files=${FILES:-20000} size=${SIZE:-100000} runs=${RUNS:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/kit" "$work/player"
cp "$bin/serz.exe" "$work/kit/"
printf 'setup' >"$work/kit/RouteSetup.exe"
game=$("$bin/sample_game" "$work")
player=$("$bin/sample_game" "$work/player")
id=5a1e0d10-0002-4c00-9a10-7a3a21d0a002
route=$game/Content/Routes/$id
for folder in $(seq 0 $((files / 1000 - 1))); do mkdir -p "$route/Tiles/$folder"; done
head -c "$size" /dev/urandom >"$work/tile"
for file in $(seq 0 $((files - 1))); do cp "$work/tile" "$route/Tiles/$((file / 1000))/$file.bin"; done
package="$work/kit/Ligne du Bois Perdu"

measure() { # name command...
  local name=$1
  shift
  /usr/bin/time -f %e -a -o "$work/$name.times" "$@" >/dev/null 2>&1
}
median() { sort -n "$work/$1.times" | sed -n "$(((runs + 1) / 2))p"; }
cp -r "$route" "$work/copy" # once, for the caches
for _ in $(seq "$runs"); do
  rm -rf "$work/copy" "$package"
  measure copy cp -r "$route" "$work/copy"
  measure package "$bin/tamarind-cli" --program-dir "$work/kit" --game "$game" package route "$id"
  diff -rq "$route" "$package/Rail Simulator/Content/Routes/$id"
  rm -rf "$player/Content/Routes/$id"
  measure install "$bin/tamarind-cli" --program-dir "$work/kit" --game "$player" --yes install "$package"
  diff -rq "$route" "$player/Content/Routes/$id"
done
for name in copy package install; do
  awk -v name="$name" -v time="$(median "$name")" -v peer="$(median copy)" \
    'BEGIN { printf "%-8s %6.2f s  %.2f times cp -r\n", name, time, time / peer }'
done
