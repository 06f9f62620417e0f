# One language standard and one set of warnings for everything that is built here.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

# Libraries are found from the file that needs them.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

option(TARQ_BENCH "Build the benchmarks" OFF)
option(TARQ_FUZZ "Build the fuzzers; needs Clang and fuzzer-no-link among the sanitizers" OFF)
set(TARQ_SANITIZE "" CACHE STRING "The value for -fsanitize, for example address,undefined")

# Only our own presets make warnings errors (CMAKE_COMPILE_WARNING_AS_ERROR): another project's compiler may warn of
# something else.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 warns about overlaps inside its own std::string operator+ (GCC bug 105651).
  add_compile_options(-Wno-restrict)
endif()
if(TARQ_SANITIZE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)  # false alarms in instrumented library code (GCC bug 105562)
  endif()
  # vptr needs RTTI, which the plug-in is built without.
  add_compile_options(-fsanitize=${TARQ_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all
                      -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=${TARQ_SANITIZE})
endif()

# What ships is hardened: a fault that a document from the network finds ends the process instead of steering it.
# scripts/check-hardening.sh checks that it arrived.
set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86|i.86|AMD64")
  list(APPEND hardening -fcf-protection -fno-plt)
endif()
add_compile_options("$<$<CONFIG:Release>:${hardening}>")
add_link_options("$<$<CONFIG:Release>:-Wl,-z,relro,-z,now,-z,noexecstack>")

# Link-time optimisation over the parts of a library: 1.5 % fewer instructions for a check, a plug-in 7 % smaller.
include(CheckIPOSupported)
check_ipo_supported(RESULT TARQ_LINK_TIME_OPTIMIZATION OUTPUT ignored LANGUAGES CXX)
function(tarq_optimize_as_one target)
  set_target_properties(${target} PROPERTIES
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ${TARQ_LINK_TIME_OPTIMIZATION})
endfunction()

# How every part of the plug-in is compiled.
function(tarq_plugin_flags target)
  tarq_optimize_as_one(${target})
  target_compile_options(${target} PRIVATE
    -fno-exceptions -fno-rtti -fvisibility=hidden -ffunction-sections -fdata-sections)
endfunction()

# tarq_plugin_part(NAME [LINKS targets...] SOURCES files...): one folder of the plug-in.
function(tarq_plugin_part name)
  cmake_parse_arguments(PART "" "" "LINKS;SOURCES" ${ARGN})
  add_library(${name} STATIC ${PART_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  tarq_plugin_flags(${name})
  target_link_libraries(${name} PUBLIC host ${PART_LINKS})
endfunction()
