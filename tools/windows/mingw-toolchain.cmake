# Cross-building for 64-bit Windows with MinGW-w64 (POSIX threads), for the
# libraries (tools/windows/build-libraries.sh) and the game (make windows).
# GORVAN_WINDOWS_PREFIX: where the cross-built libraries are installed.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT GORVAN_WINDOWS_PREFIX)
    set(GORVAN_WINDOWS_PREFIX $ENV{GORVAN_WINDOWS_PREFIX})
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GORVAN_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${GORVAN_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${GORVAN_WINDOWS_PREFIX}/lib/pkgconfig)

# The compiler's own runtime (libgcc, libstdc++, winpthread) goes into each
# program and library, so that none of its DLLs has to be shipped.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
