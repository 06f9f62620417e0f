# Where `cmake --install` puts things below its prefix. Nothing installed knows the prefix: the folder can be moved.
# The libraries are not for the loader's own folders: on a device, libtarq is another one.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # tests and benchmarks need not be built
set(TARQ_LIBRARY_FOLDER lib/tarq-dmr)
set(TARQ_HEADER_FOLDER include/tarq-dmr)
set(TARQ_PACKAGE_FOLDER lib/cmake/tarq_dmr)
set(TARQ_DOC_FOLDER share/doc/tarq-dmr)

# tarq_install_library(TARGET [EXPORT name]): a file that the program needs, in the folder of the others. It is installed
# as it was built: bin/ and lib/ of a build can be moved together, too.
function(tarq_install_library target)
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH $ORIGIN INSTALL_RPATH_USE_LINK_PATH ON BUILD_WITH_INSTALL_RPATH ON)
  install(TARGETS ${target} ${ARGN} LIBRARY DESTINATION ${TARQ_LIBRARY_FOLDER})
endfunction()

# The program finds its libraries in an installation and in a build.
function(tarq_install_program target)
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN/../${TARQ_LIBRARY_FOLDER};$ORIGIN/../lib"
    INSTALL_RPATH_USE_LINK_PATH ON BUILD_WITH_INSTALL_RPATH ON)
  install(TARGETS ${target} RUNTIME DESTINATION bin)
endfunction()

# For whoever builds a host or a plug-in against what is installed: find_package(tarq_dmr) and pkg-config.
function(tarq_install_package)
  include(CMakePackageConfigHelpers)
  install(EXPORT tarq_dmr NAMESPACE tarq_dmr:: FILE tarq_dmrTargets.cmake DESTINATION ${TARQ_PACKAGE_FOLDER})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/tarq_dmrConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES
    cmake/tarq_dmrConfig.cmake cmake/JniHeaders.cmake ${PROJECT_BINARY_DIR}/tarq_dmrConfigVersion.cmake
    DESTINATION ${TARQ_PACKAGE_FOLDER})
  configure_file(cmake/tarq-dmr.pc.in tarq-dmr.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/tarq-dmr.pc DESTINATION lib/pkgconfig)
  install(FILES README.md CHANGELOG.md DESTINATION ${TARQ_DOC_FOLDER})
  install(DIRECTORY docs examples DESTINATION ${TARQ_DOC_FOLDER})
endfunction()
