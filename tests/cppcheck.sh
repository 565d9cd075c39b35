#!/usr/bin/env bash
# cppcheck over all sources of the program: faults, slow ways and what other compilers read otherwise. What it misreads is
# marked in the source, with the reason.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build/cppcheck
cppcheck --enable=warning,performance,portability --std=c++20 --language=c++ --library=posix --library=qt \
    --inline-suppr --error-exitcode=1 --cppcheck-build-dir=build/cppcheck \
    --template='{file}:{line}: {severity}: {message} [{id}]' -I src -j"$(nproc)" -q src
