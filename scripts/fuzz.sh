#!/usr/bin/env bash
# Builds the libFuzzer targets with sanitizers and runs the entry-file reader target for the
# given number of seconds (default 60) on a copy of the seed corpus. Exits non-zero on a crash.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j2 --target fuzz_read_file
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp -r tests/data/fuzz-corpus "$work/corpus"
mkdir -p "$work/artifacts"
status=0
./build-fuzz/tests/fuzz/fuzz_read_file "$work/corpus" \
  -max_total_time="$seconds" -max_len=65536 -timeout=20 -rss_limit_mb=2048 \
  -artifact_prefix="$work/artifacts/" -print_final_stats=1 || status=$?
if ls "$work/artifacts"/* >/dev/null 2>&1; then
  echo "fuzz: crash inputs were found:" >&2
  mkdir -p build-fuzz/artifacts && cp "$work/artifacts"/* build-fuzz/artifacts/
  ls -l build-fuzz/artifacts >&2
  exit 1
fi
exit "$status"
