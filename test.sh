#!/bin/sh
# SPDX-License-Identifier: MIT
# test.sh: builds everything and runs all tests, in release mode and with sanitizers.
set -eu
cd "$(dirname "$0")"
. packaging/packages.sh
# The lists have to be split into words.
# shellcheck disable=SC2086
install_missing $build_packages $run_packages $test_packages

start=$(date +%s)
step() {
    seconds=$(($(date +%s) - start))
    printf '\n=== %d:%02d %s\n' $((seconds / 60)) $((seconds % 60)) "$1"
}
jobs=$(nproc)

step "Format"
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror

step "Release build"
cmake --preset release -DQUAVIX_TESTS=ON -DQUAVIX_UNITY_TESTS=ON -DQUAVIX_BENCH=ON >/dev/null
cmake --build --preset release -- --quiet

step "Sanitizer build"
cmake --preset asan >/dev/null
cmake --build --preset asan -- --quiet

step "The sound engine under ThreadSanitizer"
cmake --preset tsan >/dev/null
cmake --build --preset tsan --target quavix-sound-engine-calls -- --quiet
build/tsan/bin/quavix-sound-engine-calls

step "Fuzzing"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target quavix-fuzzers -- --quiet
fuzz() {
    subject=${1##*quavix-fuzz-}
    # New inputs go into the build folder; the seeds stay unchanged.
    mkdir -p "build/fuzz/found/$subject"
    "$1" -max_total_time=30 -verbosity=0 -print_final_stats=1 -dict="fuzz/$subject.dict" \
        "build/fuzz/found/$subject" "fuzz/corpus/$subject" 2>"build/fuzz/$subject.log" ||
        { tail -n 50 "build/fuzz/$subject.log"; return 1; }
    printf '%s: %s\n' "$subject" "$(grep number_of_executed_units "build/fuzz/$subject.log")"
}
fuzzers=
for fuzzer in build/fuzz/bin/quavix-fuzz-*; do
    fuzz "$fuzzer" &
    fuzzers="$fuzzers $!"
done
for fuzzer in $fuzzers; do
    wait "$fuzzer"
done

# clang-tidy runs beside the tests, because those with processes leave the machine idle now and then.
mkdir -p build/lint
nice timeout 30m packaging/lint.sh >build/lint/found.log 2>&1 &
lint=$!
trap 'kill "$lint" 2>/dev/null || true' EXIT
trap 'exit 130' INT

step "Tests under AddressSanitizer and UndefinedBehaviorSanitizer"
ctest --preset asan -j "$jobs" --no-tests=error --quiet --output-log build/asan/tests.log ||
    { cat build/asan/tests.log; exit 1; }
tail -n 20 build/asan/tests.log

step "Tests"
ctest --preset release -j "$jobs" --no-tests=error --output-on-failure

step "clang-tidy"
wait "$lint" || { status=$?; cat build/lint/found.log; echo "clang-tidy ended with $status"; exit 1; }
printf 'nothing found\n'

step "Passed"
