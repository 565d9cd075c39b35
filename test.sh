#!/usr/bin/env bash
# Sets up, builds and runs all tests. "./test.sh asan" does the same under the address and undefined-behaviour
# sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
preset=${1:-dev}

./setup.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset"
