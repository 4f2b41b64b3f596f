#!/usr/bin/env bash
# Builds the libFuzzer target of the entry-file and fuse map readers in the sanitizer tree
# (build-sanitize, ASan and UBSan) and runs it for the given number of seconds (default 60) on a
# copy of the seed corpus. Exits non-zero on a crash, a leak, undefined behaviour or a hang;
# crash inputs are kept in build-sanitize/artifacts. Usage: fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize --target fuzz_read_file
work="$(mktemp -d -t pendulon-fuzz-XXXXXX)"
trap 'rm -rf "$work"' EXIT
cp -r tests/data/fuzz-corpus "$work/corpus"
mkdir -p "$work/artifacts"
status=0
./build-sanitize/tests/fuzz/fuzz_read_file "$work/corpus" \
  -max_total_time="$seconds" -max_len=16384 -timeout=20 -rss_limit_mb=2048 \
  -artifact_prefix="$work/artifacts/" -print_final_stats=1 || status=$?
if ls "$work/artifacts"/* >/dev/null 2>&1; then
  echo "fuzz: crash inputs were found:" >&2
  mkdir -p build-sanitize/artifacts && cp "$work/artifacts"/* build-sanitize/artifacts/
  ls -l build-sanitize/artifacts >&2
  exit 1
fi
exit "$status"
