# What `cmake --install` puts where beside the two programs, and the Debian package CPack makes of
# it (scripts/package.sh). Paths are relative to the install prefix, /usr in the package.
include(GNUInstallDirs)
set(ZANDOLT_SHARE ${CMAKE_INSTALL_DATADIR}/zandolt)

# The station from the desktop's menu: the launcher starts it in its program directory.
install(PROGRAMS packaging/zandolt-station DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES resources/zandolt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES resources/pictures/logo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        RENAME zandolt.svg)

# The demo folder and the help texts, which a station reads from its program directory.
install(DIRECTORY resources/demo DESTINATION ${ZANDOLT_SHARE})
install(FILES resources/HELP.TXT resources/NETWORK.TXT DESTINATION ${ZANDOLT_SHARE})
install(FILES resources/HelpAutoGen.TXT DESTINATION ${ZANDOLT_SHARE} OPTIONAL)

# The site server: its systemd unit and the manual of the command line it runs.
install(FILES resources/zandolt-report.service DESTINATION lib/systemd/system)
find_program(GZIP_EXECUTABLE gzip REQUIRED)
set(_man ${CMAKE_CURRENT_BINARY_DIR}/zandolt-report.1.gz)
add_custom_command(OUTPUT ${_man}
                   COMMAND ${GZIP_EXECUTABLE} -9 -n -c ${CMAKE_CURRENT_SOURCE_DIR}/resources/zandolt-report.1 > ${_man}
                   DEPENDS resources/zandolt-report.1 VERBATIM)
add_custom_target(zandolt_man ALL DEPENDS ${_man})
install(FILES ${_man} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The package's maintainer comes from the build's configuration, as the maker's block does.
file(STRINGS resources/build-info.conf _contact REGEX "^[ \t]*PackageContact[ \t]*=")
string(REGEX REPLACE "^[^=]*=[ \t]*" "" _contact "${_contact}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zandolt)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${_contact}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ESD wrist and foot strap test log for electronics plants")
set(CPACK_PACKAGE_DESCRIPTION
    "The test station beside a combo tester judges an employee's wrist and foot strap resistances against the \
employee's limits and keeps the ISO-9000 ESD protection test log in plain text files. zandolt-report makes the \
reports, merges the logs of all stations and runs the site server's mailed report schedule without a display.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries the programs link, by their Debian package names, and what the scripts use.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "adduser")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_SOURCE_DIR}/packaging/postinst ${CMAKE_CURRENT_SOURCE_DIR}/packaging/prerm
    ${CMAKE_CURRENT_SOURCE_DIR}/packaging/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
