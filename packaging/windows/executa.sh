#!/usr/bin/env bash
# Runs a program for Windows under Wine: executa.sh PROGRAM [ARGUMENT...]. It has a Windows of its own below build/windows,
# and finds the libraries of Qt and of the compiler where they were built.
set -euo pipefail
janelas=$(cd "$(dirname "$0")/../../build/windows" && pwd)
compilador=x86_64-w64-mingw32-g++-posix

pastas=("$janelas/qt/bin")
for biblioteca in libstdc++-6.dll libwinpthread-1.dll; do
    pastas+=("$(realpath "$(dirname "$("$compilador" -print-file-name="$biblioteca")")")")
done
caminho=$(printf 'Z:%s;' "${pastas[@]}")

export WINEPREFIX=$janelas/wine WINEARCH=win64 WINEDEBUG=-all WINEPATH=${caminho//\//\\}
# Neither the runtimes that it would offer to fetch nor entries in this machine's menus.
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
# Wine hides Qt's variables from its programs unless they are named so. What a test says goes to its standard error.
for nome in ${!QT_@}; do
    export "WINE$nome=${!nome}"
done
export WINEQT_FORCE_STDERR_LOGGING=1
# Off screen Qt reads fonts of a folder, and there are none in this Windows.
export WINEQT_QPA_FONTDIR='Z:\usr\share\fonts\truetype\liberation'
exec wine "$@"
