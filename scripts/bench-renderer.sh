#!/usr/bin/env bash
# Measures how soon media renderers answer GetPositionInfo, which eight control points on another machine ask for
# ten times a second: that of `tarq-dmr renderer`, and beside it those of the Debian packages rygel (with
# rygel-playbin) and gmediarender. They are measured when they are installed, which is left to you.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
bin=$PWD/build/release/bin

measure() {  # NAME COMMAND...
  local name=$1
  shift
  printf '%-13s ' "$name"
  if ! command -v "$1" >/dev/null; then
    echo 'not installed'
    return
  fi
  "$@" >"$folder/$name.log" 2>&1 &
  local renderer=$!
  nsenter "--net=/proc/$peer/ns/net" "$bin/tarq-renderer-load" v1 10.9.0.2 position "$seconds" || true
  kill $renderer || true
  wait $renderer || true
}

if [[ -z ${peer:-} ]]; then
  scripts/install-packages.sh
  cmake --preset release --log-level=WARNING
  cmake --build --preset release --parallel "$(nproc)" --target tarq-renderer-load tarq-dmr tarq_renderer
  exec scripts/two-machines.sh scripts/bench-renderer.sh "$seconds"
fi
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
export XDG_CONFIG_HOME=$folder HOME=$folder  # no settings of this user
cat >"$folder/rygel.conf" <<'CONF'
[general]
interface=v0
enable-transcoding=false
[Playbin]
enabled=true
[MediaExport]
enabled=false
[Tracker3]
enabled=false
[External]
enabled=false
CONF
measure tarq-dmr "$bin/tarq-dmr" renderer --interface v0 --region 1 --player com.orsa.tarq.dlna.DesktopRendererHandler
measure rygel rygel --config="$folder/rygel.conf"
measure gmediarender gmediarender --interface-name v0 --gstout-audiosink fakesink
