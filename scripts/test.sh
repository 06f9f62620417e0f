#!/usr/bin/env bash
# Checks format and lint, then builds and tests. `scripts/test.sh PRESET...` does so for these presets only;
# without any: release, asan, tsan and fuzz. `scripts/test.sh --no-lint PRESET...` leaves the first step out.
set -euo pipefail
cd "$(dirname "$0")/.."

lint=yes
if [ "${1:-}" = --no-lint ]; then
  lint=no
  shift
fi
presets=("$@")
[ ${#presets[@]} -gt 0 ] || presets=(release asan tsan fuzz)

scripts/install-packages.sh
jobs=$(nproc)

if [ "$lint" = yes ]; then
  cmake --preset "${presets[0]}"
  scripts/lint.sh "build/${presets[0]}"
fi
for preset in "${presets[@]}"; do
  echo "== $preset"
  cmake --preset "$preset"
  cmake --build --preset "$preset" --parallel "$jobs"
  ctest --preset "$preset" --parallel "$jobs"
done
