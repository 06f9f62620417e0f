#!/usr/bin/env bash
# Formats the C++ sources as .clang-format says. With --check it changes nothing and fails when one is not formatted.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(-i)
[ "${1:-}" != --check ] || mode=(--dry-run -Werror)
git ls-files -z -- '*.cpp' '*.h' | xargs -0 clang-format "${mode[@]}"
