#!/usr/bin/env bash
# Runs every test of Pendulon: unit and model tests, the command-line checks, the desktop
# tests on the offscreen platform and under Xvfb, the models and command line once more under
# AddressSanitizer and UndefinedBehaviorSanitizer, and a short fuzzing run of the reader.
set -euo pipefail
cd "$(dirname "$0")/.."

# What of ours lies in /tmp now: the tests must leave nothing more behind (checked at the end).
ours_in_tmp() {
  (shopt -s nullglob; for entry in /tmp/pendulon-*; do echo "$entry"; done) | sort
}
tmp_before="$(ours_in_tmp)"

# The main build is a Release build with warnings as errors (the default preset): it is also
# the check that a packager's plain Release build compiles cleanly.
bash scripts/build.sh
ctest --test-dir build --output-on-failure -j2 --timeout 600
# Pendulon as an installed application: install tree, desktop files, file types, Debian package.
bash scripts/test-install.sh build

# Models, command line and their tests built by clang with ASan and UBSan (build-sanitize, no
# Qt): a memory error, a leak or undefined behaviour fails the run. The fuzz target is built in
# the same tree.
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
ctest --preset sanitize -j2 --timeout 900

if [ -f tests/fuzz/CMakeLists.txt ]; then
  bash scripts/fuzz.sh 60
fi

# Tests clean up after themselves, when they fail too.
left="$(comm -13 <(echo "$tmp_before") <(ours_in_tmp))"
if [ -n "$left" ]; then
  echo "test: the tests left these behind in /tmp:" >&2
  echo "$left" >&2
  exit 1
fi
