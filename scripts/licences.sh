#!/usr/bin/env bash
# Prints the licences of the Debian packages named: their copyright files, and once each the texts that those refer to.
set -euo pipefail
texts=()
for package in "$@"; do
  # A package may share the folder of another's documents.
  file=$(readlink -f "/usr/share/doc/$package/copyright") && [ -s "$file" ] ||
    { echo "licences: $package has no copyright file" >&2; exit 1; }
  printf '%s\n== %s %s\n%s\n\n' "$(printf '=%.0s' {1..100})" "$package" \
    "$(dpkg-query -W -f='${Version}' "$package")" "$(printf '=%.0s' {1..100})"
  cat "$file"
  echo
  while read -r text; do
    # "GPL" is the newest of them.
    [ -e "/usr/share/common-licenses/$text" ] && texts+=("$(basename "$(readlink -f "/usr/share/common-licenses/$text")")")
  done < <(grep -o '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' "$file" | xargs -rn1 basename)
done
for text in $(printf '%s\n' "${texts[@]}" | sort -u); do
  printf '%s\n== %s\n%s\n\n' "$(printf '=%.0s' {1..100})" "$text" "$(printf '=%.0s' {1..100})"
  cat "/usr/share/common-licenses/$text"
done
