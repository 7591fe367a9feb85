#include "shell/instancia.h"

#include "core/modulo.h"

#include <QFile>
#include <QLockFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

std::unique_ptr<QLockFile> trava;

/// A killed process whose parent has not asked for it yet still has its number, but holds nothing any more.
bool acabado(qint64 processo)
{
    QFile estado(u"/proc/%1/stat"_s.arg(processo));
    if (!estado.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray texto = estado.readAll();
    return texto.mid(texto.lastIndexOf(')') + 2).startsWith('Z');
}

bool donoAcabado(const QLockFile &arquivo)
{
    qint64 processo = 0;
    QString maquina;
    QString programa;
    return arquivo.getLockInfo(&processo, &maquina, &programa) && acabado(processo);
}

bool prende(QLockFile &arquivo)
{
    return arquivo.tryLock() || (donoAcabado(arquivo) && arquivo.removeStaleLockFile() && arquivo.tryLock());
}

} // namespace

bool OutraInstancia()
{
    auto nova = std::make_unique<QLockFile>(core::App::Path() + u"/tarvelo.lock"_s);
    nova->setStaleLockTime(0); // by its process alone, however long it has been open
    if (!prende(*nova)) {
        return nova->error() == QLockFile::LockFailedError;
    }
    trava = std::move(nova);
    return false;
}

void liberaInstancia()
{
    trava.reset();
}

} // namespace shell
