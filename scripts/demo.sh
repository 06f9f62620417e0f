#!/usr/bin/env bash
# Builds the plug-in and the desktop host, then shows a typical request from start to end.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset release --log-level=WARNING
cmake --build --preset release --parallel "$(nproc)"
build/release/bin/tarq-dmr demo
