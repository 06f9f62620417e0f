#!/usr/bin/env bash
# Checks the format of the C++ sources and runs clang-tidy (.clang-tidy). Takes a configured build folder.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?"usage: scripts/lint.sh BUILD_FOLDER"}

scripts/format.sh --check
echo "format: clean"

# clang-tidy takes seconds for a file: only the code that ships is checked, not its tests. The examples are not part of
# the build.
git ls-files -z -- '*.cpp' ':!tests' ':!bench' ':!fuzz' ':!examples' |
  xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p "$build" --extra-arg=-Wno-unknown-warning-option \
    --extra-arg=-Wno-ignored-optimization-argument 2>/dev/null
echo "lint: clean"
