#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: unit, widget, end-to-end, and a
# bounded fuzzing run of the parsers. The test build is sanitised (ASan + UBSan): a report
# from either fails the run.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh
ensure_packages

build=build/test
export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

# Fuzz the parsers of outside data for a bounded time, from the corpus kept in the repo. The
# unit, widget and end-to-end tests run last, so that their summary closes the output.
if [ "${KORVANE_FUZZ_SECONDS:-20}" -gt 0 ] && command -v clang++ >/dev/null; then
  CC=clang CXX=clang++ configure_and_build build/fuzz RelWithDebInfo -DKORVANE_FUZZ=ON -DBUILD_TESTING=OFF --
  for fuzzer in build/fuzz/tests/fuzz/fuzz_*; do
    [ -f "$fuzzer" ] && [ -x "$fuzzer" ] || continue
    name=$(basename "$fuzzer"); name=${name#fuzz_}
    scratch=$(mktemp -d)
    "$fuzzer" -max_total_time="${KORVANE_FUZZ_SECONDS:-20}" -timeout=5 -artifact_prefix=build/fuzz/ "$scratch" "tests/fuzz/corpus/$name" >"build/fuzz/$name.log" 2>&1 \
      || { tail -40 "build/fuzz/$name.log"; rm -rf "$scratch"; echo "fuzz_$name found a fault"; exit 1; }
    rm -rf "$scratch"
    echo "fuzz_$name: clean for ${KORVANE_FUZZ_SECONDS:-20} s"
  done
fi

configure_and_build "$build" Debug -DKORVANE_SANITIZE=ON --
# The data-access and kernel-store tests run on SQLite and on this server; it stops on exit.
start_private_postgres -c fsync=off -c synchronous_commit=off
ctest --test-dir "$build" --output-on-failure -j"$(nproc)" --timeout 300
