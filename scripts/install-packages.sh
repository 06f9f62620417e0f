#!/usr/bin/env bash
# Installs the packages of scripts/packages.txt, or of the lists named as arguments, that are missing. When none is
# missing it prints nothing and needs no privileges.
set -euo pipefail
cd "$(dirname "$0")"

lists=("$@")
[ ${#lists[@]} -gt 0 ] || lists=(packages.txt)
missing=()
while read -r package _; do
  case "$package" in ''|'#'*) continue ;; esac
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done < <(cat "${lists[@]}")
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
