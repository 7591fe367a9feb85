# Sourced by run.sh, test.sh and bench.sh: installs the Debian packages that are missing, and says what and why.

# to build and run the program
pacotes_programa=(
    g++ cmake ninja-build          # compiler and build
    qt6-base-dev qt6-svg-dev       # windows, printing, vector icons
    libgl-dev                      # what the Qt development files ask for
    libsqlite3-dev                 # the database
    qt6-translations-l10n          # Qt's own buttons in Portuguese
    qt6-wayland                    # windows on a Wayland desktop
    breeze-icon-theme              # icons
    fonts-liberation fonts-dejavu-core  # the fixed-pitch font of the prints, the font of the windows
)
# to test it: reads the printed PDFs
pacotes_testes=(poppler-utils)
# to measure it
pacotes_medidas=(libbenchmark-dev)

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
            echo "Missing packages: ${faltam[*]}. Install them as root (apt-get install ...), or install sudo." >&2
            exit 1
        }
        como=(sudo)
    fi
    echo "Installing what the build needs (compiler, Qt 6, SQLite, icons, fonts): ${faltam[*]}"
    "${como[@]}" apt-get update -q
    "${como[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${faltam[@]}"
}
