#!/usr/bin/env bash
# Runs every fuzz target for SECONDS (60) each; inputs that it finds stay in build/fuzz/corpus.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -e build/fuzz/build.ninja ] || cmake --preset fuzz >/dev/null
cmake --build build/fuzz
for target in build/fuzz/bin/*_fuzz; do
  name=$(basename "$target")
  mkdir -p "build/fuzz/corpus/$name"
  dictionary=()
  case "$name" in
    load_xml_fuzz | highlighter_fuzz) dictionary=(-dict=tests/fuzz/xml.dict) ;;
    blueprint_fuzz) dictionary=(-dict=tests/fuzz/blueprint.dict) ;;
    markers_*) dictionary=(-dict=tests/fuzz/markers.dict) ;;
    texture_*) dictionary=(-dict=tests/fuzz/texture.dict) ;;
    index_fuzz | remove_entry_fuzz | tile_fuzz | shape_fuzz) dictionary=(-dict=tests/fuzz/routes.dict) ;;
    scenario_fields_fuzz | consists_fuzz) dictionary=(-dict=tests/fuzz/scenario.dict) ;;
    scenario_* | catalogue_*) dictionary=(-dict=tests/fuzz/install.dict) ;;
  esac
  echo "== $name"
  "$target" -max_total_time="${1:-60}" -timeout=10 -print_final_stats=1 "${dictionary[@]}" \
    -artifact_prefix=build/fuzz/ "build/fuzz/corpus/$name" 2>&1 | grep -E '^(stat::number_of|==.*ERROR|SUMMARY|Done)|artifact'
done
