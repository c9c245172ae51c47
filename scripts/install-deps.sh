#!/usr/bin/env bash
# Installs the Debian packages Vellora needs to build, run and test, skipping
# what is already there.
set -euo pipefail

packages=(
  build-essential cmake ccache
  qtbase5-dev qttools5-dev qttools5-dev-tools
  qt5-image-formats-plugins libqt5svg5-dev
  libbenchmark-dev
  dbus xvfb
  qtwayland5
  qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-documentation-tools
  qt6-image-formats-plugins qt6-svg-dev qt6-wayland libqt6sql6-sqlite libgl-dev
  openssl
  locales
  desktop-file-utils appstream
)

# Making the Debian package (scripts/package.sh) needs a few more.
if [ "${1:-}" = "--package" ]; then
  packages+=(dpkg-dev file lintian)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The command-line tests run the tool under a German locale (decimal comma)
# to show that its numbers do not change with it.
if ! locale -a 2>/dev/null | grep -qix 'de_DE\.utf-\?8'; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo localedef -i de_DE -f UTF-8 de_DE.UTF-8
fi
