# Cross build for 32-bit ARM with Debian's compiler, against the libraries that scripts/arm.sh unpacks. The programs
# run in the emulator.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
cmake_path(SET CMAKE_SYSROOT NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../build/arm-sysroot")
# Below -L the emulator finds files for the program, but no folders: liblog's folder is named in full.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-arm -L ${CMAKE_SYSROOT} -E LD_LIBRARY_PATH=${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf/android)

# Libraries and headers come from the target only, programs (javac) from this machine.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
