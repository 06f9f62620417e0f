#!/usr/bin/env bash
# Prints what a check costs beside a bare walk of the same metadata, in instructions, and the benchmarks' times.
# Instructions are the difference of two repetition counts under callgrind: they do not depend on the machine's load.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset release --log-level=WARNING
cmake --build --preset release --parallel "$(nproc)"
work=build/release/bin/tarq-work

instructions() {  # WHAT KIND COUNT
  local few=20 many=120 low high
  run() { valgrind --tool=callgrind --callgrind-out-file=/dev/null "$work" "$@" 2>&1 >/dev/null | awk '/Collected/ {print $4}'; }
  low=$(run "$@" $few)
  high=$(run "$@" $many)
  echo $(((high - low) / (many - few)))
}

printf '%-6s %5s %12s %12s %6s\n' kind res walk check ratio
for kind in video music photo; do
  for count in 1 4 16 64 256; do
    walk=$(instructions walk "$kind" "$count")
    check=$(instructions check "$kind" "$count")
    printf '%-6s %5d %12d %12d %6s\n' "$kind" "$count" "$walk" "$check" \
      "$(awk -v a="$check" -v b="$walk" 'BEGIN {printf "%.2f", a / b}')"
  done
done
printf '\nsink text, region 2: %d instructions\n\n' "$(instructions sink video 1)"
build/release/bin/tarq-bench
