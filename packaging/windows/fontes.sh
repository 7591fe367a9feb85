# Sourced by qt.sh and sqlite.sh: fetches the source packages of Debian.

# lista_de_fontes FOLDER: the machine's own lists of packages, asked for their sources. The machine's lists stay as they are.
lista_de_fontes() {
    local arquivo
    for arquivo in /etc/apt/sources.list /etc/apt/sources.list.d/*; do
        [ -f "$arquivo" ] || continue
        case $arquivo in
        *.list) sed -n 's/^deb[[:space:]]/deb-src /p' "$arquivo" >"$1/$(basename "$arquivo")" ;;
        *.sources) sed 's/^Types:.*/Types: deb-src/' "$arquivo" >"$1/$(basename "$arquivo")" ;;
        esac
    done
}

# busca_fonte PACKAGE FOLDER: fetches and unpacks the source of PACKAGE with Debian's changes, whole or not at all.
busca_fonte() {
    local pacote=$1 destino=$2 novo="$2.novo" apt
    [ ! -d "$destino" ] || return 0
    rm -rf "$novo"
    mkdir -p "$novo"/{partes,listas/partial,cache/archives/partial,fonte}
    novo=$(realpath "$novo")
    lista_de_fontes "$novo/partes"
    apt=(apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$novo/partes"
        -o Dir::State::lists="$novo/listas" -o Dir::Cache="$novo/cache" -o APT::Sandbox::User=root)
    # A list that has no sources, as those of other makers, is none that the package stands in.
    "${apt[@]}" update || true
    (cd "$novo/fonte" && "${apt[@]}" source "$pacote")
    mv "$novo/fonte/$pacote"-*/ "$destino"
    rm -rf "$novo"
}
