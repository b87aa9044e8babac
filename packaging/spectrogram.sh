#!/bin/sh
# SPDX-License-Identifier: MIT
# spectrogram.sh IN.wav OUT.png [HIGHEST_HZ]: draws what sounds when, and how high, up to 6000 Hz unless told otherwise.
set -eu
if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    sed -n 's/^# \(spectrogram.sh.*\)/Usage: \1/p' "$0" >&2
    exit 1
fi
. "$(dirname "$0")/packages.sh"
install_missing sox
highest=${3:-6000}
# Half the sample rate is what a spectrogram reaches up to.
sox "$1" -n remix 1 rate "$((highest * 2))" spectrogram -x 1200 -y 513 -z 90 -t "$(basename "$1")" -o "$2"
