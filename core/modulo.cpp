#include "core/modulo.h"

#include "core/caminhos.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace core
{

std::shared_ptr<dao::Database> DBDados;
std::shared_ptr<dao::Database> DBCEP;

QString NomeEmpresa = u"Tarvelo"_s;
QString ArquivoINI;
QString ArquivoDB;
QString ArquivoCEP;
QString ArquivoLogo;
QString ArquivoFundo;
bool AutoCompletar = false;

qint16 CodOperador = 0;
qint16 ModoChamada = 0;
qint32 CodigoConsulta = 0;

namespace App
{

namespace
{

QString &pasta()
{
    static QString caminhoDaPasta;
    return caminhoDaPasta;
}

} // namespace

QString version()
{
    return u"%1.%2.%3"_s.arg(Major).arg(Minor).arg(Revision);
}

QString Path()
{
    if (pasta().isEmpty()) {
        setPath(pastaDoPrograma(QCoreApplication::applicationDirPath(), pastaDoUsuario()));
    }
    return pasta();
}

QString shipped(const QString &name)
{
    return pastaDaInstalacao(QCoreApplication::applicationDirPath()) + u'/' + name;
}

void setPath(const QString &path)
{
    pasta() = QDir::toNativeSeparators(path);
    while (pasta().size() > 1 && pasta().endsWith(QDir::separator())) {
        pasta().chop(1);
    }
}

} // namespace App

QString captionOf(const QString &tail)
{
    return NomeEmpresa + tail;
}

} // namespace core
