#!/usr/bin/env bash
# Prints how much code each folder has (lines that are not blank and not only comment), how long its functions are,
# and the share of test code. With --check it fails when a limit below is passed.
set -euo pipefail
cd "$(dirname "$0")/.."

max_test_percent=36  # of the lines of all other code
max_function_lines=40
max_file_lines=300
tables=(profiles/MediaProfileTables.h)  # files that may be longer: their rows are data

tests='tests fuzz'
code='plugin profiles resource selection player host media desktop bench'

mapfile -t files < <(git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' '*.java')

# One line per function: file, first line, last line, name. Lambdas count as part of the function around them.
functions() {
  ctags -x --languages=C++,Java --kinds-C++=f --kinds-Java=m --_xformat='%F %n %e %N' "${files[@]}" |
    awk '$4 !~ /^__anon/'
}

# One line per file: file, lines of code, all lines.
lines() {
  awk 'FNR == 1 {if (file) print file, code, all; file = FILENAME; code = all = inside = 0}
       {all++}
       inside {if (/\*\//) inside = 0; next}
       /^[[:space:]]*\/\*/ {if (!/\*\//) inside = 1; next}
       !/^[[:space:]]*(\/\/.*)?$/ {code++}
       END {print file, code, all}' "${files[@]}"
}

awk -v tests="$tests" -v code="$code" -v check="${1:-}" -v max_percent="$max_test_percent" \
  -v max_function="$max_function_lines" -v max_file="$max_file_lines" -v tables="${tables[*]}" '
  function folder_of(file) {return match(file, /.*\//) ? substr(file, 1, RLENGTH - 1) : "."}
  function set_of(names, into,   parts, i) {split(names, parts, " "); for (i in parts) into[parts[i]]}
  function add_fault(text) {faults = faults "above the limit: " text "\n"}
  BEGIN {set_of(tests, is_test); set_of(code, is_code); set_of(tables, is_table)}
  FNR == NR {
    folder = folder_of($1)
    folders[folder] += $2
    top = $1
    sub("/.*", "", top)
    if (top in is_test) test_lines += $2
    if (top in is_code) code_lines += $2
    if ($3 > max_file && !($1 in is_table)) add_fault($1 " has " $3 " lines, not " max_file)
    next
  }
  {
    folder = folder_of($1)
    size = $3 - $2 + 1
    seen[folder, size]++
    count[folder]++
    if (size > longest[folder]) {longest[folder] = size; name[folder] = $4}
    if (size > max_function) add_fault($1 ":" $2 ": " $4 " has " size " lines, not " max_function)
  }
  function median(folder,   size, below) {
    for (size = 1; size <= longest[folder]; size++)
      if ((below += seen[folder, size]) * 2 >= count[folder]) return size
    return "-"
  }
  END {
    printf "%-32s %6s %10s %7s %8s\n", "folder", "lines", "functions", "median", "longest"
    for (folder in folders)
      printf "%-32s %6d %10d %7s %8d  %s\n", folder, folders[folder], count[folder], median(folder),
             longest[folder], name[folder] | "sort"
    close("sort")
    percent = 100 * test_lines / code_lines
    printf "test code: %d lines, %.1f %% of the %d lines of the other code\n", test_lines, percent, code_lines
    if (percent > max_percent) add_fault(sprintf("test code, %.1f %%, not %d %%", percent, max_percent))
    printf "%s", faults
    exit check == "--check" && faults != ""
  }' <(lines) <(functions)
