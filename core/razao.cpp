#include "core/razao.h"

#include "core/andamento.h"
#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

namespace core
{

using namespace Qt::StringLiterals;
using runtime::Value;

namespace
{

/// Its rows, or those of one owner.
QString linhasDe(const Razao &razao, const QString &dono)
{
    const QString todas = u" FROM "_s + razao.tabela;
    return razao.dono.isEmpty() ? todas : todas + u" WHERE "_s + razao.dono + u" = "_s + dono;
}

QString condicaoDe(const Razao &razao, const QString &dono)
{
    return razao.dono.isEmpty() ? u"1=1"_s : razao.dono + u" = "_s + dono;
}

QString buscado(const Razao &razao, const QString &dono)
{
    return LocalizaCampo(razao.saldo.toString(), razao.tabela.toString(),
                         condicaoDe(razao, dono) + u" ORDER BY Codigo DESC"_s);
}

double numero(const QString &saldo, Precisao precisao)
{
    return precisao == Precisao::Single ? double{runtime::CSng(saldo)} : runtime::CDbl(saldo);
}

double saldoAnterior(const Razao &razao, const QString &dono, const Calculo &calculo)
{
    switch (calculo.anterior) {
    case SaldoAnterior::UltimaLinha:
        return UltimoSaldo(razao, dono);
    case SaldoAnterior::Busca:
        return numero(buscado(razao, dono), calculo.precisao);
    case SaldoAnterior::BuscaOuZero: {
        const QString saldo = buscado(razao, dono);
        return saldo.isEmpty() ? 0 : numero(saldo, calculo.precisao);
    }
    case SaldoAnterior::Nenhum:
        break;
    }
    return 0;
}

/// The words of a posting come from elsewhere and have others put in front: too long ones must not lose the money.
Value queCabe(const dao::Recordset &linha, const QString &descricao)
{
    return ValorOuNulo(descricao.left(linha.field(linha.fieldPlace(u"Descricao")).size));
}

/// What a movement comes to, as the row holds it: a text has become a number by being written.
float gravado(dao::Recordset &linha, QStringView coluna)
{
    return runtime::CSng(linha[coluna].Value());
}

/// The sides of the row, and the balance behind them.
Value escreveLados(dao::Recordset &linha, const Lancamento &lancamento, double anterior, Precisao precisao)
{
    const bool saida = lancamento.operacao == Operacao::Saida;
    const QStringView coluna = saida ? u"Saida" : u"Entrada";
    linha[coluna] = lancamento.valor;
    if (lancamento.operacao == Operacao::Conferencia) {
        linha[u"Saida"] = lancamento.valor;
        return lancamento.valor;
    }
    const double valor =
        precisao == Precisao::Double ? runtime::CDbl(lancamento.valor) : double{gravado(linha, coluna)};
    return runtime::CSng(anterior + (saida ? -valor : valor));
}

/// A movement's effect on the balance. A row with neither side has none to give: the conversion of Null fails.
float movimento(const dao::Recordset &linha, int entrada, int saida)
{
    const Value entrou = linha.value(entrada);
    return runtime::IsNull(entrou) ? -runtime::CSng(linha.value(saida)) : runtime::CSng(entrou);
}

int quantasLinhas(const Razao &razao, const QString &dono)
{
    const QString contadas = LocalizaCampo(u"count(Codigo)"_s, razao.tabela.toString(), condicaoDe(razao, dono));
    return static_cast<int>(runtime::Val(contadas));
}

void recalcula(dao::Recordset &linhas, QStringView colunaSaldo, Andamento &andamento)
{
    const int entrada = linhas.fieldPlace(u"Entrada");
    const int saida = linhas.fieldPlace(u"Saida");
    const int coluna = linhas.fieldPlace(colunaSaldo);
    float saldo = 0;
    for (; !linhas.Eof(); linhas.MoveNext()) {
        saldo = SaldoDepois(saldo, movimento(linhas, entrada, saida));
        linhas.Edit();
        linhas[coluna] = saldo;
        linhas.Update();
        andamento.avanca();
    }
}

} // namespace

void LancaNoRazao(const Razao &razao, const Lancamento &lancamento, const Calculo &calculo)
{
    const double saldo = saldoAnterior(razao, lancamento.dono, calculo);
    AcrescentaLinha(razao.tabela.toString(), [&](dao::Recordset &linha) {
        if (!razao.dono.isEmpty()) {
            linha[razao.dono] = lancamento.dono;
        }
        linha[u"Data"] = runtime::IsEmpty(lancamento.data) ? Value(Hoje()) : lancamento.data;
        linha[u"Descricao"] = queCabe(linha, lancamento.descricao);
        linha[razao.saldo] = escreveLados(linha, lancamento, saldo, calculo.precisao);
        if (!runtime::IsEmpty(lancamento.codOs)) {
            linha[u"CodOs"] = lancamento.codOs;
        }
    });
}

float UltimoSaldo(const Razao &razao, const QString &dono)
{
    return UltimoSaldo(u"SELECT "_s + razao.saldo + linhasDe(razao, dono) + u" ORDER BY Codigo"_s,
                       razao.saldo.toString());
}

float UltimoSaldo(const QString &consulta, const QString &coluna)
{
    dao::Recordset linhas = DBDados->OpenRecordset(consulta);
    if (linhas.Eof()) {
        return 0;
    }
    linhas.MoveLast();
    return runtime::CSng(linhas.value(coluna));
}

float SaldoDepois(float saldo, float movimento)
{
    // The sum of two 32-bit floats is exact enough in 64 bits: rounding it once is the 32-bit sum.
    return runtime::CSng(double{saldo} + double{movimento});
}

void AbreEstoque(const Value &codPeca, const QString &descricao, const Value &quantidade)
{
    LancaNoRazao(razaoEstoque, {.dono = runtime::CStr(codPeca), .descricao = descricao, .valor = quantidade},
                 {SaldoAnterior::Nenhum});
}

void RecalculaRazao(const Razao &razao, const QString &dono)
{
    const dao::Unit lote;
    // Reading the texts of every row as well takes longer than the arithmetic.
    dao::Recordset linhas = DBDados->OpenRecordset(u"SELECT Entrada, Saida, "_s + razao.saldo + linhasDe(razao, dono) +
                                                   u" ORDER BY Data, Codigo"_s);
    if (!linhas.Eof()) {
        Andamento andamento(u"Recalculando os saldos"_s, [&] { return quantasLinhas(razao, dono); });
        recalcula(linhas, razao.saldo, andamento);
    }
}

} // namespace core
