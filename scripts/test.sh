#!/usr/bin/env bash
# Checks format, lint and sizes, then builds and tests every preset that CI runs: release, asan, tsan and fuzz.
# `scripts/test.sh PRESET...` takes these presets instead; `scripts/test.sh --no-lint PRESET...` only builds and tests.
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
  scripts/sizes.sh --check
fi
for preset in "${presets[@]}"; do
  echo "== $preset"
  cmake --preset "$preset"
  cmake --build --preset "$preset" --parallel "$jobs"
  ctest --preset "$preset" --parallel "$jobs"
done
