#!/usr/bin/env bash
# Builds the Debian package vellora_VERSION_ARCH.deb and the source tarball
# vellora-VERSION.tar.gz into ./build-package (or $VELLORA_PACKAGE_DIR),
# then checks the package with lintian.
#
#   ./scripts/package.sh
#   sudo apt-get install ./build-package/vellora_1.0.0_amd64.deb
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELLORA_PACKAGE_DIR:-$root/build-package}"
"$root/scripts/install-deps.sh" --package

# Debian's own hardening and optimisation flags, as a package built by
# dpkg-buildpackage would get them.
export DEB_BUILD_MAINT_OPTIONS="hardening=+all"
CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
LDFLAGS="$(dpkg-buildflags --get LDFLAGS)"
export CXXFLAGS LDFLAGS

cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DVELLORA_BUILD_TESTS=OFF -DVELLORA_BUILD_BENCHMARKS=OFF
cmake --build "$build" --parallel "$(nproc)"

cd "$build"
cpack -G DEB
cpack --config CPackSourceConfig.cmake

deb="$(ls -t "$build"/vellora_*.deb | head -n 1)"
echo "== lintian $deb"
# Errors fail the script; warnings are listed (see the README's Install).
lintian --fail-on error --info "$deb"
echo "Built $deb"
ls "$build"/vellora-*.tar.gz
