// Makes a database of the program out of a genuine Jet file: tarvelo-importa [--substitui] [--tudo] ORIGEM.MDB
// DESTINO.MDB
#include "platform/files/files.h"
#include "platform/jet/stream.h"
#include "platform/runtime/console.h"
#include "platform/runtime/runtime.h"
#include "platform/runtime/statusline.h"
#include "tools/importa/explica.h"
#include "tools/importa/relatorio.h"

#include <QCoreApplication>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace
{

enum Saida { tudoVeio = 0, leiaRelatorio = 1, naoFeito = 2, malChamado = 3 };

const QString uso = u"uso: tarvelo-importa [--substitui] [--tudo] ORIGEM.MDB DESTINO.MDB\n"
                    u"\n"
                    u"Faz um banco de dados do Tarvelo, DESTINO.MDB, do banco Jet 4 (.MDB) do sistema antigo,\n"
                    u"ORIGEM.MDB, que só é lido. O destino é feito inteiro ou não é feito. No fim vem um relatório,\n"
                    u"na tela e ao lado do destino (DESTINO-importacao.txt): as linhas de cada tabela, o que ficou\n"
                    u"de fora ou mudou, os saldos, as somas e o que o tarvelo-confere achou. O arquivo dos CEPs se\n"
                    u"traz do mesmo modo.\n"
                    u"\n"
                    u"  --substitui  toma o lugar de um destino com dados, que é guardado ao lado\n"
                    u"  --tudo       traz também as tabelas e colunas que o Tarvelo não conhece\n"
                    u"  --ajuda      mostra este texto\n"
                    u"\n"
                    u"Resultado ao sair: 0 tudo veio, 1 os dados vieram e o relatório diz o que ficou de fora ou\n"
                    u"mudou, 2 nada foi feito, 3 o comando não foi entendido.\n"_s;

/// Nothing where the command line is no request.
std::optional<importa::Pedido> lePedido(const QStringList &argumentos)
{
    importa::Pedido pedido;
    QStringList arquivos;
    for (const QString &argumento : argumentos) {
        if (argumento == u"--substitui") {
            pedido.substitui = true;
        } else if (argumento == u"--tudo") {
            pedido.tudo = true;
        } else if (argumento.startsWith(u'-') || argumento.isEmpty()) {
            return std::nullopt;
        } else {
            arquivos.append(argumento);
        }
    }
    if (arquivos.size() != 2) {
        return std::nullopt;
    }
    pedido.origem = arquivos[0];
    pedido.destino = arquivos[1];
    return pedido;
}

/// How far the work is, and how fast.
class Mostrador
{
public:
    Mostrador() { relogio_.start(); }

    bool mostra(const importa::Passo &passo)
    {
        linhas_ = std::max(linhas_, passo.linhas);
        linha_.show(textoDe(passo));
        return !runtime::interrupted();
    }

    void apaga() { linha_.clear(); }

    /// "12.345 linhas em 1,2 s (10.288 linhas por segundo)"
    QString soma() const
    {
        const QString segundos = runtime::Format(static_cast<double>(relogio_.elapsed()) / mil, u"0.0");
        return u"%1 em %2 s (%3)"_s.arg(importa::Quantos(linhas_, u"linha", u"linhas"), segundos, rapidez());
    }

private:
    static constexpr double mil = 1000;

    QString rapidez() const
    {
        const double segundos = std::max<double>(1, static_cast<double>(relogio_.elapsed())) / mil;
        return importa::Quantos(qRound64(static_cast<double>(linhas_) / segundos), u"linha por segundo",
                                u"linhas por segundo");
    }

    QString textoDe(const importa::Passo &passo) const
    {
        if (passo.fase == importa::Passo::Fase::Conferencia) {
            return u"Conferindo o que foi gravado"_s;
        }
        const qint64 porcento = passo.total > 0 ? linhas_ * 100 / passo.total : 0;
        return u"%1 % de %2, %3: %4"_s.arg(porcento).arg(importa::Quantos(passo.total, u"linha", u"linhas"), rapidez(),
                                                         passo.tabela);
    }

    QElapsedTimer relogio_;
    runtime::StatusLine linha_;
    qint64 linhas_ = 0;
};

Saida mostra(const importa::Relatorio &relatorio, const QString &soma)
{
    const QString arquivo = importa::ArquivoDoRelatorio(relatorio.destino);
    const bool gravado = importa::GravaRelatorio(relatorio);
    runtime::print(importa::Texto(relatorio, importa::Achados::OsPrimeiros) + u'\n' + soma + u".\n"_s);
    if (!gravado) {
        runtime::print(
            u"tarvelo-importa: O banco foi feito, mas não foi possível gravar o relatório:\n%1\n"_s.arg(arquivo),
            stderr);
        return leiaRelatorio;
    }
    runtime::print(u"Este relatório está em:\n%1\n"_s.arg(arquivo));
    return relatorio.resultado.tudoVeio() ? tudoVeio : leiaRelatorio;
}

Saida importaArquivo(const importa::Pedido &pedido)
{
    runtime::noteInterruption();
    Mostrador mostrador;
    try {
        auto resultado = importa::Importa(pedido, [&](const importa::Passo &passo) { return mostrador.mostra(passo); });
        const QString soma = mostrador.soma();
        const auto relatorio = importa::RelatorioDe(pedido, std::move(resultado));
        mostrador.apaga();
        return mostra(relatorio, soma);
    } catch (const importa::Erro &erro) {
        mostrador.apaga();
        // Ctrl+C ends the process that reads the file, too: that is no damage of the file.
        const importa::Erro &causa = runtime::interrupted() ? importa::Erro(importa::Falha::Interrompida) : erro;
        runtime::print(u"tarvelo-importa: "_s + importa::Explica(causa, pedido) + u'\n', stderr);
        return naoFeito;
    }
}

} // namespace

int main(int argc, char **argv)
{
    files::keepToGroup();
    const QCoreApplication programa(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments().mid(1);
    // The process that reads the file, as a damaged one may bring its reader down.
    if (argumentos.size() == 2 && argumentos[0] == u"--le") {
        return jet::serve(argumentos[1]);
    }
    if (argumentos == QStringList{u"--ajuda"_s}) {
        runtime::print(uso);
        return tudoVeio;
    }
    const std::optional<importa::Pedido> pedido = lePedido(argumentos);
    if (!pedido) {
        runtime::print(uso, stderr);
        return malChamado;
    }
    return importaArquivo(*pedido);
}
