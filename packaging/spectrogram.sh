#!/bin/sh
# SPDX-License-Identifier: MIT
# spectrogram.sh IN.wav OUT.png [HIGHEST_HZ]: draws frequencies over time, up to HIGHEST_HZ (default 6000).
# Each channel has its own part.
set -eu
if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    sed -n 's/^# \(spectrogram.sh.*\)/Usage: \1/p' "$0" >&2
    exit 1
fi
. "$(dirname "$0")/packages.sh"
# The list has to be split into words.
# shellcheck disable=SC2086,SC2154
install_missing $picture_packages
highest=${3:-6000}
# A spectrogram reaches up to half the sample rate.
name=$(basename "$1" .wav)
sox "$1" -n rate "$((highest * 2))" spectrogram -x 700 -y 180 -z 80 -q 32 -t "$name" -c "" -o "$2"
