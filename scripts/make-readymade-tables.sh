#!/usr/bin/env bash
# Regenerates the ready-made colour tables in resources/tables from the
# packages that carry their sources, and copies each source's licence text
# beside them. The generated tables are committed, so a build needs neither
# npm nor matplotlib; run this only to move to another version of a source,
# then commit the tables and licences with it.
#
#   x11-common 1:7.7+23          (Debian)  /usr/share/X11/rgb.txt, X.Org's colour names
#   python3-matplotlib 3.6.3-1+b1 (Debian) matplotlib/_color_data.py, the xkcd survey colours
#   color-name-list 14.51.0       (npm)    dist/colornames.json, the Color Name List
#
# Needs apt-get, dpkg-deb, npm and python3 (standard library only). The
# packages are downloaded into a scratch folder, never installed.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
out="$root/resources/tables"

X11_PACKAGE=x11-common
X11_VERSION=1:7.7+23
MPL_PACKAGE=python3-matplotlib
MPL_VERSION=3.6.3-1+b1
CNL_PACKAGE=color-name-list
CNL_VERSION=14.51.0

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cd "$work"

# apt-get download refuses a version the archive no longer has, which is
# what we want: the note must name the version the table came from.
apt-get download "$X11_PACKAGE=$X11_VERSION" "$MPL_PACKAGE=$MPL_VERSION"
mkdir x11 mpl npm
dpkg-deb -x "$X11_PACKAGE"_*.deb x11
dpkg-deb -x "$MPL_PACKAGE"_*.deb mpl
npm pack --silent "$CNL_PACKAGE@$CNL_VERSION" >/dev/null
tar -xzf "$CNL_PACKAGE-$CNL_VERSION.tgz" -C npm

mpl_data="$(find mpl -name _color_data.py -path '*matplotlib*' | head -n 1)"
# The CC0 text: the xkcd data's dedication, as Debian ships it.
cc0=/usr/share/common-licenses/CC0-1.0

python3 "$root/scripts/readymadetables.py" \
  --out "$out" \
  --x11 "x11/usr/share/X11/rgb.txt" "$X11_PACKAGE $X11_VERSION" \
  --xkcd "$mpl_data" "$MPL_PACKAGE $MPL_VERSION" \
  --cnl "npm/package/dist/colornames.json" "$CNL_PACKAGE $CNL_VERSION"

cp "x11/usr/share/doc/$X11_PACKAGE/copyright" "$out/licences/x11-common.copyright.txt"
{
  echo "The xkcd colour survey names and values, as carried by the Debian package"
  echo "$MPL_PACKAGE $MPL_VERSION in matplotlib/_color_data.py, whose comment says:"
  echo
  sed -n '/^# This mapping of color names -> hex values is taken from/,/^# License:/p' "$mpl_data"
  echo
  echo "The text of that dedication (Creative Commons CC0 1.0 Universal) follows."
  echo
  cat "$cc0"
} >"$out/licences/xkcd.CC0-1.0.txt"
cp npm/package/LICENSE "$out/licences/color-name-list.MIT.txt"
echo "Tables and licences written to $out"
