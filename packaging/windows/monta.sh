#!/usr/bin/env bash
# Builds the packages for Windows, on Linux: build/windows/tarvelo-VERSION-win64.zip, a folder that runs wherever it is put, and
# tarvelo-VERSION-instala.exe. The same sources make the same files.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/pacotes.sh

construcao=build/windows
pasta=$construcao/Tarvelo
versao=$(sed -n 's/^project(tarvelo VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
alvo=x86_64-w64-mingw32

instala_faltantes "${pacotes_programa[@]}" "${pacotes_windows[@]}"
umask 022
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog --file packaging/changelog --show-field Timestamp)
export SOURCE_DATE_EPOCH
packaging/windows/sqlite.sh
packaging/windows/qt.sh

# What draws and counts while it is built is this system's.
[ -f build/release/build.ninja ] || cmake --preset release
cmake --build --preset release --target figuras icones reduz cep
[ -f "$construcao/programa/build.ninja" ] || cmake --preset windows
cmake --build --preset windows

rm -rf "$pasta"
cmake --install "$construcao/programa" --prefix "$PWD/$pasta"
find "$pasta" -name '*.exe' -o -name '*.dll' | while read -r arquivo; do
    "$alvo-strip" --strip-unneeded "$arquivo"
done
chmod -R u=rwX,go=rX "$pasta"
find "$pasta" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +

# A library that a program asks for lies beside it or is Windows' own, which the compiler knows.
confere_bibliotecas() {
    local arquivo nome
    find "$pasta" -name '*.exe' -o -name '*.dll' | while read -r arquivo; do
        "$alvo-objdump" -p "$arquivo" | sed -n 's/^.*DLL Name: //p' | while read -r nome; do
            nome=${nome,,}
            [[ $nome == api-ms-win-* ]] || [ -f "/usr/$alvo/lib/lib${nome%.*}.a" ] || [ -n "$(find "$pasta" -maxdepth 1 -iname "$nome")" ] || {
                echo "$arquivo asks for $nome, which is missing." >&2
                exit 1
            }
        done
    done
}
confere_bibliotecas

zip="tarvelo-$versao-win64.zip"
rm -f "$construcao/$zip"
(cd "$construcao" && find Tarvelo | LC_ALL=C sort | TZ=UTC zip -q -X -@ "$zip")

# What a second installation lays anew and an uninstallation takes away again, and what is the user's once it is laid.
do_usuario() {
    case $1 in
    DADOS/* | CEP.MDB | *.BAT) return 0 ;;
    *) return 1 ;;
    esac
}

# poe FILE: the installer's line for a file of the folder
poe() {
    local lugar
    lugar=$(dirname "$1")
    [ "$lugar" = . ] && lugar= || lugar="\\${lugar//\//\\}"
    printf '  SetOutPath "$INSTDIR%s"\n  File "%s"\n' "$lugar" "$PWD/$pasta/$1"
}

# lista_arquivos: the four lists of instala.nsi
lista_arquivos() {
    local arquivos arquivo
    mapfile -t arquivos < <(cd "$pasta" && find . -type f -printf '%P\n' | LC_ALL=C sort)
    echo '!macro Programas'
    for arquivo in "${arquivos[@]}"; do do_usuario "$arquivo" || poe "$arquivo"; done
    printf '!macroend\n!macro Iniciais\n'
    for arquivo in "${arquivos[@]}"; do ! do_usuario "$arquivo" || poe "$arquivo"; done
    printf '!macroend\n!macro RemoveProgramas\n'
    for arquivo in "${arquivos[@]}"; do
        do_usuario "$arquivo" || printf '  Delete "$INSTDIR\\%s"\n' "${arquivo//\//\\}"
    done
    (cd "$pasta" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r) | while read -r arquivo; do
        do_usuario "$arquivo/" || printf '  RMDir "$INSTDIR\\%s"\n' "${arquivo//\//\\}"
    done
    printf '!macroend\n!macro RemoveLotes\n'
    (cd "$pasta" && printf '  !insertmacro RemoveLote %s\n' *.BAT)
    echo '!macroend'
}
lista_arquivos >"$construcao/arquivos.nsh"

instalador="$construcao/tarvelo-$versao-instala.exe"
makensis -V2 -WX -INPUTCHARSET UTF8 -DVERSAO="$versao" -DPASTA="$PWD/$pasta" -DARQUIVOS="$PWD/$construcao/arquivos.nsh" \
    -DICONE="$PWD/$construcao/programa/tarvelo.ico" -DTAMANHO="$(du -sk --apparent-size "$pasta" | cut -f1)" -DSAIDA="$PWD/$instalador" \
    packaging/windows/instala.nsi
ls -l "$construcao/$zip" "$instalador"
