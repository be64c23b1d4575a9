#!/usr/bin/env bash
# Runs every libFuzzer harness of a -DMARLOVEN_FUZZ=ON tree for a while on a
# copy of its seed corpus; stops at the first finding (crash-* file beside it).
#   tools/fuzz_smoke.sh [BUILD_DIR] [SECONDS_EACH]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-fuzz}
seconds=${2:-30}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for harness in "$build"/fuzz/fuzz_*; do
  [ -x "$harness" ] || continue
  name=$(basename "$harness")
  mkdir -p "$work/$name"
  cp fuzz/corpus/"$name"/* "$work/$name"/
  echo "== $name ($seconds s)"
  "$harness" -max_total_time="$seconds" -max_len=65536 -timeout=10 -rss_limit_mb=2048 \
    -artifact_prefix="$build/fuzz/$name-" -print_final_stats=1 "$work/$name" 2>&1 |
    grep -E "^(stat::number_of_executed_units|stat::peak_rss_mb|==[0-9]+==ERROR|SUMMARY|.*runtime error)" || true
  if ls "$build/fuzz/$name-"crash-* "$build/fuzz/$name-"timeout-* >/dev/null 2>&1; then
    echo "$name: finding in $build/fuzz/" >&2
    exit 1
  fi
done
