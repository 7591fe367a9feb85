#!/usr/bin/env bash
# Builds Qt for Windows out of Debian's source package, into build/windows/qt: more than an hour on two cores. A second call
# finds it there; one after a call that was killed goes on with it.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/pacotes.sh
. packaging/windows/fontes.sh

pasta=$PWD/build/windows
[ ! -d "$pasta/qt" ] || exit 0
instala_faltantes "${pacotes_programa[@]}" "${pacotes_windows[@]}"
mkdir -p "$pasta"
busca_fonte qt6-base "$pasta/qt-fonte"

# What the program has no use for, and what is Linux's. Qt brings along what it needs of other libraries.
sem=(network dbus sql xml concurrent opengl dynamicgl vulkan tabletevent icu zstd glib brotli
    system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion system_libb2)
desligadas=("${sem[@]/#/-DFEATURE_}")
desligadas=("${desligadas[@]/%/=OFF}")
if [ ! -f "$pasta/qt-construcao/build.ninja" ]; then
    cmake -S "$pasta/qt-fonte" -B "$pasta/qt-construcao" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/ferramentas.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$pasta/qt" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(uname -m)-linux-gnu/cmake" \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
        "${desligadas[@]}"
fi
cmake --build "$pasta/qt-construcao"

# It has its name once it is whole.
rm -rf "$pasta/qt.novo"
cmake --install "$pasta/qt-construcao" --prefix "$pasta/qt.novo"
mv "$pasta/qt.novo" "$pasta/qt"
rm -rf "$pasta/qt-fonte" "$pasta/qt-construcao"
