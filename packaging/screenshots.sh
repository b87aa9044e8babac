#!/bin/sh
# SPDX-License-Identifier: MIT
# screenshots.sh: renews the pictures in the documents, on a private display. Needs a build by ./run.sh.
set -eu
cd "$(dirname "$0")/.."
. packaging/packages.sh
# The list has to be split into words.
# shellcheck disable=SC2086
install_missing $picture_packages

work=$(mktemp -d)
display_pid=""
program_pid=""
# Stops only the processes that this script has started.
# shellcheck disable=SC2317,SC2086
clean_up() {
    kill $program_pid $display_pid 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT INT TERM

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1366x768x24 3>"$work/display" 2>/dev/null &
display_pid=$!
DISPLAY=:$(cat "$work/display")
export DISPLAY

# A private state folder, so that no message about unsaved songs appears.
XDG_STATE_HOME="$work" QUAVIX_SPEAKER=silent build/release/bin/quavix examples/Minuet-in-G.QVX &
program_pid=$!
window=$(xdotool search --sync --onlyvisible --name 'Minuet-in-G.QVX$' | tail -n 1)
# Close the message that appears without a sound card.
for box in $(xdotool search --onlyvisible --name '^Quavix$'); do
    xdotool windowfocus --sync "$box" key --delay 200 Return
done
# "Play all", so that the picture shows a playing line.
xdotool windowfocus --sync "$window" key --delay 200 alt+a
sleep 2
import -window "$window" docs/main-window.png
echo "docs/main-window.png"

# A part of the song with both tones and voice.
for output in fmod voice; do
    build/release/bin/quavix-render --output "$output" examples/Ode-to-Joy.QVX "$work/$output.wav"
done
sox -M "$work/fmod.wav" "$work/voice.wav" "$work/Ode to Joy.wav" trim 32 8
packaging/spectrogram.sh "$work/Ode to Joy.wav" docs/spectrogram.png 4000
echo "docs/spectrogram.png"
