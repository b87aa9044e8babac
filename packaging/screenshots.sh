#!/bin/sh
# SPDX-License-Identifier: MIT
# screenshots.sh: takes the pictures of the documents anew, on a display of its own. Needs what ./run.sh has built.
set -eu
cd "$(dirname "$0")/.."
. packaging/packages.sh
install_missing xvfb xdotool imagemagick fonts-dejavu-core

work=$(mktemp -d)
display_pid=""
program_pid=""
# Only what was started here is stopped.
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

QUAVIX_SPEAKER=silent build/release/bin/quavix examples/Minuet-in-G.QVX &
program_pid=$!
window=$(xdotool search --sync --onlyvisible --name '^Quavix' | tail -n 1)
# "Play all", so that a line is being played.
xdotool windowfocus --sync "$window" key --delay 200 alt+a
sleep 2
import -window "$window" docs/main-window.png
echo "docs/main-window.png"
