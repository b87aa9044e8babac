#!/bin/sh
# SPDX-License-Identifier: MIT
# lint.sh [--all]: clang-tidy over the project's own sources, as the release preset builds them. Those with a toolkit
# take several minutes more, and are left out without --all.
set -eu
cd "$(dirname "$0")/.."
# The compiler's precompiled headers are nothing that clang-tidy can read.
mkdir -p build/lint
sed 's/-Winvalid-pch -include [^ ]*cmake_pch.hxx//' build/release/compile_commands.json >build/lint/compile_commands.json
if [ "${1:-}" = --all ]; then
    git ls-files 'src/*.cpp' 'modules/*.cpp'
else
    git ls-files 'src/*.cpp' 'modules/*.cpp' ':!src/ui' ':!src/platform/qt' ':!src/app/quavix_main.cpp'
fi | xargs -P "$(nproc)" -n 4 clang-tidy -p build/lint --quiet 2>/dev/null
