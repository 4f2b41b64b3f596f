# The Debian package, made by CPack from the install rules: pendulon_<version>_<arch>.deb.
# The version is the project's own; dpkg-shlibdeps works out the libraries the programs need.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pendulon)
set(CPACK_PACKAGE_VENDOR "Varnhol Semiconductor")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "design tool for field-programmable clock generators")
set(CPACK_PACKAGE_DESCRIPTION
    "Pendulon configures the QX family of field-programmable clock generators.\n"
    "It searches the PLL counters and output dividers for the frequencies\n"
    "wanted, checks them against the device's limits, estimates the supply\n"
    "current, and writes the entry file, the JEDEC fuse map and the printable\n"
    "configuration document. pendulon-cli runs the same calculations without\n"
    "a window.")
string(JOIN "" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(CPACK_PACKAGE_CONTACT "Varnhol Marlin Works <pendulon@varnhol.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
if(PENDULON_DESKTOP)
  # Wayland sessions use the native platform plugin when it is there, X11 otherwise; the SVG
  # plugin draws the window's icon.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, libqt6svg6")
endif()

# A source archive leaves out build folders and the repository.
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_IGNORE_FILES "/\\\\.git/" "/build[^/]*/")

include(CPack)
