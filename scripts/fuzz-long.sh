#!/usr/bin/env bash
# A long fuzzing run of the entry-file and fuse map readers (default 30 minutes), for a release
# or after a change to a reader; CI runs the short one (scripts/fuzz.sh). The corpus grows in
# build-sanitize/fuzz-corpus from one run to the next (seeded from tests/data/fuzz-corpus); the
# log is build-sanitize/fuzz-long.log and ends with the executions, the rate, the coverage
# ("cov", "ft") and the corpus size. Crash inputs go to build-sanitize/artifacts.
# Usage: fuzz-long.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-1800}"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize --target fuzz_read_file
corpus=build-sanitize/fuzz-corpus
artifacts=build-sanitize/artifacts
log=build-sanitize/fuzz-long.log
mkdir -p "$corpus" "$artifacts"
cp -n tests/data/fuzz-corpus/* "$corpus"/
echo "fuzz-long: running for $seconds s; follow it with: tail -f $log"
status=0
./build-sanitize/tests/fuzz/fuzz_read_file "$corpus" \
  -max_total_time="$seconds" -max_len=16384 -timeout=20 -rss_limit_mb=2048 \
  -artifact_prefix="$artifacts/" -print_final_stats=1 -reduce_inputs=1 >"$log" 2>&1 || status=$?
# The last status lines, the final statistics and any sanitizer report.
grep -E '^#[0-9]+' "$log" | tail -n 3 || true
grep -E '^(stat::|Done |==[0-9]+==|SUMMARY)' "$log" || true
echo "fuzz-long: exit status $status; corpus $(ls "$corpus" | wc -l) inputs; full log in $log"
if ls "$artifacts"/* >/dev/null 2>&1; then
  echo "fuzz-long: crash inputs were found:" >&2
  ls -l "$artifacts" >&2
  exit 1
fi
exit "$status"
