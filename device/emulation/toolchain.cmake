# The toolchain for arm64 Linux: Debian's clang and lld, with the sysroot that device/emulation/sysroot fills. Programs
# run under user-mode emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(BRIM_SYSROOT "" CACHE PATH "The folder that device/emulation/sysroot has filled")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES BRIM_SYSROOT)
set(CMAKE_SYSROOT ${BRIM_SYSROOT})

set(triple aarch64-linux-gnu)
foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET ${triple})
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_ASM_COMPILER clang)
set(CMAKE_ASM_COMPILER_TARGET ${triple})
# The sysroot does not contain every library that its libraries load.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld -Wl,--allow-shlib-undefined")
endforeach()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${triple}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L ${CMAKE_SYSROOT})
