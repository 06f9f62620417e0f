#!/usr/bin/env bash
# Measures what the plug-in's work costs, each row against a baseline: the least work that could do the same.
# Instructions are the difference between two repetition counts under callgrind and do not depend on the machine's
# load. Times do: they are medians of runs of both, one after the other.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset release --log-level=WARNING
cmake --build --preset release --parallel "$(nproc)" --target tarq-work tarq-bench tarq-batch-bench tarq_dmr_plugin
bin=build/release/bin

instructions() {  # WHAT KIND COUNT
  local few=20 many=120 low high
  run() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null $bin/tarq-work "$@" 2>&1 >/dev/null |
      awk '/Collected/ {print $4}'
  }
  low=$(run "$@" $few)
  high=$(run "$@" $many)
  echo $(((high - low) / (many - few)))
}

echo "== instructions of a whole check; baseline: a bare walk of the same document"
printf '%-6s %5s %12s %12s %6s\n' kind res baseline check ratio
for kind in video music photo; do
  for count in 1 4 16 64 256; do
    walk=$(instructions walk "$kind" "$count")
    check=$(instructions check "$kind" "$count")
    awk -v kind="$kind" -v count="$count" -v walk="$walk" -v check="$check" \
      'BEGIN {printf "%-6s %5d %12d %12d %6.2f\n", kind, count, walk, check, check / walk}'
  done
done
printf "\n== instructions of GUPnP AV's own choice for the same document\n%-6s %5s %12s %6s\n" kind res choice times
for count in 1 16; do
  choice=$(instructions av video "$count")
  check=$(instructions check video "$count")
  awk -v count="$count" -v choice="$choice" -v check="$check" \
    'BEGIN {printf "%-6s %5d %12d %6.1f\n", "video", count, choice, choice / check}'
done
printf '\n== the sink protocolInfo of region 2: %d instructions\n' "$(instructions sink video 1)"

printf '\n== times; baseline: the same work with bare libraries\n'
$bin/tarq-bench --benchmark_counters_tabular=true 2>/dev/null

printf '\n== a batch\n'
$bin/tarq-batch-bench

strip -o build/release/stripped.so build/release/lib/libtarq_dmr_plugin.so
printf '\n== the stripped plug-in: %d bytes\n' "$(stat -c %s build/release/stripped.so)"
