#!/usr/bin/env bash
# Builds with AddressSanitizer and UndefinedBehaviorSanitizer and runs the tests; ./test.sh NAME runs those whose name matches.
set -euo pipefail
cd "$(dirname "$0")"
. tools/pacotes.sh

instala_faltantes "${pacotes_programa[@]}" "${pacotes_testes[@]}"
[ -f build/asan/build.ninja ] || cmake --preset asan
cmake --build --preset asan

selecao=()
[ $# -gt 0 ] && selecao=(-R "$1")
exec ctest --preset asan -j "$(nproc)" --no-tests=error "${selecao[@]}"
