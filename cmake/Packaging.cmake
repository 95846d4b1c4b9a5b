# The Debian package of the station: the three programs, the menu entry and icon, the manual
# pages, the samples and the remote-control reference. scripts/package.sh builds it.
# Dependencies come from dpkg-shlibdeps; the manual pages and the changelog are compressed
# in the staging tree, as Debian policy asks.
include(GNUInstallDirs)
set(STATION_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/corvane-station)
install(FILES ${PROJECT_SOURCE_DIR}/docs/remote-control.md ${PROJECT_SOURCE_DIR}/desktop/copyright
        DESTINATION ${STATION_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane-station)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Corvane station maintainers <station@corvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "set up and remote-control studio cameras on one RS-232 line")
set(CPACK_PACKAGE_DESCRIPTION "The camera control station sets up and remote-controls up to eight
studio cameras sharing one RS-232 line: modes, levels, scenes, page transfers,
automatic white and black set-up and the cameras' function menus. It includes
corvane-ctl, the same command set without a display, and camera-sim, a line of
virtual cameras on a pseudo-terminal.")
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackageStaging.cmake)
set(CPACK_STATION_DOCDIR ${STATION_DOCDIR})
set(CPACK_STATION_MANDIR ${CMAKE_INSTALL_MANDIR})
include(CPack)
