#!/usr/bin/env bash
# Prints what the work of the plug-in costs, each row beside the least that it could cost.
# Instructions are the difference of two repetition counts under callgrind: they do not depend on the machine's load.
# Times are medians of seven runs in turn, and do.
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

printf '\n== times, beside the same by bare libraries\n'
$bin/tarq-bench --benchmark_repetitions=7 --benchmark_enable_random_interleaving=true --benchmark_min_time=0.1 \
  --benchmark_report_aggregates_only=true --benchmark_format=csv 2>/dev/null |
  awk -F, 'gsub("\"", "", $1) && sub("(/real_time)?_median$", "", $1) {print $1, $3, $5}' | sort -V |
  awk '{name[NR] = $1; time[$1] = $2; unit[$1] = $3}
       END {
         bare["wholeCheck"] = "walkOnly"; bare["checkWithHead"] = "headOnly"; bare["forwardedCall"] = "bareCall"
         for (i = 1; i <= NR; ++i) {
           what = base = of = name[i]
           sub("/.*", "", base)
           ratio = ""
           if (base in bare) {
             sub(base, bare[base], of)
             ratio = sprintf("%6.2f times %s", time[what] / time[of], of)
           }
           printf "%-24s %12.2f %s%s\n", what, time[what], unit[what], ratio
         }
       }'

printf '\n== a batch\n'
$bin/tarq-batch-bench

strip -o build/release/stripped.so build/release/lib/libtarq_dmr_plugin.so
printf '\n== the stripped plug-in: %d bytes\n' "$(stat -c %s build/release/stripped.so)"
