#!/usr/bin/env bash
# Tries under Wine what monta.sh has made: the installer on a new machine, over an installation that is at work, in a folder of
# the user's choice, while the program runs, on a Windows that is too old; and the removal.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/pacotes.sh

instala_faltantes "${pacotes_wine[@]}"
versao=$(sed -n 's/^project(tarvelo VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
entregue=$PWD/build/windows/Tarvelo
instalador=$PWD/build/windows/tarvelo-$versao-instala.exe
[ -f "$instalador" ] || { echo "There is no $instalador: packaging/windows/monta.sh makes it." >&2; exit 1; }

# The programs want a screen, be it one that nobody sees.
[ -n "${DISPLAY:-}" ] || exec xvfb-run -a "$0" "$@"

export LC_ALL=C.UTF-8 WINEPREFIX=$PWD/build/windows/wine-instalador WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
chave='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvelo'
rm -rf "$WINEPREFIX"
trap 'wineserver -k 2>/dev/null || true' EXIT
wineboot --init >/dev/null 2>&1

falha() {
    echo "FAIL: $1" >&2
    exit 1
}

# espera STATUS WHAT COMMAND...
espera() {
    local status=0
    "${@:3}" >/dev/null 2>&1 || status=$?
    [ "$status" = "$1" ] || falha "$2: status $status instead of $1"
    echo "ok: $2"
}

roda() {
    timeout 120 wine "$@"
}

# comando LINE: as it stands; Wine would put a folder with blanks into quotation marks, which no installer takes
comando() {
    printf '%s\r\n' "$1" | iconv -t CP850 >"$WINEPREFIX/drive_c/comando.bat"
    roda cmd /c 'C:\comando.bat'
}

# remove FOLDER: the uninstaller as it works itself, and not a copy that goes on behind the caller's back
remove() {
    cp "$1/desinstala.exe" "$WINEPREFIX/drive_c/remove.exe"
    comando "C:\remove.exe /S _?=$(winepath -w "$1")"
}

wine winecfg -v win7
espera 2 "a Windows that is too old is refused" roda "$instalador" /S
wine winecfg -v win10

espera 2 "a folder that can't be written is refused" comando "\"$(winepath -w "$instalador")\" /S /D=Z:\\proc\\Tarvelo"
! wine reg query "$chave" >/dev/null 2>&1 || falha "the system tells how to remove what was not installed"
espera 0 "it installs without a question" roda "$instalador" /S
usuario=$(winepath -u "$(wine cmd /c 'echo %LOCALAPPDATA%' 2>/dev/null | tr -d '\r')")
pasta=$usuario/Programs/Tarvelo
diff -r "$entregue" "$pasta" | grep -v ': desinstala.exe$' && falha "what is installed differs from the portable folder"
menu=$(find "$WINEPREFIX/drive_c" -name Tarvelo.lnk)
[[ $menu == */Start\ Menu/* ]] || falha "the entry in the start menu is missing"
wine reg query "$chave" /v UninstallString >/dev/null || falha "the system does not know how to remove it"

printf 'rem mudado\r\n' >>"$pasta/BACKUPDA.BAT"
echo meu >"$pasta/DADOS/logo.bmp"
echo dados >"$pasta/DADOS/DADOS.MDB"
echo meus >"$pasta/CEP.MDB"
echo antigo >"$pasta/tarvelo.exe"
rm "$pasta/BACKUPFI.BAT"
find "$pasta" -type f -exec sha256sum {} + | grep 'BACKUPDA\|DADOS\|CEP.MDB' | sort >"$WINEPREFIX/antes"
espera 0 "it installs over an older one" roda "$instalador" /S
find "$pasta" -type f -exec sha256sum {} + | grep 'BACKUPDA\|DADOS\|CEP.MDB' | sort | diff "$WINEPREFIX/antes" - ||
    falha "what was the user's has changed"
cmp "$entregue/tarvelo.exe" "$pasta/tarvelo.exe" || falha "the program was not updated"
cmp "$entregue/BACKUPFI.BAT" "$pasta/BACKUPFI.BAT" || falha "a batch file that was missing was not laid"

rm "$pasta/DADOS/DADOS.MDB" # no database: the program makes its own
wine "$pasta/tarvelo.exe" >/dev/null 2>&1 &
disown
for ((i = 0; i < 60; i++)); do
    [ ! -s "$pasta/DADOS/DADOS.MDB" ] || break
    sleep 1
done
[ -s "$pasta/DADOS/DADOS.MDB" ] || falha "the installed program does not start"
espera 2 "it refuses while the program runs" roda "$instalador" /S
espera 2 "the removal refuses, too" remove "$pasta"
[ -f "$pasta/BACKUPFI.BAT" ] || falha "the refused removal has removed something"
wine taskkill /f /im tarvelo.exe >/dev/null 2>&1 || falha "the program has not run any more"
wineserver --wait 2>/dev/null || true

espera 0 "it is removed" remove "$pasta"
ficaram=$(cd "$pasta" && find . -type f -printf '%P\n' | LC_ALL=C sort | tr '\n' ' ')
[[ $ficaram == "BACKUPDA.BAT CEP.MDB DADOS/DADOS.MDB DADOS/bg1024.bmp "*" DADOS/logo.bmp DADOS/splash.bmp "* ]] ||
    falha "the removal has left: $ficaram"
[[ $ficaram != *.exe* && $ficaram != *.dll* && $ficaram != *.txt* && $ficaram != *BACKUPFI* ]] || falha "the removal has left: $ficaram"
[ ! -e "$menu" ] || falha "the entry in the start menu was left"
! wine reg query "$chave" >/dev/null 2>&1 || falha "the system still tells how to remove it"
echo "what stays: $ficaram"

outra="$WINEPREFIX/drive_c/Oficina do Zé"
espera 0 "it installs into a folder with blanks and accents" comando \
    "\"$(winepath -w "$instalador")\" /S /D=C:\\Oficina do Zé"
[ -f "$outra/tarvelo.exe" ] || falha "nothing was laid in $outra"
espera 0 "the installed tool works there" roda "$outra/cep.exe" --substitui "$PWD/data/ceps.csv" "$outra/CEP.MDB"
rm -r "$outra/DADOS" "$outra/CEP.MDB"
espera 0 "it is removed from there" remove "$outra"
[ ! -e "$outra" ] || falha "the removal has left: $(ls "$outra")"
