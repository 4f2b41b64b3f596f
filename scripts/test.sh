#!/usr/bin/env bash
# Runs every test of Pendulon: unit and model tests, the command-line checks, the desktop
# tests on the offscreen platform and under Xvfb, the models and command line once more under
# AddressSanitizer and UndefinedBehaviorSanitizer, and a short fuzzing run of the reader.
set -euo pipefail
cd "$(dirname "$0")/.."

# The tests get a temporary folder of their own: TMPDIR for every temporary file, and Qt's
# runtime folder. What is left in it at the end was left by this run and by nothing else, so
# other programs that use the system's temporary folder at the same time cannot fail the run.
# The folder goes when the run ends, passed or failed.
run_dir="$(mktemp -d "${TMPDIR:-/tmp}/pendulon-test-run.XXXXXX")"
# Some tests run the program as the user nobody, who must be able to pass through the folder
# (not to list it).
chmod 711 "$run_dir"
trap 'rm -rf "$run_dir"' EXIT
tests_tmp="$run_dir/tmp"
tests_runtime="$run_dir/runtime"
mkdir "$tests_tmp"
mkdir -m 700 "$tests_runtime"
# The X servers of the run ignore TMPDIR: their locks and sockets go to /tmp. The scripts that
# start one write its display number here, so that only this run's servers are looked at.
tests_displays="$run_dir/displays"
: >"$tests_displays"

# Runs a command of tests in the tests' own folders.
in_tests_tmp() {
  TMPDIR="$tests_tmp" XDG_RUNTIME_DIR="$tests_runtime" PENDULON_TEST_DISPLAYS="$tests_displays" \
    "$@"
}

# The main build is a Release build with warnings as errors (the default preset): it is also
# the check that a packager's plain Release build compiles cleanly.
bash scripts/build.sh
in_tests_tmp ctest --test-dir build --output-on-failure -j2 --timeout 600
# Pendulon as an installed application: install tree, desktop files, file types, Debian package.
in_tests_tmp bash scripts/test-install.sh build

# Models, command line and their tests built by clang with ASan and UBSan (build-sanitize, no
# Qt): a memory error, a leak or undefined behaviour fails the run. The fuzz target is built in
# the same tree.
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
in_tests_tmp ctest --preset sanitize -j2 --timeout 900

if [ -f tests/fuzz/CMakeLists.txt ]; then
  in_tests_tmp bash scripts/fuzz.sh 60
fi

# Tests clean up after themselves, when they fail too: their folders must be empty, and the X
# servers of the run must have taken their files in /tmp with them (a lock whose server still
# runs belongs to a server that took the display after ours).
left="$(find "$tests_tmp" "$tests_runtime" -mindepth 1 -maxdepth 1 | sort)"
while read -r display; do
  [ -n "$display" ] || continue
  lock="/tmp/.X$display-lock"
  if [ -e "$lock" ]; then
    pid="$(tr -d '[:space:]' <"$lock" 2>/dev/null || true)"
    if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then
      continue
    fi
  fi
  for entry in "$lock" "/tmp/.X11-unix/X$display" "/tmp/server-$display.xkm"; do
    if [ -e "$entry" ] || [ -L "$entry" ]; then
      left+=$'\n'"$entry"
    fi
  done
done <"$tests_displays"
left="$(sed '/^$/d' <<<"$left")"
if [ -n "$left" ]; then
  echo "test: the tests left these behind:" >&2
  echo "$left" >&2
  exit 1
fi
