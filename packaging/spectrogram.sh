#!/bin/sh
# SPDX-License-Identifier: MIT
# spectrogram.sh IN.wav OUT.png [HIGHEST_HZ]: draws what sounds when, and how high, up to 6000 Hz unless told otherwise;
# each channel in a part of its own.
set -eu
if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    sed -n 's/^# \(spectrogram.sh.*\)/Usage: \1/p' "$0" >&2
    exit 1
fi
. "$(dirname "$0")/packages.sh"
# Word splitting is what makes the list a list.
# shellcheck disable=SC2086,SC2154
install_missing $picture_packages
highest=${3:-6000}
# Half the sample rate is what a spectrogram reaches up to.
name=$(basename "$1" .wav)
sox "$1" -n rate "$((highest * 2))" spectrogram -x 700 -y 180 -z 80 -q 32 -t "$name" -c "" -o "$2"
