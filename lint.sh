#!/usr/bin/env bash
# Looks the sources over: the layers and the format of all of them, then clang-tidy on the product's.
#   ./lint.sh                    the whole product: some 15 minutes on two cores
#   ./lint.sh --mudados [BASE]   what changed since the commit BASE (without it: since main was left, on main the last commit)
#   ./lint.sh --rapido           no clang-tidy: seconds
# Leaves with an error where one of them finds something.
set -euo pipefail
cd "$(dirname "$0")"
. tools/pacotes.sh

modo="${1:-}"
base="${2:-}"
instala_faltantes "${pacotes_exame[@]}"

mapfile -t pastas < <(sed -n 's|^ *add_subdirectory(\([a-z/]*\)).*|\1|p' CMakeLists.txt)
produto=()
for pasta in "${pastas[@]}"; do
    case $pasta in
    support | tests | tools | data | docs | bench) ;;
    *) produto+=("$pasta") ;;
    esac
done

tools/camadas.py
find "${pastas[@]}" \( -name '*.h' -o -name '*.cpp' \) -exec clang-format --dry-run -Werror {} +
[ "$modo" != --rapido ] || exit 0

# The commit that the changes begin at; nothing where there is none.
comeco() {
    local onde
    onde=$(git merge-base HEAD origin/main 2>/dev/null) || onde=
    if [ -z "$onde" ] || [ "$onde" = "$(git rev-parse HEAD 2>/dev/null)" ]; then
        onde=$(git rev-parse --verify --quiet 'HEAD~1' 2>/dev/null) || onde=
    fi
    echo "$onde"
}

# A header is looked at through its own source, or through one that includes it.
fontes_mudadas() {
    local arquivo fonte
    git diff --name-only --diff-filter=d "$1" -- "${produto[@]}" | while read -r arquivo; do
        case $arquivo in
        *.cpp) echo "$arquivo" ;;
        *.h)
            fonte="${arquivo%.h}.cpp"
            [ -f "$fonte" ] || fonte=$(grep -rl --include='*.cpp' "\"$arquivo\"" "${produto[@]}" | sed -n 1p) || true
            echo "$fonte"
            ;;
        esac
    done | sed '/^$/d' | sort -u
}

todas() {
    find "${produto[@]}" -name '*.cpp' | sort
}

if [ "$modo" = --mudados ]; then
    [ -n "$base" ] || base=$(comeco)
    if [ -z "$base" ]; then
        echo "There is no earlier commit to compare with: all sources are looked at."
        mapfile -t fontes < <(todas)
    elif ! git diff --quiet "$base" -- .clang-tidy; then
        echo "The checks themselves have changed: all sources are looked at."
        mapfile -t fontes < <(todas)
    else
        mapfile -t fontes < <(fontes_mudadas "$base")
    fi
else
    mapfile -t fontes < <(todas)
fi
[ ${#fontes[@]} -gt 0 ] || exit 0

# The checks read the files that the build makes of the windows' layouts.
instala_faltantes "${pacotes_programa[@]}"
[ -f build/asan/build.ninja ] || cmake --preset asan
cmake --build --preset asan
printf '%s\0' "${fontes[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/asan --quiet 2>&1 |
    sed '/^[0-9]* warnings\{0,1\}.* generated\.$/d' # in the headers of others
