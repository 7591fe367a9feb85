#pragma once

#include "platform/dao/database.h"

#include <QString>

#include <memory>

/// The program's globals, with the names that the windows use.
namespace core
{

extern std::shared_ptr<dao::Database> DBDados; ///< the main database, open for the whole run
extern std::shared_ptr<dao::Database> DBCEP;   ///< the postal-code database, or none

extern QString NomeEmpresa; ///< title of every box, first part of every caption
extern QString ArquivoINI;
extern QString ArquivoDB;
extern QString ArquivoCEP;
extern QString ArquivoLogo;
extern QString ArquivoFundo;
extern bool AutoCompletar;

extern qint16 CodOperador;    ///< the operator logged in
extern qint16 ModoChamada;    ///< set just before a window is shown; the last value wins
extern qint32 CodigoConsulta; ///< the record that the called window is to show

/// The program's own name and version.
namespace App
{
inline constexpr auto Title = u"Tarvelo";
inline constexpr int Major = TARVELO_VERSION_MAJOR;
inline constexpr int Minor = TARVELO_VERSION_MINOR;
inline constexpr int Revision = TARVELO_VERSION_REVISION;

/// "2.1.34"
QString version();

/// The program folder, without a slash at its end: the executable's folder when it can be written or holds a database,
/// else `tarvelo` below the user's data folder, filled from the installation's data at the first start.
QString Path();

/// A file that the installation ships and the user does not change, by its name: beside the executable or in the
/// package's data.
QString shipped(const QString &name);

void setPath(const QString &path);
} // namespace App

/// `NomeEmpresa` and the tail of a window's caption.
QString captionOf(const QString &tail);

} // namespace core
