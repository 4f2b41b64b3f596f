#!/usr/bin/env bash
# Installs the Debian packages Pendulon needs to build and test, those that are missing only.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
  qt6-base-dev qt6-base-dev-tools libgl-dev
  clang libclang-rt-14-dev
  xvfb xdotool x11-apps imagemagick xauth
  poppler-utils mame-tools fonts-dejavu-core
  dpkg-dev file desktop-file-utils shared-mime-info appstream libxml2-utils xdg-utils
  libfile-mimeinfo-perl libglib2.0-bin libqt6svg6 x11-utils python3
  # Pinouts are drawn in Arial; its metric twin keeps them as wide on screen as laid out.
  fonts-liberation
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  SUDO=""
elif command -v sudo >/dev/null 2>&1; then
  SUDO="sudo"
else
  echo "Missing packages and no way to install them (not root, no sudo): ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
