# Cross-building for arm64 Linux: BRANTLOW_SYSROOT in the environment names a folder that holds the unpacked arm64
# packages (tools/same_digits.sh makes one), and qemu runs what was built.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_SYSROOT $ENV{BRANTLOW_SYSROOT})
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static -L $ENV{BRANTLOW_SYSROOT})
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(ENV{PKG_CONFIG_SYSROOT_DIR} $ENV{BRANTLOW_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} $ENV{BRANTLOW_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig:$ENV{BRANTLOW_SYSROOT}/usr/share/pkgconfig)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
