#!/usr/bin/env bash
# Builds optimised, and prints every measured figure beside its budget.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh
ensure_packages
build=build/release
configure_and_build "$build" RelWithDebInfo -- korvane korvane-station korvane_bench
# The database figures are measured on SQLite and on this server; it stops on exit.
start_private_postgres
QT_QPA_PLATFORM=offscreen KORVANE_DIALOGS=print "$build/bench/korvane_bench" --benchmark_counters_tabular=true "$@"
