# The toolchain file of the NDK that the environment variable names.
set(ndk_toolchain "$ENV{ANDROID_NDK}/build/cmake/android.toolchain.cmake")
if(NOT EXISTS "${ndk_toolchain}")
  message(FATAL_ERROR "The environment variable ANDROID_NDK must name the folder of the Android NDK (docs/android.md). "
    "${ndk_toolchain} does not exist.")
endif()
include("${ndk_toolchain}")
set(CMAKE_SKIP_RPATH ON)  # a device finds libraries by name; this machine's folders do not exist there
