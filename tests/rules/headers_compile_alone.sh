#!/bin/sh
# SPDX-License-Identifier: MIT
# headers_compile_alone.sh COMPILER SOURCE_DIR GENERATED_DIR: every header that needs no toolkit compiles by itself.
set -eu
compiler=$1
source_dir=$2
generated_dir=$3
cd "$source_dir"
find . ../modules -name '*.h' ! -path './ui/*' ! -path './platform/qt/*' ! -path './app/desktop_ports.h' | sort |
    xargs -P "$(nproc)" -I{} sh -c '
        printf "#include \"%s\"\n" "$4" | sed "s|\"\.*/|\"|" |
            "$1" -std=c++20 -fsyntax-only -DFMT_SHARED -I"$2" -I"$2/.." -I"$3" $5 -x c++ - ||
            { echo "does not compile alone: $4"; exit 255; }' sh "$compiler" "$source_dir" "$generated_dir" {} "$(pkg-config --cflags rtmidi)"
# The interfaces of the modules are C.
find ../modules -name '*_module.h' -o -name sound_engine.h | while read -r header; do
    printf '#include "%s"\n' "$header" |
        "$compiler" -std=c11 -pedantic-errors -Wall -Wextra -Werror -fsyntax-only -x c -
done
