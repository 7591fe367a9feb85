#!/usr/bin/env bash
# Builds the Debian package, build/pacote/tarvelo_VERSION_ARCHITECTURE.deb. The same sources make the same file.
set -euo pipefail
cd "$(dirname "$0")"
. tools/pacotes.sh

instala_faltantes "${pacotes_programa[@]}" "${pacotes_pacote[@]}"
umask 022
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog --file packaging/changelog --show-field Timestamp)
export SOURCE_DATE_EPOCH
[ -f build/release/build.ninja ] || cmake --preset release
cmake --build --preset release

pasta=build/pacote
rm -rf "$pasta"
cpack --config build/release/CPackConfig.cmake -B "$pasta"
rm -rf "$pasta/_CPack_Packages"
dpkg-deb --info "$pasta"/tarvelo_*.deb
