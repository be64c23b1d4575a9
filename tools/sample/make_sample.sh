#!/usr/bin/env bash
# Remakes install/sample/office.inp, the sample project a new user runs first:
# the small office of the engine's energy checks (five zones, Baltimore, gas
# rooftop units), written as the program saves a project. Its roofs name a
# window type as the sketch's rows do. The run uses simulated weather from the
# project's own monthly statistics.
#   tools/sample/make_sample.sh [build/cli/marloven-cli]
set -euo pipefail
cd "$(dirname "$0")/../.."
cli=${1:-build/cli/marloven-cli}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/temp" "$work/sketch"
sed 's/^Window ID  0 /Window ID  1 /; s/^Proj.Name .*/Proj.Name Small Office (sample)\r/' \
  tests/engine/fixtures/office/office_baltimore.inp > "$work/office.inp"
"$cli" --install "$work" inp normalize "$work/office.inp" install/sample/office.inp
echo "install/sample/office.inp"
