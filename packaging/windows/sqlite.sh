#!/usr/bin/env bash
# Builds SQLite for Windows out of Debian's source package, into build/windows/sqlite. A second call finds it there.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/pacotes.sh
. packaging/windows/fontes.sh

pasta=$PWD/build/windows
[ ! -d "$pasta/sqlite" ] || exit 0
instala_faltantes "${pacotes_windows[@]}"
mkdir -p "$pasta"
busca_fonte sqlite3 "$pasta/sqlite-fonte"

# One file of all sources, as the library's own makefile joins them.
rm -rf "$pasta/sqlite-construcao"
mkdir "$pasta/sqlite-construcao"
cd "$pasta/sqlite-construcao"
"$pasta/sqlite-fonte/configure" --disable-tcl
make sqlite3.c

# As Debian's own library is built, as far as the program meets it.
x86_64-w64-mingw32-gcc-posix -c -O2 -fstack-protector-strong \
    -DSQLITE_SECURE_DELETE -DSQLITE_SOUNDEX -DSQLITE_OMIT_LOOKASIDE=1 -DSQLITE_ALLOW_ROWID_IN_VIEW \
    -DSQLITE_LIKE_DOESNT_MATCH_BLOBS -DSQLITE_THREADSAFE=1 -DSQLITE_USE_URI=1 -DSQLITE_MAX_SCHEMA_RETRY=25 \
    -DSQLITE_MAX_VARIABLE_NUMBER=250000 -DSQLITE_ENABLE_DBSTAT_VTAB -DSQLITE_ENABLE_COLUMN_METADATA sqlite3.c
rm -rf "$pasta/sqlite.novo"
mkdir -p "$pasta"/sqlite.novo/{include,lib}
x86_64-w64-mingw32-ar rcsD "$pasta/sqlite.novo/lib/libsqlite3.a" sqlite3.o
cp sqlite3.h "$pasta/sqlite.novo/include"

# It has its name once it is whole.
mv "$pasta/sqlite.novo" "$pasta/sqlite"
rm -rf "$pasta/sqlite-fonte" "$pasta/sqlite-construcao"
