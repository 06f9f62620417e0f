#!/usr/bin/env bash
# Makes the Debian package build/release/tarq-dmr_VERSION_ARCHITECTURE.deb and checks it with lintian.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset release --log-level=WARNING
cmake --build --preset release --parallel "$(nproc)" --target desktop/all plugin/all
rm -f build/release/tarq-dmr_*.deb
cpack --config build/release/CPackConfig.cmake -B build/release
lintian --fail-on error build/release/tarq-dmr_*.deb
ls -l build/release/tarq-dmr_*.deb
