#!/usr/bin/env bash
# Runs every test of Pendulon: unit and model tests, the command-line checks, the desktop
# tests on the offscreen platform and under Xvfb, and a short fuzzing run of the reader.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh
ctest --test-dir build --output-on-failure -j2 --timeout 600
# Pendulon as an installed application: install tree, desktop files, file types, Debian package.
bash scripts/test-install.sh build
if [ -f tests/fuzz/CMakeLists.txt ]; then
  bash scripts/fuzz.sh 60
fi
