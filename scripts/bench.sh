#!/usr/bin/env bash
# Prints what the work of the plug-in costs, each row beside the least that it could cost.
# Instructions are the difference of two repetition counts under callgrind: they do not depend on the machine's load.
# Times are medians of runs in turn, and do.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset release --log-level=WARNING
cmake --build --preset release --parallel "$(nproc)" --target tarq-work tarq-bench tarq-batch-bench tarq_dmr_plugin
bin=build/release/bin

instructions() {  # WHAT KIND COUNT
  local few=20 many=120 low high
  run() { valgrind --tool=callgrind --callgrind-out-file=/dev/null $bin/tarq-work "$@" 2>&1 >/dev/null | awk '/Collected/ {print $4}'; }
  low=$(run "$@" $few)
  high=$(run "$@" $many)
  echo $(((high - low) / (many - few)))
}

echo "== instructions of a whole check, beside a bare walk of the same text"
printf '%-6s %5s %12s %12s %6s\n' kind res walk check ratio
for kind in video music photo; do
  for count in 1 4 16 64 256; do
    walk=$(instructions walk "$kind" "$count")
    check=$(instructions check "$kind" "$count")
    awk -v kind="$kind" -v count="$count" -v walk="$walk" -v check="$check" \
      'BEGIN {printf "%-6s %5d %12d %12d %6.2f\n", kind, count, walk, check, check / walk}'
  done
done
printf '\n== the sink text of region 2: %d instructions\n' "$(instructions sink video 1)"

printf '\n== times, beside the same by bare libraries in turn\n'
$bin/tarq-bench --benchmark_counters_tabular=true 2>/dev/null

printf '\n== a batch\n'
$bin/tarq-batch-bench

strip -o build/release/stripped.so build/release/lib/libtarq_dmr_plugin.so
printf '\n== the stripped plug-in: %d bytes\n' "$(stat -c %s build/release/stripped.so)"
