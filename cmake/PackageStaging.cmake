# Runs in the package's staging tree before it is packed: manual pages compressed, and the
# Debian changelog written and compressed (gzip -n, so that the package is reproducible).
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
file(GLOB pages ${root}/${CPACK_STATION_MANDIR}/man1/*.1)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9nf ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
string(TIMESTAMP when "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changelog ${root}/${CPACK_STATION_DOCDIR}/changelog)
file(WRITE ${changelog} "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}.

 -- ${CPACK_PACKAGE_CONTACT}  ${when}
")
execute_process(COMMAND gzip -9nf ${changelog} COMMAND_ERROR_IS_FATAL ANY)
