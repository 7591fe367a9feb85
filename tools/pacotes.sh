# Sourced by run.sh, test.sh, bench.sh, lint.sh, package.sh and packaging/windows: installs the Debian packages that are missing, and says what and why.

# to build and run the program
pacotes_programa=(
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev
    libgl-dev
    libsqlite3-dev
    mdbtools-dev pkgconf
    qt6-translations-l10n
    qt6-wayland
    breeze-icon-theme
    python3 python3-markdown
    fonts-liberation fonts-dejavu-core
)
# to make a Debian package of it
pacotes_pacote=(dpkg-dev file)
# to test it
pacotes_testes=(mold poppler-utils "${pacotes_pacote[@]}" desktop-file-utils appstream)
# to look its sources over
pacotes_exame=(clang-format clang-tidy git python3)
# to build it for Windows
pacotes_windows=(g++-mingw-w64-x86-64-posix dpkg-dev tcl zip nsis)
# to try that
pacotes_wine=(wine wine64 xvfb xauth)
# to measure it
pacotes_medidas=(libbenchmark-dev)

declare -A para_que=(
    [g++]="compiler"
    [cmake]="build"
    [ninja-build]="build"
    [qt6-base-dev]="windows, printing"
    [qt6-svg-dev]="pictures and icons, drawn as it is built"
    [libgl-dev]="what the Qt development files ask for"
    [libsqlite3-dev]="the database"
    [mdbtools-dev]="reads the genuine Jet files that are imported"
    [pkgconf]="finds the library of mdbtools"
    [qt6-translations-l10n]="Qt's own buttons in Portuguese"
    [qt6-wayland]="windows on a Wayland desktop"
    [breeze-icon-theme]="icons, drawn into the program"
    [python3-markdown]="the manual, made as it is built"
    [fonts-liberation]="the fixed-pitch font of the prints"
    [fonts-dejavu-core]="the font of the windows"
    [mold]="links the test programs"
    [g++-mingw-w64-x86-64-posix]="compiler for Windows"
    [tcl]="joins the sources of the database"
    [zip]="the portable folder as one file"
    [nsis]="the installer"
    [wine]="runs programs for Windows"
    [wine64]="runs programs for Windows"
    [xvfb]="a screen that nobody sees, for Wine"
    [xauth]="a screen that nobody sees, for Wine"
    [poppler-utils]="the tests read the printed PDFs by it"
    [dpkg-dev]="the package and what it depends on"
    [file]="tells the package's programs from its texts"
    [desktop-file-utils]="the tests check the menu entry by it"
    [appstream]="the tests check the package's description by it"
    [python3]="makes the manual; looks at the layers of the sources"
    [clang-format]="the format of the sources"
    [clang-tidy]="checks of the sources"
    [git]="tells what has changed"
    [libbenchmark-dev]="the speed measurements"
)

# lista_pacotes PACKAGE...: one a line, with what it is for
lista_pacotes() {
    local pacote
    for pacote in "$@"; do
        printf '  %-22s %s\n' "$pacote" "${para_que[$pacote]}"
    done
}

# instala_faltantes PACKAGE...
instala_faltantes() {
    local faltam=() pacote
    for pacote in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$pacote" 2>/dev/null)" = installed ] || faltam+=("$pacote")
    done
    [ ${#faltam[@]} -eq 0 ] && return

    local como=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing; install them as root (apt-get install ...), or install sudo:" >&2
            lista_pacotes "${faltam[@]}" >&2
            exit 1
        }
        como=(sudo)
    fi
    echo "These packages are missing and are installed now:"
    lista_pacotes "${faltam[@]}"
    "${como[@]}" apt-get update -q
    "${como[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${faltam[@]}"
}
