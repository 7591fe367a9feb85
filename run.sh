#!/usr/bin/env bash
# Builds Tarvelo, lays its program folder `programa/` and opens it. The data in that folder is kept.
set -euo pipefail
cd "$(dirname "$0")"
. tools/pacotes.sh

construcao=build/release
programa=programa
ferramentas_prontas="$construcao/.pacotes"

# The list of packages is looked up once; a change of the list looks again.
if ! cmp -s tools/pacotes.sh "$ferramentas_prontas"; then
    instala_faltantes "${pacotes_programa[@]}"
    mkdir -p "$construcao"
    cp tools/pacotes.sh "$ferramentas_prontas"
fi

[ -f "$construcao/build.ninja" ] || cmake --preset release
cmake --build --preset release

# Laid again only where something was built or the folder is not whole.
instalado="$construcao/.instalado"
algo_novo() {
    local feito
    for feito in "$construcao"/{app/tarvelo,tools/*/tarvelo-*,tools/cep/cep,docs/manual.html,data/*.{bmp,BAT,MDB}}; do
        [ "$instalado" -nt "$feito" ] || return 0
    done
    return 1
}
if [ ! -x "$programa/tarvelo" ] || [ ! -e "$programa/DADOS/splash.bmp" ] || algo_novo; then
    cmake --install "$construcao" --prefix "$programa"
    touch "$instalado"
fi

# Asks the windowing library itself, which ends a program that reaches no display; its own words are kept back.
responde() {
    (ulimit -c 0 && timeout 20 "$construcao/tools/tela/tela") >/dev/null 2>&1
}

demonstra() {
    echo "$1, so the program can't show its windows: the demonstration runs off screen instead."
    exec "$construcao/tools/demonstracao/demonstracao" demonstracao
}

tela="${DISPLAY:-${WAYLAND_DISPLAY:-}}"
[ -n "$tela" ] || demonstra "There is no display here"
responde 2>/dev/null || demonstra "The display '$tela' does not answer"
exec "$programa/tarvelo"
