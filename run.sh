#!/bin/sh
# SPDX-License-Identifier: MIT
# run.sh [SONG]: builds Quavix if necessary and starts it with the song, a .QVX or a MIDI file. Without a display,
# renders the song to a WAV file instead.
set -eu
started_in=$PWD
cd "$(dirname "$0")"
. packaging/packages.sh

# The lists have to be split into words.
# shellcheck disable=SC2086
install_missing $build_packages $run_packages
if [ ! -f build/release/build.ninja ]; then
    echo "Building Quavix (a minute or two, the first time only)"
    cmake --preset release -DQUAVIX_TESTS=OFF -DQUAVIX_BENCH=OFF >/dev/null
fi
cmake --build --preset release --target quavix quavix-render -- --quiet

bin=$PWD/build/release/bin
cd "$started_in"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$bin/quavix" "$@"
fi
case "${1:-}" in
"")
    echo "There is no display to open a window on. Name a song to render it to a WAV file instead:" >&2
    echo "    ./run.sh examples/Ode-to-Joy.QVX" >&2
    exit 1
    ;;
-*) exec "$bin/quavix" "$@" ;;
esac
# Choose a name that does not exist yet.
name=$(basename -- "$1")
song=$started_in/${name%.*}
wav=$song.wav
number=1
while [ -e "$wav" ]; do
    number=$((number + 1))
    wav=$song-$number.wav
done
"$bin/quavix-render" "$1" "$wav"
echo "There is no display, so the song was rendered to $wav"
