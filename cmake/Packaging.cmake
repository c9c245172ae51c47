# The Debian package (cpack -G DEB) and the source tarball
# (cpack --config CPackSourceConfig.cmake), both made by scripts/package.sh.
set(CPACK_PACKAGE_NAME vellora)
set(CPACK_PACKAGE_VENDOR Tessaline)
set(CPACK_PACKAGE_CONTACT "Tessaline <vellora@tessaline.com>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pick colours from pictures and name them")
set(CPACK_PACKAGE_DESCRIPTION
  "Vellora samples colours from images and names them: pick a colour from a
photo, match it against a library of named colours by CIEDE2000, and
collect the colours you pick into a data set saved as text or CSV.
vellora-cli runs the same colour maths in scripts.")
set(CPACK_PACKAGE_HOMEPAGE_URL https://www.tessaline.com)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
# The DEB generator installs under /usr by itself; the source tarball has
# no prefix.

# vellora_1.0.0_amd64.deb
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The libraries the programs link come from dpkg-shlibdeps; Qt loads the
# TIFF image plugin, the SQLite driver of the help engine and the Wayland
# platform at run time, so those are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(VELLORA_QT_MAJOR STREQUAL "6")
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins, libqt6sql6-sqlite, qt6-wayland")
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt5-image-formats-plugins, libqt5sql5-sqlite, qtwayland5")
endif()
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)

# The source tarball: the tree as committed, without build folders.
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME vellora-${PROJECT_VERSION})
# The patterns meet absolute paths: the build folders are those at the top
# of this source tree only.
string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" VELLORA_SOURCE_PATTERN "${PROJECT_SOURCE_DIR}")
set(CPACK_SOURCE_IGNORE_FILES
  "/\\\\.git/" "/\\\\.git$" "^${VELLORA_SOURCE_PATTERN}/build[^/]*/" "\\\\.user$" "~$")

include(CPack)
