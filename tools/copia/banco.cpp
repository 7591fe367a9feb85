#include "tools/copia/banco.h"

#include "core/caminhos.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/files/filelock.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/error.h"
#include "tools/copia/lugares.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QThread>

using namespace Qt::StringLiterals;

namespace copias
{

namespace
{

constexpr int semArquivo = 3024;
constexpr int emUso = 3051;
constexpr int discoCheio = 3183;
constexpr int semBanco = 3343;

/// Another workstation's write lasts a moment; a tool that copies the file may hold it for as long as the user waits.
constexpr std::chrono::seconds esperaPorOutros{30};

QString tamanhoDe(const QString &arquivo)
{
    const QLocale brasil(QLocale::Portuguese, QLocale::Brazil);
    return brasil.formattedDataSize(QFileInfo(arquivo).size(), 1, QLocale::DataSizeTraditionalFormat);
}

/// What a failure of the database means to who wanted the copy; `nada` says that nothing was changed.
[[noreturn]] void recusa(const runtime::RuntimeError &erro, const QString &onde, const QString &nada)
{
    confereQueEsta(onde, nada);
    switch (erro.number()) {
    case discoCheio:
        throw Erro(u"Não há espaço suficiente em:\n%1\n\n%2"_s.arg(mostrado(onde), nada));
    case emUso:
        throw Erro(u"Não foi possível gravar em:\n%1\nO disco está protegido, não há permissão ou outro programa está "
                   "usando o arquivo.\n\n%2"_s.arg(mostrado(onde), nada));
    default:
        throw Erro(erro.description() + u"\n\n"_s + nada);
    }
}

/// Data of the old system, and not damaged: the error's own words say how they are brought here.
bool ehDoSistemaAntigo(const runtime::RuntimeError &erro)
{
    return erro.description().contains(u"tarvelo-importa");
}

/// The database as the program would open it; what hinders that is told ahead of anything that is done.
void confereAntesDeCopiar(const QString &banco)
{
    const QString nada = u"A cópia não foi feita."_s;
    try {
        const bool soLeitura = QFileInfo::exists(banco) && !QFileInfo(banco).isWritable();
        if (dao::DBEngine::OpenDatabase(banco, soLeitura)->CheckIntegrity() == u"ok") {
            return;
        }
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != semBanco || ehDoSistemaAntigo(erro)) {
            throw Erro(erro.description() + u"\n\n"_s + nada);
        }
    }
    throw Erro(u"O banco de dados está danificado:\n%1\n\n%2 As cópias anteriores continuam onde estão: restaure a "
               "última."_s.arg(mostrado(banco), nada));
}

void confereCopia(const QString &copia)
{
    const QString nada = u"O banco de dados não foi mudado."_s;
    try {
        if (dao::DBEngine::OpenDatabase(copia, true)->CheckIntegrity() == u"ok") {
            return;
        }
    } catch (const runtime::RuntimeError &erro) { // whatever keeps it from being read whole: it can't be used
        if (ehDoSistemaAntigo(erro)) {
            throw Erro(erro.description() + u"\n\n"_s + nada);
        }
    }
    throw Erro(
        u"A cópia está danificada ou não pode ser lida:\n%1\n\n%2 Use outra cópia."_s.arg(mostrado(copia), nada));
}

/// Holds the program folder from then on, so that the program does not start in the middle.
void esperaOFim(files::FileLock &trava, std::chrono::milliseconds espera)
{
    constexpr unsigned long passo = 100;
    const QDeadlineTimer limite(espera);
    while (trava.take() == files::FileLock::Result::Busy) {
        if (limite.hasExpired()) {
            throw Erro(u"O Tarvelo ainda está aberto neste computador.\n\nO banco de dados não foi mudado. Feche o "
                       "programa e restaure de novo."_s);
        }
        QThread::msleep(passo);
    }
}

/// The contents of a file that is about to give way, in a file of its own.
void guarda(const QString &arquivo, const QString &nome)
{
    QFile lido(arquivo);
    if (!lido.open(QIODevice::ReadOnly) || !files::replaceFile(nome, lido.readAll())) {
        throw Erro(
            u"Não foi possível guardar o banco de dados atual em:\n%1\n\nNada foi mudado."_s.arg(mostrado(nome)));
    }
}

/// A database that can't be opened: nobody is at work on it, and its bytes are kept as they are. A journal would be
/// played into whatever takes the name.
void guardaBytes(const QString &banco, const QString &guardado)
{
    const QString diario = banco + journal;
    if (QFileInfo::exists(banco)) {
        guarda(banco, guardado);
    }
    if (QFileInfo::exists(diario)) {
        guarda(diario, guardado + journal);
        QFile::remove(diario);
    }
}

bool abre(const QString &banco)
{
    try {
        dao::DBEngine::OpenDatabase(banco);
        return true;
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != semBanco && erro.number() != semArquivo) {
            throw;
        }
        return false;
    }
}

void poeNoLugar(const QString &copia, const QString &banco, const QString &guardado)
{
    if (abre(banco)) {
        try {
            dao::DBEngine::RestoreDatabase(copia, banco, guardado);
            return;
        } catch (const runtime::RuntimeError &erro) {
            if (erro.number() != semBanco) { // opens, and is damaged further on
                throw;
            }
        }
    }
    guardaBytes(banco, guardado);
    dao::DBEngine::CopyDatabase(copia, banco);
}

QString feito(const QString &copia, const QString &guardado)
{
    const QString momento = momentoDaCopia(copia, copiaDoBanco());
    QString texto = u"O banco de dados foi restaurado da cópia%1:\n%2"_s.arg(
        momento.isEmpty() ? QString() : u" de "_s + momento, mostrado(copia));
    if (QFileInfo::exists(guardado)) {
        texto += u"\n\nO que havia antes foi guardado em:\n"_s + mostrado(guardado);
    }
    return texto + u"\n\nAbra o Tarvelo de novo."_s;
}

} // namespace

void guardaBanco(const QString &banco, const QString &guardado)
{
    try {
        dao::DBEngine::CopyDatabase(banco, guardado);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != semBanco && erro.number() != semArquivo) {
            throw;
        }
        guardaBytes(banco, guardado);
    }
}

QString bancoDaPasta(const QString &pasta)
{
    core::App::setPath(pasta);
    core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
    const QString dito = core::LeINI(u"Config"_s, u"FileDB"_s, false);
    return core::caminho(dito.isEmpty() ? core::App::Path() + u"\\DADOS\\DADOS.MDB"_s : dito);
}

QString copiaBanco(const QString &banco, const QStringList &destinos)
{
    dao::DBEngine::SetLockWait(esperaPorOutros);
    confereAntesDeCopiar(banco);
    const QString pasta = pastaDeDestino(destinos);
    limpaRestos(pasta, copiaDoBanco());
    const QString copia = copiaNova(pasta, copiaDoBanco());
    try {
        dao::DBEngine::CopyDatabase(banco, copia);
    } catch (const runtime::RuntimeError &erro) {
        recusa(erro, pasta, u"A cópia não foi feita. As cópias anteriores continuam onde estão."_s);
    }
    apagaAsAntigas(copia, copiaDoBanco());
    return u"A cópia do banco de dados foi feita e conferida (%1):\n%2"_s.arg(tamanhoDe(copia), mostrado(copia));
}

QString restauraBanco(const Restauracao &pedido)
{
    dao::DBEngine::SetLockWait(pedido.espera);
    const QString copia = copiaEscolhida(pedido.lugares, copiaDoBanco());
    if (QFileInfo(copia) == QFileInfo(pedido.banco)) {
        throw Erro(u"A cópia é o próprio banco de dados:\n%1\n\nNada foi mudado."_s.arg(mostrado(copia)));
    }
    confereCopia(copia);
    const QString doBanco = QFileInfo(pedido.banco).path();
    // Not made: on a drive that is not there just now nobody would look for the database.
    confereQueEsta(doBanco,
                   u"O banco de dados não foi mudado. Ligue o disco ou o computador em que ele está, ou abra o "
                   "Tarvelo uma vez."_s);
    files::FileLock trava(pedido.pasta + u"/tarvelo.lock"_s);
    esperaOFim(trava, pedido.espera);
    limpaRestos(doBanco, guardadosDe(pedido.banco));
    files::clearLeftovers(pedido.banco);
    const QString guardado = copiaNova(doBanco, guardadosDe(pedido.banco));
    try {
        poeNoLugar(copia, pedido.banco, guardado);
    } catch (const runtime::RuntimeError &erro) {
        recusa(erro, doBanco, u"O banco de dados não foi mudado."_s);
    }
    return feito(copia, guardado);
}

} // namespace copias
