#!/usr/bin/env bash
# Builds and runs the benchmarks; docs/performance.md keeps their figures.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-packages.sh scripts/bench-packages.txt
[ -e build/linux-bench/build.ninja ] || cmake --preset linux-bench >/dev/null
cmake --build build/linux-bench
build/linux-bench/bin/document_bench
build/linux-bench/bin/hex_bench
build/linux-bench/bin/routes_bench
build/linux-bench/bin/install_bench
bench/compare_check.sh build/linux-bench/bin
bench/compare_document.sh build/linux-bench/bin
bench/compare_markers.sh build/linux-bench/bin
bench/compare_packages.sh build/linux-bench/bin
bench/compare_textures.sh build/linux-bench/bin
bench/compare_window.sh build/linux-bench/bin
