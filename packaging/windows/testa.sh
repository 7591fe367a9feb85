#!/usr/bin/env bash
# Builds the tests for Windows and runs them under Wine, then the demonstration: testa.sh [NAME], the tests whose name matches
# alone. What is left out, and why, stands in tests/windows.txt. The pictures land in build/windows/demonstracao.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/pacotes.sh

instala_faltantes "${pacotes_programa[@]}" "${pacotes_windows[@]}" "${pacotes_wine[@]}"
packaging/windows/qt.sh
packaging/windows/sqlite.sh
# What draws and counts while it is built is this system's.
[ -f build/release/build.ninja ] || cmake --preset release
cmake --build --preset release --target figuras icones reduz cep

testes=build/windows/testes
executa=$PWD/packaging/windows/executa.sh
[ -f "$testes/build.ninja" ] ||
    cmake --preset windows -B "$testes" -DTARVELO_TESTS=ON -DCMAKE_CROSSCOMPILING_EMULATOR="$executa"
cmake --build "$testes"

# Consoles and windows need a screen, be it one that nobody sees. All that Wine left running ends with it.
numero=90
while [ -e "/tmp/.X$numero-lock" ]; do numero=$((numero + 1)); done
Xvfb ":$numero" -screen 0 2560x2048x24 >/dev/null 2>&1 &
tela=$!
termina() {
    WINEPREFIX=$PWD/build/windows/wine wineserver -k 2>/dev/null || true
    kill "$tela" 2>/dev/null || true
}
trap termina EXIT
export DISPLAY=:$numero

if [ ! -d build/windows/wine ]; then
    "$executa" wineboot --init >/dev/null 2>&1
    # Wine lacks the fonts of Windows, and would take the first one that this machine has.
    for fonte in 'Segoe UI' Tahoma; do
        "$executa" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$fonte" /d 'Liberation Sans' /f >/dev/null 2>&1
    done
fi
selecao=()
[ $# -gt 0 ] && selecao=(-R "$1")
estado=0
ctest --test-dir "$testes" -j "$(nproc)" --no-tests=error --output-on-failure "${selecao[@]}" || estado=$?
echo "Left out, as tests/windows.txt says:"
sed -n 's/^[a-z]/  &/p' tests/windows.txt
[ $# -eq 0 ] || exit "$estado"

resultados=build/windows/demonstracao
# Into a file: the consoles of its batch files wait for a key, and would hold a pipe open for good.
DEMONSTRACAO_TELA=windows "$executa" "$testes/tools/demonstracao/demonstracao.exe" "$resultados" >"$testes/demonstracao.txt" || estado=$?
iconv -f CP1252 -t UTF-8 "$testes/demonstracao.txt"
echo "The pictures are in $resultados."
exit "$estado"
