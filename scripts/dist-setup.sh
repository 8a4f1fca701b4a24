#!/usr/bin/env bash
# Makes the setup for Windows: dist-setup.sh STAGE VERSION ICON OUTPUT. Every file of the folder STAGE is installed,
# and just those are taken away again by the uninstaller.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
: "${SOURCE_DATE_EPOCH:?}"
stage=$1 version=$2 icon=$3 output=$4
lists=$(mktemp -d)
trap 'rm -rf "$lists"' EXIT

# A path below the stage as NSIS writes it.
quoted() { local path=${1//\$/\$\$}; printf '"$INSTDIR\\%s"' "${path//\//\\}"; }

cd "$stage"
find . -mindepth 1 -type d -printf '%P\n' | sort >"$lists/folders"
{
  printf 'SetOutPath "$INSTDIR"\n'
  find . -maxdepth 1 -type f -printf '%P\n' | sort | while read -r file; do printf 'File "%s"\n' "$stage/$file"; done
  while read -r folder; do
    printf 'SetOutPath %s\n' "$(quoted "$folder")"
    find "$folder" -maxdepth 1 -type f | sort | while read -r file; do printf 'File "%s"\n' "$stage/$file"; done
  done <"$lists/folders"
} >"$lists/install.nsh"
{
  find . -type f -printf '%P\n' | sort | while read -r file; do printf 'Delete %s\n' "$(quoted "$file")"; done
  sort -r "$lists/folders" | while read -r folder; do printf 'RMDir %s\n' "$(quoted "$folder")"; done
} >"$lists/uninstall.nsh"

# The picture of the last page, large enough for screens of 200 %.
rsvg-convert -w 328 -h 628 -o "$lists/side.png" "$here/../data/icons/setup.svg"
convert-im6.q16 "$lists/side.png" -alpha off "BMP3:$lists/side.bmp"
touch -d "@$SOURCE_DATE_EPOCH" "$lists/side.bmp" # the setup keeps the times of its files

makensis -V2 -WX -DVERSION="$version" -DSTAGE="$stage" -DLISTS="$lists" -DICON="$icon" -DSIGN="$here/sign.sh" \
  -DKILOBYTES="$(du -sk --apparent-size . | cut -f1)" -DOUTPUT="$output" "$here/../data/windows/setup.nsi"
"$here/sign.sh" "$output"
