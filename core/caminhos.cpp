#include "core/caminhos.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr auto pastaDados = u"DADOS";

/// The name in the folder `pasta`, "" or with a slash at its end, as it stands on disk; `nome` itself where there is
/// none.
QString nomeNoDisco(const QString &pasta, const QString &nome)
{
    const QDir dir(pasta.isEmpty() ? u"."_s : pasta);
    if (nome.isEmpty() || dir.exists(nome)) {
        return nome;
    }
    const auto todos = QDir::AllEntries | QDir::Hidden | QDir::System;
    for (const QString &existente : dir.entryList(todos, QDir::Name)) {
        if (existente.compare(nome, Qt::CaseInsensitive) == 0) {
            return existente;
        }
    }
    return nome;
}

/// Access rights alone don't tell (network drives, read-only mounts, administrators): trying does.
bool gravavel(const QString &pasta)
{
    QTemporaryFile prova(pasta + u"/gravavel-XXXXXX"_s);
    return prova.open();
}

void copiaArquivos(const QString &origem, const QStringList &filtros, const QString &destino)
{
    for (const QFileInfo &arquivo : QDir(origem).entryInfoList(filtros, QDir::Files)) {
        // An existing file is the user's own: `copy` refuses and leaves it.
        QFile::copy(arquivo.filePath(), destino + u'/' + arquivo.fileName());
    }
}

} // namespace

QString caminho(const QString &texto)
{
    QString limpo = texto;
    limpo.replace(u'\\', u'/');
#ifdef Q_OS_WIN
    return limpo; // the file system does not tell case apart
#else
    if (QFileInfo::exists(limpo)) {
        return limpo;
    }
    QString pasta;
    const QStringList partes = limpo.split(u'/');
    for (qsizetype i = 0; i < partes.size(); ++i) {
        pasta += i == 0 ? QString() : u"/"_s;
        pasta += nomeNoDisco(pasta, partes[i]);
    }
    return pasta;
#endif
}

void preenchePasta(const QString &instalacao, const QString &destino)
{
    QDir().mkpath(destino + u'/' + pastaDados);
    copiaArquivos(instalacao, {u"*.BAT"_s, u"CEP.MDB"_s}, destino);
    copiaArquivos(caminho(instalacao + u'/' + pastaDados), {u"*.BMP"_s}, destino + u'/' + pastaDados);
}

QString pastaDoPrograma(const QString &instalacao, const QString &dadosDoUsuario)
{
    if (gravavel(instalacao)) {
        return instalacao;
    }
    if (!QFileInfo::exists(dadosDoUsuario + u'/' + pastaDados)) {
        preenchePasta(instalacao, dadosDoUsuario);
    }
    return dadosDoUsuario;
}

} // namespace core
