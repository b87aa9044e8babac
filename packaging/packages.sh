#!/bin/sh
# SPDX-License-Identifier: MIT
# Debian packages that the project needs; sourced by run.sh and test.sh.
# shellcheck disable=SC2034 # the sourcing scripts use the lists

build_packages="cmake ninja-build g++ pkg-config qt6-base-dev qt6-serialport-dev librtaudio-dev librtmidi-dev
    libjack-jackd2-dev libfmt-dev"
run_packages="fonts-dejavu-core qt6-wayland"
test_packages="libgtest-dev libgmock-dev libbenchmark-dev clang clang-format clang-tidy libclang-rt-14-dev
    jackd2 fluidsynth fluid-soundfont-gm xvfb xauth libxcb-damage0-dev libsndfile1-dev at-spi2-core dbus-daemon git"
# For the pictures in the documents.
picture_packages="xvfb xdotool imagemagick fonts-dejavu-core sox"

# install_missing PACKAGE...: installs missing packages, as root or through sudo.
install_missing() {
    missing=""
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q "ok installed" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        as_root=sudo
        command -v sudo >/dev/null || {
            echo "These packages are missing, and installing them needs root or sudo:$missing" >&2
            return 1
        }
    fi
    echo "Installing packages:$missing"
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    # The list has to be split into words.
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
