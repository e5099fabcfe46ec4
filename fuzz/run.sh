#!/bin/sh
# Runs every fuzz target (or those named) for SECONDS each, two at a time,
# keeping each one's corpus between runs; a failing input lands in the
# target's folder under WORK as crash-*, leak-* or timeout-*: make it a
# regression case in fuzz/regressions/<target>/ once mended.
#
# usage: fuzz/run.sh FUZZ_BUILD_DIR SECONDS [WORK] [TARGET ...]
# FUZZ_BUILD_DIR is a tree configured with
#   CC=clang CXX=clang++ cmake -S . -B FUZZ_BUILD_DIR -DKLO_FUZZ=ON -DKLO_SANITIZE=ON \
#     -DKLO_BUILD_TESTS=OFF -DKLO_BUILD_BENCH=OFF -DKLO_BUILD_EXAMPLES=OFF
# and built.  Each target's line of statistics is printed at the end.
set -e
build=${1:?usage: fuzz/run.sh FUZZ_BUILD_DIR SECONDS [WORK] [TARGET ...]}
seconds=${2:?usage: fuzz/run.sh FUZZ_BUILD_DIR SECONDS [WORK] [TARGET ...]}
work=${3:-fuzz-work}
shift 2
[ $# -gt 0 ] && shift
here=$(cd "$(dirname "$0")" && pwd)
# Leaks inside the engines themselves are listed, not findings.
export LSAN_OPTIONS="suppressions=$here/lsan.supp"
targets=${*:-"fuzz_read_mps fuzz_read_lp fuzz_read_sdpa fuzz_read_prm fuzz_read_mst fuzz_read_sol fuzz_read_bas fuzz_build_and_solve"}

seeds_of() {
  case $1 in
    fuzz_read_*) echo "$here/seeds/${1#fuzz_read_}" ;;
    *) echo "" ;;
  esac
}

run_one() {
  dir=$work/$1
  mkdir -p "$dir/corpus"
  (cd "$dir" && "$build/fuzz/$1" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
    -print_final_stats=1 corpus $(seeds_of "$1") >log 2>&1) || echo "$1: found a failure, see $dir"
  printf '%s: %s, %s\n' "$1" "$(grep -o 'number_of_executed_units: [0-9]*' "$dir/log")" \
    "$(ls "$dir" | grep -c -E '^(crash|leak|timeout|oom)-' || true) failing inputs"
}

set -- $targets
while [ $# -gt 0 ]; do
  run_one "$1" &
  [ $# -gt 1 ] && run_one "$2" &
  wait
  shift
  [ $# -gt 0 ] && shift
done
