#!/bin/sh
# SPDX-License-Identifier: MIT
# lint.sh [BUILD_DIR]: runs clang-tidy on all of the project's sources with the flags of a configured preset (default:
# asan). With unity builds, a dozen sources are checked at a time, in a quarter of the time.
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/asan}
mkdir -p build/lint
# clang-tidy can't read the compiler's precompiled headers, and does not know all of its options.
sed -E 's/-Winvalid-pch -include [^ ]*cmake_pch.hxx//; s/-Wno-maybe-uninitialized//' \
    "$build/compile_commands.json" >build/lint/compile_commands.json
# Generated code and the precompiled headers themselves are left out.
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/lint/compile_commands.json |
    grep -E '/(src|modules)/' | grep -vE '_autogen/|cmake_pch|/tests/|/fuzz/|/bench/' | sort -u |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet --checks=-bugprone-suspicious-include \
        --header-filter="^$PWD/(src|modules)/" 2>/dev/null
