# Adds to what is going to be packed what a Debian package has and an installation does not.
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
set(doc ${usr}/share/doc/tarq-dmr)
set(source ${CMAKE_CURRENT_LIST_DIR}/debian)

configure_file(${source}/lintian-overrides ${usr}/share/lintian/overrides/tarq-dmr COPYONLY)
file(COPY ${source}/copyright DESTINATION ${doc})
execute_process(COMMAND git log -1 --format=%cD
  WORKING_DIRECTORY ${source} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${doc}/changelog
"tarq-dmr (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
file(GLOB manual ${usr}/share/man/man*/*)
execute_process(COMMAND gzip -9n ${doc}/changelog ${manual} COMMAND_ERROR_IS_FATAL ANY)
