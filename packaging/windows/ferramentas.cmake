# Toolchain file: programs for 64-bit Windows out of Debian's MinGW-w64, with the libraries that ./qt.sh and ./sqlite.sh have
# laid below build/windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

get_filename_component(_built "${CMAKE_CURRENT_LIST_DIR}/../../build/windows" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${_built}/qt" "${_built}/sqlite" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What runs while it is built is this system's own Qt.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake")

# No time of the build in the files: the same sources make the same programs.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
