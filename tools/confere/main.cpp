// Examines a workshop's database and changes nothing in it: tarvelo-confere [--tudo] [ARQUIVO|PASTA]
#include "core/caminhos.h"
#include "platform/dao/database.h"
#include "platform/runtime/console.h"
#include "platform/runtime/runtime.h"
#include "tools/confere/arquivo.h"
#include "tools/confere/relatorio.h"

#include <QBuffer>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace
{

enum Saida { nadaAchado = 0, algoAchado = 1, naoLido = 2 };

constexpr std::chrono::seconds maiorEspera{10};

const QString uso = u"uso: tarvelo-confere [--tudo] [ARQUIVO|PASTA]\n"
                    u"\n"
                    u"Confere o banco de dados da oficina e diz o que está errado. Só lê: não muda nada no\n"
                    u"arquivo nem ao lado dele. Sem ARQUIVO nem PASTA confere o banco desta instalação. Com o\n"
                    u"programa aberto as gravações dele esperam até a conferência acabar.\n"
                    u"\n"
                    u"  --tudo   mostra todos os achados (sem isto, os 10 primeiros de cada conferência)\n"
                    u"  --ajuda  mostra este texto e o que cada conferência pergunta\n"
                    u"\n"
                    u"Um 'erro' é o que o programa sozinho nunca deixa: um dano no arquivo, a mão de outro\n"
                    u"programa, duas gravações ao mesmo tempo. Um 'aviso' é o que o uso normal pode deixar,\n"
                    u"como a ordem de um cliente excluído, e vale a pena olhar.\n"
                    u"\n"
                    u"Resultado ao sair: 0 nada foi encontrado, 1 há erros ou avisos, 2 o arquivo não pôde ser\n"
                    u"lido ou o comando não foi entendido.\n"_s;

struct Pedido {
    QString alvo;
    bool tudo = false;
    bool ajuda = false;
};

/// Nothing where the command line is no request.
std::optional<Pedido> lePedido(const QStringList &argumentos)
{
    Pedido pedido;
    for (const QString &argumento : argumentos) {
        if (argumento == u"--tudo") {
            pedido.tudo = true;
        } else if (argumento == u"--ajuda") {
            pedido.ajuda = true;
        } else if (argumento.startsWith(u'-') || argumento.isEmpty() || !pedido.alvo.isEmpty()) {
            return std::nullopt;
        } else {
            pedido.alvo = argumento;
        }
    }
    return pedido;
}

void mostraAjuda()
{
    runtime::print(uso + u"\nO que é conferido:\n"_s);
    for (const confere::Conferencia &conferencia : confere::Conferencias()) {
        runtime::print(u"  %1 (%2): %3\n"_s.arg(conferencia.nome,
                                                conferencia.nivel == confere::Nivel::Erro ? u"erro"_s : u"aviso"_s,
                                                conferencia.pergunta));
    }
}

QString arquivoDe(const Pedido &pedido)
{
    if (!pedido.alvo.isEmpty()) {
        return confere::ArquivoDe(pedido.alvo);
    }
    return confere::ArquivoDaInstalacao(QCoreApplication::applicationDirPath(), core::pastaDoUsuario());
}

/// In pieces of whole lines: a console takes no text of any length.
void mostra(QByteArray &texto)
{
    constexpr qsizetype pedaco = 16'000;
    QBuffer linhas(&texto);
    linhas.open(QIODevice::ReadOnly);
    while (!linhas.atEnd()) {
        QByteArray parte;
        while (parte.size() < pedaco && !linhas.atEnd()) {
            parte += linhas.readLine();
        }
        runtime::print(QString::fromUtf8(parte));
    }
}

/// The report is shown when the file is free again: who reads it a page at a time would hold the program's writes as
/// long.
Saida confereArquivo(const Pedido &pedido)
{
    dao::DBEngine::SetLockWait(maiorEspera);
    try {
        QByteArray texto;
        const confere::Relatorio relatorio = confere::ConfereEEscreve(
            arquivoDe(pedido), pedido.tudo, [&texto](const QString &parte) { texto += parte.toUtf8(); });
        mostra(texto);
        return relatorio.nadaAchado() ? nadaAchado : algoAchado;
    } catch (const runtime::RuntimeError &erro) {
        runtime::print(u"tarvelo-confere: "_s + confere::Explica(erro) + u'\n', stderr);
        return naoLido;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication programa(argc, argv);
    const std::optional<Pedido> pedido = lePedido(QCoreApplication::arguments().mid(1));
    if (!pedido) {
        runtime::print(uso, stderr);
        return naoLido;
    }
    if (pedido->ajuda) {
        mostraAjuda();
        return nadaAchado;
    }
    return confereArquivo(*pedido);
}
