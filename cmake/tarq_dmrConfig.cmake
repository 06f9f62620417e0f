# find_package(tarq_dmr) defines:
#   tarq_dmr::host     the headers of the contract between host and plug-in
#   tarq_dmr::tarq     libtarq for Linux, for a host; brings the headers along
#   tarq_dmr::plugin   the renderer plug-in, to load at run time: $<TARGET_FILE:tarq_dmr::plugin>
#   tarq_dmr_JAR       the jar with the base class of Java handlers
include(${CMAKE_CURRENT_LIST_DIR}/JniHeaders.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/tarq_dmrTargets.cmake)
target_include_directories(tarq_dmr::host SYSTEM INTERFACE ${TARQ_JNI_INCLUDE})
cmake_path(SET tarq_dmr_JAR NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../../tarq-dmr/tarq-renderer.jar")
