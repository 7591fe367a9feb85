#include "finance/balanco.h"

#include "core/andamento.h"
#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;
using runtime::Value;

namespace
{

constexpr auto mascaraContagem = u"00";
constexpr std::size_t contagem = 0;
constexpr std::size_t valor = 1;

/// The statements of a line in front of the period, in the order of its figures.
using ConsultasDaLinha = std::array<QStringView, figuras>;

constexpr std::array consultas{
    ConsultasDaLinha{u"SELECT count(Codigo) FROM OrdemServico WHERE DataIn BETWEEN ",
                     u"SELECT Sum(Valor) FROM OrdemServico WHERE Datain BETWEEN ",
                     u"SELECT Sum(Valor) FROM OrdemServico WHERE Pago = True AND Datain BETWEEN ",
                     u"SELECT Sum(Valor) FROM OrdemServico WHERE Pago = False AND Datain BETWEEN "},
    ConsultasDaLinha{u"SELECT count(Codigo) FROM NotasEntradas WHERE Data BETWEEN ",
                     u"SELECT Sum(Valor) FROM NotasEntradas WHERE Data BETWEEN ",
                     u"SELECT Sum(Valor) FROM NotasEntradas WHERE Pago = True AND Data BETWEEN ",
                     u"SELECT Sum(Valor) FROM NotasEntradas WHERE Pago = False AND Data BETWEEN "},
    ConsultasDaLinha{u"SELECT count(Codigo) FROM ContasReceber WHERE Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasReceber WHERE Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasReceber WHERE Pago = True AND Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasReceber WHERE Pago = False AND Vencimento BETWEEN "},
    ConsultasDaLinha{u"SELECT count(Codigo) FROM ContasPagar WHERE Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasPagar WHERE Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasPagar WHERE Pago = True AND Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM ContasPagar WHERE Pago = False AND Vencimento BETWEEN "},
    ConsultasDaLinha{u"SELECT count(Codigo) FROM Cheques WHERE CodOS = 0 AND Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM Cheques WHERE CodOS = 0 AND Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM Cheques WHERE CodOS = 0 AND  Pago = True AND Vencimento BETWEEN ",
                     u"SELECT Sum(Valor) FROM Cheques WHERE CodOS = 0 AND  Pago = False AND Vencimento BETWEEN "},
};

/// The sign of each line's money in the total.
constexpr std::array<double, linhasDoBalanco> sinais{1, -1, 1, -1, 1, 1};

QStringView mascaraDe(std::size_t figura)
{
    return figura == contagem ? mascaraContagem : mascaraValor;
}

LinhaDoBalanco linhaVazia()
{
    LinhaDoBalanco linha;
    for (std::size_t figura = 0; figura < figuras; ++figura) {
        linha[figura] = runtime::Format(0, mascaraDe(figura));
    }
    return linha;
}

LinhaDoBalanco leLinha(const ConsultasDaLinha &daLinha, const QString &periodo)
{
    LinhaDoBalanco linha = linhaVazia();
    for (std::size_t figura = 0; figura < figuras; ++figura) {
        const dao::Recordset resultado = DBDados->OpenRecordset(daLinha[figura] + periodo);
        const Value lido = resultado.Eof() ? Value(runtime::Null{}) : resultado.value(0);
        if (!runtime::IsNull(lido)) {
            linha[figura] = runtime::Format(lido, mascaraDe(figura));
        }
    }
    return linha;
}

/// The balance of a customer's last row. The figures are kept as texts, each addition down to the cent, so that the
/// last bits of many balances never add up to one.
void soma(LinhaDoBalanco &linha, const Value &saldo)
{
    if (runtime::IsNull(saldo) || runtime::CDbl(saldo) == 0) {
        return;
    }
    linha[contagem] = runtime::Format(runtime::CDbl(linha[contagem]) + 1, mascaraContagem);
    linha[valor] = runtime::Format(runtime::CDbl(linha[valor]) + runtime::CDbl(saldo), mascaraValor);
}

int quantasLinhas()
{
    const QString contadas = LocalizaCampo(u"count(Codigo)"_s, u"ContaFiado"_s, u"1=1"_s);
    return contadas.isEmpty() ? 0 : runtime::CLng(contadas);
}

/// What customers owe: the balance behind each one's account.
LinhaDoBalanco lePendencias()
{
    LinhaDoBalanco linha = linhaVazia();
    Andamento andamento(u"Somando as pendências dos clientes"_s, quantasLinhas);
    dao::Recordset contas = DBDados->OpenRecordset(u"SELECT * FROM ContaFiado ORDER BY CodCliente, Codigo"_s);
    if (contas.Eof()) {
        return linha;
    }
    QString cliente = NuloParaVazio(contas.value(u"CodCliente"));
    Value saldo;
    for (; !contas.Eof(); contas.MoveNext(), andamento.avanca()) {
        const QString daLinha = NuloParaVazio(contas.value(u"CodCliente"));
        if (daLinha != cliente) {
            soma(linha, saldo);
            cliente = daLinha;
        }
        saldo = contas.value(u"Saldo");
    }
    soma(linha, saldo);
    return linha;
}

double figura(const QString &texto)
{
    return texto.isEmpty() ? 0 : runtime::CDbl(texto);
}

double total(const std::array<LinhaContada, linhasDoBalanco> &linhas, std::size_t qual)
{
    double soma = 0;
    for (std::size_t i = 0; i < linhas.size(); ++i) {
        if (linhas[i].conta) {
            const double lida = figura(linhas[i].figuras[qual]);
            soma += qual == contagem ? lida : sinais[i] * lida;
        }
    }
    return soma;
}

} // namespace

Balanco LeBalanco(const QString &periodo)
{
    Balanco balanco;
    for (std::size_t i = 0; i < consultas.size(); ++i) {
        balanco[i] = leLinha(consultas[i], periodo);
    }
    balanco.back() = lePendencias();
    return balanco;
}

LinhaDoBalanco TotalDoBalanco(const std::array<LinhaContada, linhasDoBalanco> &linhas)
{
    LinhaDoBalanco resultado;
    for (std::size_t qual = 0; qual < figuras; ++qual) {
        resultado[qual] = runtime::Format(total(linhas, qual), mascaraDe(qual));
    }
    return resultado;
}

} // namespace finance
