#!/usr/bin/env bash
# Checks that what ships was built as cmake/Compile.cmake wants it: hardened, without folders of this machine, and
# exporting no more than host/ declares and plugin/exports.map lists. Takes the build folder of the preset `release`.
set -euo pipefail
build=$(realpath "${1:?"usage: scripts/check-hardening.sh BUILD_FOLDER"}")
cd "$(dirname "$0")/.."

faults=0
fault() {
  echo "$file $1" >&2
  faults=$((faults + 1))
}
has() { grep -Eq -- "$1" <<<"$2"; }

# Classes and functions that $file exports and that are not among these.
unexpected_exports() {
  comm -23 <(nm -DC --defined-only "$file" | cut -d' ' -f3- | sed -E 's/^(typeinfo name|typeinfo|vtable) for //' |
    sed -E 's/\(.*//; s/::[^:]*$//' | sort -u) <(sort -u <<<"$1") | paste -sd' '
}

for file in bin/tarq-dmr lib/libtarq.so lib/libtarq_dmr_plugin.so lib/libtarq_renderer.so lib/libtarq_library.so; do
  file=$build/$file
  [[ -e $file || $file != *_@(renderer|library).so ]] || continue  # left out where GUPnP is missing
  elf=$(readelf -dhlW "$file")
  imports=$(nm -D --undefined-only "$file")
  has 'Type: +DYN' "$elf" || fault "is not position-independent"
  has GNU_RELRO "$elf" || fault "has no RELRO"
  has BIND_NOW "$elf" || fault "leaves the addresses of functions writable: it binds them late"
  has 'GNU_STACK.* RW ' "$elf" || fault "has an executable stack"
  has __stack_chk_fail "$imports" || fault "has no stack protector"
  paths=$(sed -nE 's/.*(RUNPATH|RPATH).*\[(.*)\]/\2/p' <<<"$elf" | tr : '\n')
  # The exception: Debian's folder of Android's liblog.
  ! grep -v '^/usr/lib/[^/]*/android$' <<<"$paths" | grep -q '^[^$]' || fault "looks for libraries in $paths"
  # The C library's own start code has a few of these marks.
  if has 'Machine:.*(X86-64|80386)' "$elf" && (($(objdump -d "$file" | grep -cE 'endbr(64|32)') < 10)); then
    fault "lets indirect branches go anywhere (-fcf-protection)"
  fi
done

file=$build/bin/tarq-dmr
has '__[a-z]+_chk@' "$(nm -D --undefined-only "$file" | grep -v __stack_chk)" || fault "has no _FORTIFY_SOURCE"

file=$build/lib/libtarq.so
declared=$(sed -nE 's/.*TARQ_HOST_API ([^(:{]* )?([A-Za-z]+) *[(:{].*/\2/p' host/*.h)
exports=$(unexpected_exports "$declared")
[ -z "$exports" ] || fault "exports what host/ does not declare: $exports"

file=$build/lib/libtarq_dmr_plugin.so
exports=$(unexpected_exports "$(sed -nE 's/^ +(\w+);$/\1/p' plugin/exports.map)")
[ -z "$exports" ] || fault "exports what plugin/exports.map does not list: $exports"

for function in runTarqRenderer runTarqLibrary; do
  file=$build/lib/libtarq_$(tr '[:upper:]' '[:lower:]' <<<"${function#runTarq}").so
  [ -e "$file" ] || continue
  exports=$(unexpected_exports "$function")
  [ -z "$exports" ] || fault "exports more than its one function: $exports"
done

exit $((faults > 0))
