#!/usr/bin/env bash
# Builds everything for 32-bit ARM (4-byte pointers, unsigned char) and runs the tests in an emulator.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh packages.txt packages-arm.txt

# The libraries of the target, with all their dependencies, are unpacked into a folder. Installing them would need the
# very versions that this machine has of its own. apt resolves them as on a machine without any package.
sysroot=build/arm-sysroot
if ! cmp -s scripts/sysroot-arm.txt "$sysroot/packages.txt"; then
  rm -rf "$sysroot"
  apt=$(mktemp -d)
  trap 'rm -rf "$apt"' EXIT
  mkdir -p "$sysroot" "$apt/lists/partial" "$apt/cache/archives/partial"
  touch "$apt/status"
  for_arm() {
    apt-get -qq -o APT::Architecture=armhf -o APT::Architectures::=armhf -o APT::Sandbox::User="$(id -un)" \
      -o Dir::State="$apt" -o Dir::State::status="$apt/status" -o Dir::Cache="$apt/cache" -o Debug::NoLocking=1 "$@"
  }
  for_arm update || echo "some package lists are missing; continuing with the others"
  mapfile -t packages < <(sed -n 's/ *#.*//; /./p' scripts/sysroot-arm.txt)
  for_arm install --yes --no-install-recommends --download-only "${packages[@]}"
  for package in "$apt"/cache/archives/*.deb; do
    dpkg --extract "$package" "$sysroot"
  done
  # Absolute links start at the target's root.
  find "$sysroot" -type l -lname '/*' -printf '%p %l\n' | while read -r link target; do
    ln -sfn "$PWD/$sysroot$target" "$link"
  done
  cp scripts/sysroot-arm.txt "$sysroot/packages.txt"
fi

scripts/test.sh --no-lint arm
