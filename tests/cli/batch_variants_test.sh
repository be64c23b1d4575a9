#!/usr/bin/env bash
# Eight variants of the sample project with GNU parallel on two cores, and
# their summary: one CSV line each, the lighting following the variant.
#   batch_variants_test.sh SOURCE_DIR CLI TARN64
set -euo pipefail
src=$1 cli=$2
export MARLOVEN_TARN64=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$src/install" "$work/install"
mkdir -p "$work/install/temp"
"$src/tools/batch/run_variants.sh" -j 2 --cli "$cli" "$work/install" "$src/install/sample/office.inp" "$work/out" >/dev/null
csv="$work/out/summary.csv"
lines=$(wc -l < "$csv")
[ "$lines" -eq 9 ] || { echo "expected a header and 8 runs, got $lines lines"; cat "$csv"; exit 1; }
[ "$(ls "$work/install/temp/runs" | wc -l)" -eq 8 ] || { echo "the runs did not each get a folder"; exit 1; }
# Column 7 is lighting: 75 % of the full figure within the rounding.
awk -F, 'NR > 1 { key = $1; sub(/-lpd[0-9]+\.ot1"$/, "", key); light[key, ($1 ~ /lpd75/)] = $7 }
  END { for (k in light) { split(k, p, SUBSEP); if (p[2] == 0) {
          r = light[p[1], 1] / light[p[1], 0]
          if (r < 0.74 || r > 0.76) { print "lighting of " p[1] " at 75 %: " r; bad = 1 } } }
        exit bad }' "$csv"
echo "8 variants summarised"
