#!/usr/bin/env bash
# Builds the release with its measurements and prints them: `razao NAME VALUE LIMIT`, a ratio against the bare library
# in the same run, and below it what it is. Leaves with an error where a ratio is over its limit.
set -euo pipefail
cd "$(dirname "$0")"
. tools/pacotes.sh

instala_faltantes "${pacotes_programa[@]}" "${pacotes_medidas[@]}"
[ -f build/bench/build.ninja ] || cmake --preset bench
cmake --build --preset bench
exec env QT_QPA_PLATFORM=offscreen build/bench/bench/medidas "$@"
