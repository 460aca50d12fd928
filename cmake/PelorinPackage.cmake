# The Debian package: cpack --config build/<preset>/CPackConfig.cmake
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pelorin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Pelorin developers")
set(CPACK_PACKAGE_CONTACT "Pelorin developers <developers@pelorin.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configures linear position sensors with an SSI output")
set(CPACK_PACKAGE_DESCRIPTION
"Pelorin reads and changes the settings of magnetostrictive linear position
sensors over a serial line: the format of their SSI output, offset, magnets
and factory parameters. It shows the live magnet position, saves all
parameters to a file and writes them back, and keeps tables for temperature
compensation. Simulated sensors are included for learning.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
# The linked libraries are found by dpkg-shlibdeps. What is loaded at run time is named here: the
# display systems and the toolkit's own texts.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)

include(CPack)
