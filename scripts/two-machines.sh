#!/usr/bin/env bash
# Runs a command on one of two machines with a cable between them, as network namespaces: this one has v0 with
# 10.9.0.1; the other has v1 with 10.9.0.2, and `nsenter --net="/proc/$peer/ns/net"` runs programs there.
set -euo pipefail

make_network() {
  unshare --net sleep infinity &
  export peer=$!
  trap 'kill $peer' EXIT
  until [[ $(readlink "/proc/$peer/ns/net") != "$(readlink /proc/self/ns/net)" ]]; do sleep 0.01; done
  local there=(nsenter "--net=/proc/$peer/ns/net" ip)
  ip link set lo up
  ip link add v0 type veth peer name v1 netns "$peer"
  ip addr add 10.9.0.1/24 dev v0
  ip link set v0 up
  ip route add default dev v0
  "${there[@]}" link set lo up
  "${there[@]}" addr add 10.9.0.2/24 dev v1
  "${there[@]}" link set v1 up
  "${there[@]}" route add default dev v1
}

if [[ ${1:-} == --inside ]]; then
  shift
  make_network
  "$@"
else
  exec unshare --net --map-root-user "$0" --inside "$@"
fi
