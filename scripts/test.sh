#!/usr/bin/env bash
# Builds both targets and runs every test of both. The test runners' own summaries are the last lines.
set -euo pipefail
cd "$(dirname "$0")/.."
export LC_ALL=C.UTF-8

step() { printf '\n== %s\n' "$*"; }

build() { # preset
  step "Build: $1"
  [ -e "build/$1/build.ninja" ] || cmake --preset "$1" >build-$1.log 2>&1 || { cat "build-$1.log"; return 1; }
  rm -f "build-$1.log"
  cmake --build "build/$1"
}

run_tests() { # preset
  step "Test: $1"
  ./scripts/with-display.sh ctest --test-dir "build/$1" --no-tests=error && return
  awk -f scripts/failed-tests.awk "build/$1/Testing/Temporary/LastTest.log"
  return 1
}

build linux
build linux-asan
build windows
# The linter takes what the tests leave of the processors: they wait for windows and other programs most of the time.
lint_log=$(mktemp)
set -m # a process group of its own, to be ended as a whole
nice -n 19 ./scripts/lint.sh >"$lint_log" 2>&1 &
lint=$!
set +m
summary=$(mktemp)
trap 'rm -f "$summary" "$lint_log"; kill -- -$lint 2>/dev/null || true' EXIT
status=0
for preset in linux linux-asan windows; do
  run_tests "$preset" 2>&1 | tee -a "$summary" || status=1
done
step "Lint"
if wait $lint; then
  echo "clean"
else
  cat "$lint_log"
  status=1
fi
step "Summaries"
grep -E '^(== Test|[0-9]+% tests passed|Total Test time)' "$summary"
exit $status
