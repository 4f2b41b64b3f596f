#!/usr/bin/env bash
# Configures and builds Pendulon in build/ (installing missing packages first).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
