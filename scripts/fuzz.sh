#!/usr/bin/env bash
# Builds the fuzzers and runs each of them for SECONDS or until its first fault, as many at once as there are cores.
# New inputs are kept in build/fuzz/new/TARGET for later runs; inputs that show a fault go to
# build/fuzz/faults/TARGET-*. Fails when there was a fault.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:?"usage: scripts/fuzz.sh SECONDS [TARGET...]   (targets: $(cd fuzz/corpus && echo *))"}
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(ls fuzz/corpus)
for target in "${targets[@]}"; do ls -d "fuzz/corpus/$target" >/dev/null; done

scripts/install-packages.sh
cmake --preset fuzz --log-level=WARNING
cmake --build --preset fuzz --parallel "$(nproc)"

fuzz() {  # TARGET SECONDS
  local target=$1 start=$SECONDS faults=0 log=build/fuzz/new/$1.log
  mkdir -p "build/fuzz/new/$target" build/fuzz/faults
  "build/fuzz/bin/fuzz_$target" -max_total_time="$2" -timeout=30 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/faults/$target-" "build/fuzz/new/$target" "fuzz/corpus/$target" 2>"$log" || faults=1
  printf '%-14s %12s %9s %7s\n' "$target" "$(awk '/number_of_executed_units/ {print $2}' "$log")" \
    $((SECONDS - start)) "$faults"
  [ "$faults" = 0 ] || { grep -E 'BROKEN PROPERTY|ERROR:|runtime error|written to' "$log"; return 1; }
}
export -f fuzz

printf '%-14s %12s %9s %7s\n' fuzzer executions seconds faults
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c "fuzz {} $seconds"
