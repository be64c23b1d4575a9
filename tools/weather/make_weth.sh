#!/usr/bin/env bash
# Remakes install/weather/weth.asc from the recorded weather files that
# MANIFEST.md lists, one record per EPW file, with `marloven-cli weather import`.
#
#   tools/weather/make_weth.sh [WEATHER_DIR] [CLI]
#
# WEATHER_DIR holds MANIFEST.md and recorded/ (default: ../shared/weather beside
# the repository); CLI is the built marloven-cli (default: build/cli/marloven-cli).
# The database is written anew each time, files in a fixed order: U.S. places
# by state code, then the other places by country, each by file name, so the
# same files give the same bytes. Files of other layouts (.tm2, .CSV, .TMY)
# are skipped; their places are in the set as EPW files as well.
set -euo pipefail
repo=$(cd "$(dirname "$0")/../.." && pwd)
weather=${1:-$repo/../shared/weather}
cli=${2:-$repo/build/cli/marloven-cli}
[ -f "$weather/MANIFEST.md" ] || { echo "no $weather/MANIFEST.md" >&2; exit 1; }
[ -x "$cli" ] || { echo "no $cli: build first (cmake --build build)" >&2; exit 1; }

# Group names of the countries the set holds; U.S. states and Puerto Rico are
# named by the importer from their codes.
country() {
  case "$1" in
    BLZ) echo Belize ;; CAN) echo Canada ;; CHN) echo China ;; CUB) echo Cuba ;; EGY) echo Egypt ;;
    ESP) echo Spain ;; ETH) echo Ethiopia ;; FRA) echo France ;; GTM) echo Guatemala ;; ITA) echo Italy ;;
    NIC) echo Nicaragua ;; POL) echo Poland ;; SLV) echo "El Salvador" ;; "New Zealand"|NZL) echo "New Zealand" ;;
    *) echo "unknown country $1: add its name to $0" >&2; return 1 ;;
  esac
}

# Table rows of the manifest whose first cell is an EPW file: file, state,
# country, from the first table that names the file (the one of places).
rows=$(awk -F'|' '$2 ~ /\.epw *$/ { for (i = 2; i <= 5; i++) gsub(/^ +| +$/, "", $i);
                                     if (!seen[$2]++) print $2 "|" $4 "|" $5 }' "$weather/MANIFEST.md")
us=$(echo "$rows" | awk -F'|' '$3 == "USA" || $3 == "PRI"' | LC_ALL=C sort -t'|' -k2,2 -k1,1)
other=$(echo "$rows" | awk -F'|' '$3 != "USA" && $3 != "PRI"' | LC_ALL=C sort -t'|' -k3,3 -k1,1)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/weather"
count=0
while IFS='|' read -r file state cntry; do
  [ -n "$file" ] || continue
  path="$weather/recorded/$file"
  # The city as the file's LOCATION line names it, underscores and runs of
  # blanks made single blanks.
  city=$(head -1 "$path" | cut -d, -f2 | tr '_' ' ' | tr -s ' ' | sed 's/^ //; s/ $//')
  args=(--install "$work" weather import "$path" --city "$city")
  if [ "$cntry" != USA ] && [ "$cntry" != PRI ]; then args+=(--group "$(country "$cntry")"); fi
  "$cli" "${args[@]}" >/dev/null
  count=$((count + 1))
done <<< "$us
$other"

mkdir -p "$repo/install/weather"
cp "$work/weather/weth.asc" "$repo/install/weather/weth.asc"
echo "install/weather/weth.asc: $count records"
