#!/usr/bin/env bash
# Installs those packages that this machine lacks: of scripts/packages.txt, or of the lists named instead. Does
# nothing, and needs no rights, when all are there.
set -euo pipefail
cd "$(dirname "$0")"

lists=("$@")
[ ${#lists[@]} -gt 0 ] || lists=(packages.txt)
missing=()
while read -r package _; do
  case "$package" in ''|'#'*) continue ;; esac
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done < <(cat "${lists[@]}")
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
