#include "tools/importa/destino.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/files/files.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/error.h"
#include "tools/confere/arquivo.h"
#include "tools/copia/banco.h"
#include "tools/copia/lugares.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

constexpr int semArquivo = 3024;
constexpr int emUso = 3051;

/// Another workstation's write lasts a moment.
constexpr std::chrono::seconds esperaPorOutros{2};

bool mesmoArquivo(const QString &um, const QString &outro)
{
    const QFileInfo este(um);
    const QFileInfo aquele(outro);
    return este.exists() && aquele.exists()
               ? este == aquele
               : QDir::cleanPath(este.absoluteFilePath()) == QDir::cleanPath(aquele.absoluteFilePath());
}

/// The database that the program of a folder works on, without a change of this program's own settings.
QString bancoDe(const QString &pasta)
{
    QString ajustes = core::ArquivoINI;
    QString banco = confere::ArquivoDe(pasta);
    core::ArquivoINI = std::move(ajustes);
    return banco;
}

/// Folders in which the program may be at work on a file: its own, the one above it, and those of the installation.
QStringList pastasDoPrograma(const QString &arquivo)
{
    const QDir doArquivo = QFileInfo(arquivo).absoluteDir();
    QStringList pastas{doArquivo.path(), QDir::cleanPath(doArquivo.filePath(u".."_s)),
                       QCoreApplication::applicationDirPath(), core::pastaDoUsuario()};
    pastas.removeDuplicates();
    return pastas;
}

bool temLinhas(const QString &arquivo)
{
    const auto banco = dao::DBEngine::OpenDatabase(arquivo, true);
    const auto tabelas = banco->TableDefs();
    return std::any_of(tabelas.begin(), tabelas.end(), [&banco](const dao::TableDef &tabela) {
        return !banco->OpenRecordset(u'[' + tabela.name() + u']').Eof();
    });
}

/// Whether somebody is writing: what he has not confirmed yet would go into a file without a name. A statement that
/// finds no row takes the lock for writing like any other. What is no database of ours nobody of ours writes.
bool ehEscrito(const QString &arquivo)
{
    try {
        const auto banco = dao::DBEngine::OpenDatabase(arquivo);
        const auto tabelas = banco->TableDefs();
        if (!tabelas.empty()) {
            banco->Execute(u"DELETE * FROM ["_s + tabelas.front().name() + u"] WHERE 1 = 0"_s);
        }
        return false;
    } catch (const runtime::RuntimeError &erro) {
        return erro.number() == emUso;
    }
}

} // namespace

Destino::Destino(const Pedido &pedido) : pedido_(pedido)
{
    dao::DBEngine::SetLockWait(esperaPorOutros);
    for (const QString &pasta : pastasDoPrograma(pedido.destino)) {
        travaPrograma(pasta);
    }
    confere();
    files::clearLeftovers(pedido.destino);
}

/// Only where the program has run: elsewhere the lock's file would be a riddle.
void Destino::travaPrograma(const QString &pasta)
{
    const QString trava = pasta + u"/tarvelo.lock"_s;
    if (!QFileInfo::exists(trava) || !mesmoArquivo(bancoDe(pasta), pedido_.destino)) {
        return;
    }
    auto &tomada = travas_.emplace_back(std::make_unique<files::FileLock>(trava));
    if (tomada->take() == files::FileLock::Result::Busy) {
        throw Erro(Falha::DestinoEmUso);
    }
}

void Destino::confere() const
{
    const QFileInfo destino(pedido_.destino);
    if (mesmoArquivo(pedido_.origem, pedido_.destino)) {
        throw Erro(Falha::MesmoArquivo);
    }
    if (destino.exists() && !files::isOrdinary(pedido_.destino)) {
        throw Erro(Falha::DestinoNaoEArquivo);
    }
    if (!destino.absoluteDir().exists()) {
        throw Erro(Falha::DestinoSemPasta);
    }
    if (destino.exists() && (!destino.isReadable() || !destino.isWritable())) {
        throw Erro(Falha::DestinoSemPermissao);
    }
    if (!pedido_.substitui && temDados()) {
        throw Erro(Falha::DestinoComDados);
    }
    if (destino.exists() && ehEscrito(pedido_.destino)) {
        throw Erro(Falha::DestinoEmUso);
    }
}

/// Whatever can't be read as a database of the program may be somebody's work of years.
bool Destino::temDados() const
{
    if (!QFileInfo::exists(pedido_.destino) || QFileInfo(pedido_.destino).size() == 0) {
        return false;
    }
    try {
        return temLinhas(pedido_.destino);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() == emUso) {
            throw Erro(Falha::DestinoEmUso);
        }
        return erro.number() != semArquivo;
    }
}

QString Destino::daLugar()
{
    confere();
    const bool comDados = temDados();
    if (!comDados && !QFileInfo::exists(pedido_.destino + copias::journal)) {
        return {};
    }
    const QString pasta = QFileInfo(pedido_.destino).absolutePath();
    copias::limpaRestos(pasta, copias::guardadosDe(pedido_.destino));
    const QString guardado = copias::copiaNova(pasta, copias::guardadosDe(pedido_.destino));
    try {
        copias::guardaBanco(pedido_.destino, guardado);
    } catch (const copias::Erro &erro) {
        throw Erro(Falha::Outra, {.detalhe = erro.texto()});
    } catch (const runtime::RuntimeError &erro) {
        throw erro.number() == emUso ? Erro(Falha::DestinoEmUso) : Erro(Falha::DiscoCheio);
    }
    return QFileInfo::exists(guardado) ? guardado : QString();
}

} // namespace importa
