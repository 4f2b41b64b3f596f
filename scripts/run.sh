#!/usr/bin/env bash
# Starts Pendulon, building it first if needed.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: the desktop window needs one; try build/pendulon-cli --help instead."
  exit 0
fi
exec build/src/desktop/pendulon "$@"
