#!/usr/bin/env bash
# Format (.clang-format) and lint (.clang-tidy) of everything that git tracks. Takes a configured build folder.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?"usage: scripts/lint.sh BUILD_FOLDER"}

git ls-files -z -- '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror
echo "format: clean"

# The lint of a file takes seconds: what is linted is the code that ships, not its tests.
git ls-files -z -- '*.cpp' ':!tests' ':!bench' ':!fuzz' |
  xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p "$build" --extra-arg=-Wno-unknown-warning-option \
    --extra-arg=-Wno-ignored-optimization-argument 2>/dev/null
echo "lint: clean"
