#!/usr/bin/env bash
# Runs a Windows program through Wine, in a prefix of the build's own. A UTF-8 locale is needed for file names.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX=${TAMARIND_WINEPREFIX:-$here/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} LC_ALL=C.UTF-8
# Nothing of the toolkits that Wine would offer to install is needed.
export WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe='
mkdir -p "$WINEPREFIX"
exec wine "$@"
