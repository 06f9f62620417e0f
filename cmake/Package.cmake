# The Debian package, made by scripts/package.sh of what `cmake --install` installs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarq-dmr)
set(CPACK_PACKAGE_CONTACT "tarq-dmr maintainers <maintainers@tarq-dmr.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "DLNA media renderer plug-in and its host for the desktop")
set(CPACK_PACKAGE_DESCRIPTION
"tarq-dmr loads a DLNA renderer plug-in as the host of a device would, and shows
what the device plays and why. It is a media renderer on the network as well,
and surveys what media servers have.
.
The package also has what is needed to build a host of one's own: headers, a
CMake package and a pkg-config file. They need a Java development kit, too.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_DEPENDS libgoogle-gson-java)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-jre-headless (>= 2:1.17) | java17-runtime-headless, mpv")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "default-jdk-headless (>= 2:1.17)")
include(CPack)
