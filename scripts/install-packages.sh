#!/usr/bin/env bash
# Installs the packages of packages.txt (and of further lists given) that this machine lacks.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
missing=()
while read -r package; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done < <(grep -hv '^#' "$here/packages.txt" "$@")
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -yq --no-install-recommends "${missing[@]}"
