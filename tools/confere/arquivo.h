#pragma once

#include <QString>

namespace runtime
{
class RuntimeError;
}

namespace confere
{

/// The database that an argument means: the file itself, or the database of a program folder as the program finds it,
/// by the folder's settings or in its usual place. A folder that holds a database itself means that one.
QString ArquivoDe(const QString &argumento);

/// The database of this installation without an argument: that of the program's folder where one stands there, else
/// that of the user's folder. Nothing is made on the way, as a start of the program would.
QString ArquivoDaInstalacao(const QString &executaveis, const QString &dadosDoUsuario);

/// Why a file can't be read, and what to do about it.
QString Explica(const runtime::RuntimeError &erro);

} // namespace confere
