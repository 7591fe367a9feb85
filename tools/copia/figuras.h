#pragma once

#include <QString>
#include <QStringList>

namespace copias
{

/// Copies the pictures of a program folder, the BMP files of DADOS, as `copiaBanco` does the database: a folder a copy,
/// with the list by which a restoring examines it. Returns what is told to the user; raises `Erro`.
QString copiaFiguras(const QString &pasta, const QStringList &destinos);

/// Puts the pictures of a copy into DADOS, each whole, once all of the copy were found whole. Those that differ are
/// kept in a folder beside them first; pictures that the copy does not have stay. The program may be at work. Returns
/// what is told to the user; raises `Erro`.
QString restauraFiguras(const QString &pasta, const QStringList &lugares);

} // namespace copias
