// Fills a program folder with a sample workshop: amostra PASTA [clientes] [semente]
#include "core/modulo.h"
#include "platform/files/files.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/amostra.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

void diz(const QString &linha)
{
    std::printf("%s\n", qUtf8Printable(linha));
    std::fflush(stdout);
}

int usoErrado()
{
    std::fprintf(stderr,
                 "Uso: amostra PASTA [clientes] [semente]\n"
                 "  clientes: de %d a %d (normal %d); semente: número inteiro (normal 1)\n",
                 amostra::menosClientes, amostra::maisClientes, amostra::Tamanho().clientes);
    return 2;
}

/// A line at every tenth of a stage.
void progresso(const QString &etapa, int feitos, int total)
{
    const int passo = std::max(1, total / 10);
    if (feitos % passo == 0 || feitos == total) {
        diz(u"%1: %2 de %3"_s.arg(etapa).arg(feitos).arg(total));
    }
}

void mostra(const amostra::Resumo &resumo, const QString &arquivo)
{
    diz(u"%1: %2 clientes, %3 veículos, %4 fornecedores, %5 peças, %6 serviços, %7 ordens (%8 abertas), "
        "%9 orçamentos, %10 notas de entrada, %11 registros no livro de origem"_s.arg(arquivo)
            .arg(resumo.clientes)
            .arg(resumo.veiculos)
            .arg(resumo.fornecedores)
            .arg(resumo.pecas)
            .arg(resumo.servicos)
            .arg(resumo.ordens)
            .arg(resumo.ordensAbertas)
            .arg(resumo.orcamentos)
            .arg(resumo.notas)
            .arg(resumo.origens));
}

void mostraOperadores()
{
    for (const amostra::OperadorDaAmostra &operador : amostra::Operadores()) {
        diz(u"Operador %1 %2, senha %3%4"_s.arg(operador.codigo, operador.nome, operador.senha,
                                                operador.admin ? u" (administrador)"_s : QString()));
    }
}

int enche(const QString &pasta, const amostra::Tamanho &tamanho)
{
    QElapsedTimer relogio;
    relogio.start();
    amostra::ConfereTamanho(tamanho);
    amostra::AbrePasta(pasta);
    const amostra::Resumo resumo = amostra::Preenche(tamanho, progresso);
    mostra(resumo, core::DBDados->path());
    if (resumo.operadores > 0) {
        mostraOperadores();
    }
    core::DBDados->Close();
    diz(u"Pronto em %1 s"_s.arg(static_cast<double>(relogio.elapsed()) / 1000, 0, 'f', 1));
    return 0;
}

/// False for an argument that is no number.
bool le(const QStringList &argumentos, amostra::Tamanho &tamanho)
{
    bool certo = true;
    if (argumentos.size() > 2) {
        tamanho.clientes = argumentos[2].toInt(&certo);
    }
    if (certo && argumentos.size() > 3) {
        tamanho.semente = argumentos[3].toULongLong(&certo);
    }
    return certo;
}

} // namespace

int main(int argc, char **argv)
{
    files::keepToGroup();
    const QCoreApplication aplicacao(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    amostra::Tamanho tamanho;
    if (argumentos.size() < 2 || argumentos.size() > 4 || !le(argumentos, tamanho)) {
        return usoErrado();
    }
    try {
        return enche(argumentos[1], tamanho);
    } catch (const runtime::RuntimeError &erro) {
        std::fprintf(stderr, "%s\n", erro.what());
        return 1;
    }
}
