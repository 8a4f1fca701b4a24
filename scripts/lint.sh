#!/usr/bin/env bash
# The format of every source file of ours, and clang-tidy's checks of the programs' own (the tests would take it twice
# as long again; the compiler's warnings stand for them). `lint.sh FILE…` checks only those.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t sources < <(if [ $# -gt 0 ]; then printf '%s\n' "$@"; else git ls-files -co --exclude-standard '*.cpp' '*.h'; fi)
clang-format --dry-run -Werror "${sources[@]}"
# Sources of the Windows bodies have no entry in the Linux compile commands: the cross compiler's warnings check them.
mapfile -t compiled < <(printf '%s\n' "${sources[@]}" | grep '\.cpp$' | grep -Ev '/windows/|^tests/' |
  while read -r file; do grep -q "\"file\": \"$PWD/$file\"" build/linux/compile_commands.json && echo "$file"; done)
[ ${#compiled[@]} -eq 0 ] && exit 0
# A file that passed is not checked again, in this checkout or another, until it, a header, the checks or their program
# change: all of them take half an hour on two cores.
export stamps=${TAMARIND_CACHE:-$HOME/.cache/tamarind}/lint
mkdir -p "$stamps"
find "$stamps" -type f -mtime +30 -delete
state=$({ clang-tidy --version; cat .clang-tidy $(git ls-files -co --exclude-standard '*.h'); } | sha256sum | cut -c1-16)
check() {
  local stamp
  stamp=$stamps/$(echo "$2 $(sha256sum "$2")" | sha256sum | cut -c1-16)-$1
  [ -e "$stamp" ] && return 0
  clang-tidy -p build/linux --quiet "$2" 2>/dev/null && touch "$stamp"
}
export -f check
printf '%s\0' "${compiled[@]}" | xargs -0 -P "$(nproc)" -I{} bash -c 'check "$@"' check "$state" {}
