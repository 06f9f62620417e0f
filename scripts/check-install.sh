#!/usr/bin/env bash
# Installs a build into a folder, moves that, and checks that it works there, that no file in it names the build, and
# that a host of one's own can be built against it. Takes the build folder of the preset `release`, built as a whole.
set -euo pipefail
build=$(realpath "${1:?"usage: scripts/check-install.sh BUILD_FOLDER"}")
cd "$(dirname "$0")/.."

folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
cmake --install "$build" --prefix "$folder/first" >/dev/null
mv "$folder/first" "$folder/moved"
prefix=$folder/moved

if grep -rlF -e "$PWD" -e "$build" -e "$folder" "$prefix"; then
  echo "these files name a folder of the build" >&2
  exit 1
fi

[[ $("$prefix/bin/tarq-dmr" --version) =~ ^tarq-dmr\ [0-9.]+\ .*plug-in\ [0-9.]+: ]]
item=(http://media.example/film.mp4 "$prefix/share/doc/tarq-dmr/docs/examples/thumbnail-only.xml")
"$prefix/bin/tarq-dmr" check "${item[0]}" --metadata "${item[1]}" >/dev/null

# What a shell completes, and what man complains of.
cd "$prefix/share"
for page in man/man*/*; do
  complaints=$(LC_ALL=C.UTF-8 man --warnings --encoding=UTF-8 --local-file "$page" 2>&1 >/dev/null)
  [[ -z $complaints ]] || { echo "$page: $complaints" >&2 && exit 1; }
done
zsh -n zsh/vendor-completions/_tarq-dmr
[[ $(fish --no-config -c 'source fish/vendor_completions.d/tarq-dmr.fish; complete -C "tarq-dmr ch"') == check* ]]
# shellcheck source=/dev/null
source bash-completion/completions/tarq-dmr
completed() {
  COMP_WORDS=(tarq-dmr "$@") COMP_CWORD=$#
  _tarq_dmr
  echo "${COMPREPLY[@]}"
}
[[ $(completed su) == survey && $(completed check --meta) == --metadata && $(completed sink --region '') == '' ]]
[[ $(completed check --metadata man/man1/tarq-dmr-se) == man/man1/tarq-dmr-servers.1 ]]
cd "$OLDPWD"

# With CMake, and with pkg-config.
cmake -S "$prefix/share/doc/tarq-dmr/examples/host" -B "$folder/host" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$folder/host" >/dev/null
"$folder/host/my-host" "${item[@]}"

export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
jni=$(realpath "$(command -v javac)" | sed 's,/bin/javac$,/include,')
plugin=$(pkg-config --variable=plugin tarq-dmr)
[[ $(pkg-config --variable=jar tarq-dmr) -ef $prefix/lib/tarq-dmr/tarq-renderer.jar ]]
# shellcheck disable=SC2046  # flags, one word each
g++ -std=c++20 -DPLUGIN="\"$plugin\"" -isystem "$jni" -isystem "$jni/linux" examples/host/main.cpp \
  $(pkg-config --cflags --libs tarq-dmr) -o "$folder/pkg-config-host"
"$folder/pkg-config-host" "${item[@]}"
