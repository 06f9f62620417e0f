#!/usr/bin/env bash
# Has eight control points ask `tarq-dmr renderer` for anything at random, for so many seconds, and prints its memory,
# threads and open files before and after that. Fails when more of them is left, when it does not end with 0, and
# when a sanitizer complains.
#   scripts/soak-renderer.sh SECONDS [PRESET]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=$1
preset=${2:-release}
max_more_kib=32768
max_more_threads=4  # of the pools of GLib and Java, which keep some for a while
max_more_files=8

look() {
  kib=$(awk '/^VmRSS/ {print $2}' "/proc/$renderer/status")
  threads=$(find "/proc/$renderer/task" -mindepth 1 -maxdepth 1 | wc -l)
  files=$(find "/proc/$renderer/fd" -mindepth 1 | wc -l)
  printf '%-7s %8d KiB %4d threads %4d open files\n' "$1" "$kib" "$threads" "$files"
}

load() { nsenter "--net=/proc/$peer/ns/net" build/release/bin/tarq-renderer-load v1 10.9.0.2 random "$1"; }

if [[ -z ${peer:-} ]]; then
  scripts/install-packages.sh
  for each in release "$preset"; do cmake --preset "$each" --log-level=WARNING; done
  cmake --build --preset release --parallel "$(nproc)" --target tarq-renderer-load
  cmake --build --preset "$preset" --parallel "$(nproc)" --target tarq-dmr tarq_renderer
  exec scripts/two-machines.sh scripts/soak-renderer.sh "$seconds" "$preset"
fi

log=$(mktemp)
suppressions=$(mktemp)
trap 'rm "$log" "$suppressions"' EXIT
# The VM uses signals of its own, and the leak sanitizer crashes in its threads. The thread sanitizer does not see how
# GLib and the VM synchronise: jobs that go through GLib's main loop would be reported.
printf 'race:%s\n' runJob libglib libgobject libgio libproxy libjvm >"$suppressions"
ASAN_OPTIONS=detect_leaks=0:handle_segv=0:quarantine_size_mb=16 UBSAN_OPTIONS=print_stacktrace=1 \
  TSAN_OPTIONS=handle_segv=0:ignore_noninstrumented_modules=1:suppressions=$suppressions \
  MALLOC_ARENA_MAX=2 JAVA_TOOL_OPTIONS=-Xmx32m \
  "build/$preset/bin/tarq-dmr" renderer --interface v0 --region 1 \
  --player com.orsa.tarq.dlna.DesktopRendererHandler >/dev/null 2>"$log" &
renderer=$!
load $((seconds < 20 ? seconds : 20))  # caches and pools fill
sleep 5
look before
before=("$kib" "$threads" "$files")
load "$seconds"
sleep 5
look after
kill $renderer
status=0
wait $renderer || status=$?
grep -E -A 25 '(WARNING|ERROR): .*Sanitizer|runtime error' "$log" && status=1
((kib <= before[0] + max_more_kib && threads <= before[1] + max_more_threads && files <= before[2] + max_more_files)) ||
  status=1
exit $status
