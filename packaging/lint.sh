#!/bin/sh
# SPDX-License-Identifier: MIT
# lint.sh [BUILD_DIR]: runs clang-tidy on the sources of src and modules with the flags of a configured preset (default:
# asan). With unity builds, a dozen sources are checked at a time, in a quarter of the time.
set -eu
cd "$(dirname "$0")/.."
root=$(pwd -P)
build=${1:-build/asan}
mkdir -p build/lint
# clang-tidy can't read the compiler's precompiled headers, and does not know all of its options.
sed -E 's/-Winvalid-pch -include [^ ]*cmake_pch.hxx//; s/-Wno-maybe-uninitialized//' \
    "$build/compile_commands.json" >build/lint/compile_commands.json
# Generated code and the precompiled headers themselves are left out. Paths are relative to the root, whose name may
# contain anything; unity files lie in the build folder.
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/lint/compile_commands.json | sort -u |
    while read -r file; do
        in_root=${file#"$root"/}
        case ${in_root#"$build"/} in
            *_autogen/* | *cmake_pch*) ;;
            src/* | modules/*) printf '%s\0' "$file" ;;
        esac
    done >build/lint/files
[ -s build/lint/files ] || { echo "lint.sh: no sources in $build"; exit 1; }
# A regular expression for the root's own name.
escaped=$(printf '%s' "$root" | sed 's/[^A-Za-z0-9/_-]/[&]/g')
xargs -0 -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet --checks=-bugprone-suspicious-include \
    --header-filter="^$escaped/(src|modules)/" <build/lint/files 2>/dev/null
