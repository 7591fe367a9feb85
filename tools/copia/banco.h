#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

namespace copias
{

/// The database of a program folder, found as the program finds it.
QString bancoDaPasta(const QString &pasta);

/// Copies the database into the first of the folders that is there, or into the last one, which is made; the program
/// may be at work on it. The copy has its name once it is whole, on the disk and examined; only then the oldest ones
/// go. Returns what is told to the user; raises `Erro`.
QString copiaBanco(const QString &banco, const QStringList &destinos);

/// What the engine puts behind the name of a database for that of its journal.
constexpr auto journal = u"-journal";

/// Keeps what stands at the place of a database, by the engine or, where that can't read it, as it lies; a journal
/// there moves aside as well. Raises runtime::RuntimeError, or `Erro` where the bytes can't be kept.
void guardaBanco(const QString &banco, const QString &guardado);

/// What a restoring works on.
struct Restauracao {
    QString pasta; ///< the program's folder: nobody may be at work in it
    QString banco;
    QStringList lugares;                                         ///< of the copies, or the copy itself
    std::chrono::milliseconds espera = std::chrono::seconds(30); ///< for its end, and for other workstations
};

/// Puts a copy in the place of the database, once the copy has been examined and the program of this machine has ended.
/// What stood there is kept beside it. Whatever fails, and at whatever moment the machine stops, the database is the
/// old one or the copy. Returns what is told to the user; raises `Erro`.
QString restauraBanco(const Restauracao &pedido);

} // namespace copias
