#!/usr/bin/env bash
# A parametric study on one machine: variants of a project run side by side
# with GNU parallel, one process each, summarised into one CSV.
#
#   tools/batch/run_variants.sh [-j JOBS] [--cli PATH] INSTALL_DIR PROJECT.inp OUT_DIR
#
# The variants turn the building (0, 45, 90 and 135 degrees) and take the
# lighting power density at 100 % and 75 % of the project's: eight runs. Each
# run works in a scratch folder of its own under INSTALL_DIR/temp/runs, saves
# OUT_DIR/<variant>.ot1 and the table is OUT_DIR/summary.csv.
set -euo pipefail
jobs=2
cli=marloven-cli
while [ $# -gt 3 ]; do
  case "$1" in
    -j) jobs=$2; shift 2 ;;
    --cli) cli=$2; shift 2 ;;
    *) echo "usage: $0 [-j JOBS] [--cli PATH] INSTALL_DIR PROJECT.inp OUT_DIR" >&2; exit 2 ;;
  esac
done
[ $# -eq 3 ] || { echo "usage: $0 [-j JOBS] [--cli PATH] INSTALL_DIR PROJECT.inp OUT_DIR" >&2; exit 2; }
install=$1 project=$2 out=$3
command -v parallel >/dev/null || { echo "$0: GNU parallel is not installed (apt-get install parallel)" >&2; exit 1; }
mkdir -p "$out"

# A variant is the project with its orientation and every zone's lighting
# power density changed; the lines keep their CR LF ends.
for orient in 0 45 90 135; do
  for lpd in 100 75; do
    awk -v o="$orient" -v f="$lpd" '
      /^Orient\.   / { printf "Orient.   %s\r\n", o; next }
      /^Watt\/sqft / { v = substr($0, 11); sub(/\r$/, "", v); printf "Watt/sqft %.3g\r\n", v * f / 100; next }
      { print }' "$project" > "$out/orient$orient-lpd$lpd.inp"
  done
done

# One engine per core; each run prints its summary, kept beside its report.
parallel -j "$jobs" --halt now,fail=1 \
  "$cli --install '$install' run {} --repeat-weather --out {.} > {.}.txt" ::: "$out"/orient*-lpd*.inp
"$cli" results summary "$out"/orient*-lpd*.ot1 --csv > "$out/summary.csv"
echo "$out/summary.csv"
