#include "tools/confere/arquivo.h"

#include "core/caminhos.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/runtime/error.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

/// By the settings, as the program asks them at its start.
QString bancoDaPasta(const QString &pasta)
{
    core::ArquivoINI = core::caminho(pasta + u"/config.ini"_s);
    const QString dito = core::LeINI(u"Config"_s, u"FileDB"_s, false);
    return core::caminho(dito.isEmpty() ? pasta + u"/DADOS/DADOS.MDB"_s : dito);
}

} // namespace

QString ArquivoDe(const QString &argumento)
{
    if (!QFileInfo(argumento).isDir()) {
        return argumento;
    }
    const QString pasta = QDir(argumento).absolutePath();
    const QString naPasta = core::caminho(pasta + u"/DADOS.MDB"_s);
    return QFileInfo::exists(naPasta) ? naPasta : bancoDaPasta(pasta);
}

QString ArquivoDaInstalacao(const QString &executaveis, const QString &dadosDoUsuario)
{
    const bool pacote = core::pastaDaInstalacao(executaveis) != executaveis;
    QString aoLado = pacote ? QString() : bancoDaPasta(executaveis);
    if (!aoLado.isEmpty() && (QFileInfo::exists(aoLado) || !QFileInfo(dadosDoUsuario).isDir())) {
        return aoLado;
    }
    return bancoDaPasta(dadosDoUsuario);
}

QString Explica(const runtime::RuntimeError &erro)
{
    QString conselho;
    switch (erro.number()) {
    case 3024:
        conselho = u"Confira o nome, ou diga a pasta do programa."_s;
        break;
    case 3051:
        conselho = u"Feche os programas que copiam ou gravam este arquivo, confira se o seu usuário pode lê-lo, e "
                   "tente de novo."_s;
        break;
    case 3343:
        if (erro.description().contains(u"tarvelo-importa")) { // it says itself what to do with old data
            break;
        }
        conselho = u"Se este é o arquivo em que a oficina trabalha, restaure a última cópia de segurança."_s;
        break;
    case 3428:
        conselho = u"Abra o Tarvelo uma vez, que ele a desfaz, e confira de novo."_s;
        break;
    default:
        break;
    }
    return conselho.isEmpty() ? erro.description() : erro.description() + u'\n' + conselho;
}

} // namespace confere
