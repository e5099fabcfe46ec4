#!/bin/sh
# Line and branch coverage of the object layer (src/) and the solver library
# (solver/) under the whole test suite. Usage: tools/coverage.sh [BUILD_DIR]
# Prints the totals and writes BUILD_DIR/coverage/index.html.
set -e
cd "$(dirname "$0")/.."
build=${1:-build-cov}
if ! command -v gcovr >/dev/null 2>&1; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends gcovr
fi
./setup.sh
cmake -S . -B "$build" -DKLO_COVERAGE=ON -DKLO_BUILD_BENCH=OFF
cmake --build "$build" -j2
find "$build" -name '*.gcda' -delete
ctest --test-dir "$build" -j2 || echo "coverage: some tests failed; the figures cover the run as it went"
mkdir -p "$build/coverage"
gcovr --root . --filter 'src/' --filter 'solver/' --exclude-throw-branches \
  --html-details "$build/coverage/index.html" --print-summary "$build" \
  | tee "$build/coverage/summary.txt"
