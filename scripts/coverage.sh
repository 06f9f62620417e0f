#!/usr/bin/env bash
# Runs the tests and prints the lines that they do not reach, file by file, and the share of each folder's lines that
# they do.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
build=build/coverage
jobs=$(nproc)
# Atomic counters: others lose counts, and may end below zero, when several threads run.
cmake -S . -B "$build" -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS="--coverage -fprofile-update=atomic"
cmake --build "$build" --parallel "$jobs"
find "$build" -name '*.gcda' -delete
ctest --test-dir "$build" --parallel "$jobs" --output-on-failure --quiet

gcovr --object-directory "$build" --filter '(host|profiles|resource|selection|player|plugin|desktop)/' \
  --csv "$build/lines.csv" --txt - "$build"/{profiles,resource,selection,player,plugin,desktop,tests}
awk -F, 'NR > 1 {
           folder = $1
           sub("/[^/]*$", "", folder)
           all[folder] += $2
           reached[folder] += $3
         }
         END {
           for (folder in all)
             printf "%-17s %5d of %5d lines  %5.1f %%\n", folder, reached[folder], all[folder],
                    100 * reached[folder] / all[folder]
         }' "$build/lines.csv" | sort
