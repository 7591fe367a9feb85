#pragma once

#include <QString>

namespace core
{

/// Turns a path as the program and its settings write it (backslashes, any case) into one of this system. Each
/// part that exists under another case is taken as it stands on disk, so `\DADOS` and `\dados` are one folder.
QString caminho(const QString &texto);

/// Where an installation laid what it ships: `share/tarvelo` beside the `bin` of a package, else `executaveis`, the
/// folder of the executable itself.
QString pastaDaInstalacao(const QString &executaveis);

/// The program folder of a user's own, `tarvelo` below what he keeps for programs: on Linux `XDG_DATA_HOME`, where that
/// is an absolute path, else `.local/share` in his home.
QString pastaDoUsuario();

/// The program folder of an installation: `executaveis`, where the executable stands, when files can be written there
/// or a database stands there; else, and for a package whoever starts it, `dadosDoUsuario`. At every start it
/// is given what it lacks: at the first all, later what a kill or a full disk kept from it and what a new version
/// brings.
QString pastaDoPrograma(const QString &executaveis, const QString &dadosDoUsuario);

/// Why the program can't work in a folder, in words for the user and with the folder's name; "" where it can. It has to
/// be written, as the folder of its database, and its path has to go through the settings unchanged. Nothing is created
/// but for a moment, to try.
QString defeitoDaPasta(const QString &pasta);

/// Copies what an installation ships (pictures, batch files, postal codes) to `destino`, each file whole or not at all;
/// files that stand there are kept. The folder of data gets both names by which the program's texts call it.
void preenchePasta(const QString &instalacao, const QString &destino);

} // namespace core
