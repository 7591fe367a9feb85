#include "tools/amostra/acertos.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "finance/compensacao.h"
#include "finance/pagamentoconta.h"
#include "finance/pendencia.h"
#include "finance/recebimento.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/catalogo.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr int emDia = 80; ///< of a hundred receivables, those paid in the week that they fall due
constexpr float saldoInicialDoBanco = 20'000;

/// What a ledger is kept between at the end of a week, and what it is brought to when it is not.
struct Faixa {
    float menor;
    float maior;
    float alvo;
};
constexpr Faixa faixaDoCaixa{0, 3'000, 1'000};

/// Money for about a month, by the size of the workshop.
Faixa faixaDoBanco(int ordensPorMes)
{
    const float alvo = saldoInicialDoBanco + 400 * static_cast<float>(ordensPorMes);
    return {1'000, alvo * 3, alvo};
}

constexpr std::array bancosDaOficina{core::razaoBanco1, core::razaoBanco2};

QString vencidasAte()
{
    return u" WHERE Pago = False AND Vencimento <= "_s + core::DataSQL(runtime::Today(), 1) + u" ORDER BY Codigo"_s;
}

/// The codes first: what is done to a row may take it out of the set.
QStringList codigos(const QString &consulta)
{
    QStringList todos;
    for (auto linhas = core::DBDados->OpenRecordset(consulta); !linhas.Eof(); linhas.MoveNext()) {
        todos << runtime::CStr(linhas.value(u"Codigo"));
    }
    return todos;
}

QString comoNaLista(const runtime::Value &valor)
{
    return runtime::Format(valor, core::mascaraValor);
}

using core::Operacao;

// --- receivables

/// The order that a receivable's description ends in, as in "CARNÊ Nº 0012-03".
QString ordemDaDescricao(const QString &descricao)
{
    const qsizetype fim = descricao.lastIndexOf(u'-');
    qsizetype inicio = fim;
    while (inicio > 0 && descricao.at(inicio - 1).isDigit()) {
        --inicio;
    }
    return descricao.mid(inicio, fim - inicio);
}

/// A custom plan's credit sale stands in the customer's account and among the pending orders too.
void recebe(const dao::Recordset &conta, const core::Razao &livro)
{
    const QString descricao = runtime::CStr(conta.value(u"Descricao"));
    finance::Recebimento recebimento{.codigo = runtime::CStr(conta.value(u"Codigo")),
                                     .data = core::Hoje(),
                                     .descricao = descricao,
                                     .valor = comoNaLista(conta.value(u"Valor")),
                                     .livro = &livro,
                                     .codOs = ordemDaDescricao(descricao)};
    const bool pendente = descricao.startsWith(u"O.S. PENDENTE");
    const QString fiado = u"CodOs = "_s + recebimento.codOs;
    if (pendente) {
        recebimento.codCliente = core::LocalizaCampo(u"CodCliente"_s, u"Fiados"_s, fiado);
    }
    finance::Recebe(recebimento);
    if (pendente) {
        finance::AlternaPendencia(recebimento.codOs, core::LocalizaCampo(u"Codigo"_s, u"Fiados"_s, fiado));
    }
}

/// Their money came in with the receivable that each of them stands for.
void compensaCheques()
{
    for (const QString &codigo : codigos(u"SELECT * FROM Cheques"_s + vencidasAte())) {
        finance::AlternaCheque(codigo);
    }
}

/// An order closed by store credit is unpaid until now; one closed by a custom plan was marked when it was closed.
bool soNoFiado(const QString &codOs)
{
    return core::LocalizaCampo(u"Pago"_s, u"OrdemServico"_s, u"Codigo = "_s + codOs) == u"False";
}

/// What the customer owes falls by a row that is entered by hand.
void recebeFiado(const dao::Recordset &fiado)
{
    const QString codOs = runtime::CStr(fiado.value(u"CodOs"));
    const QString codCliente = runtime::CStr(fiado.value(u"CodCliente"));
    const QString valor = comoNaLista(fiado.value(u"Valor"));
    finance::AlternaPendencia(codOs, runtime::CStr(fiado.value(u"Codigo")));
    finance::LancaPendencia(codOs, valor);
    core::LancaNoRazao(core::razaoContaFiado,
                       {.dono = codCliente,
                        .descricao = u"PAGAMENTO O.S. "_s + runtime::Format(codOs, core::mascaraCodigo),
                        .valor = valor,
                        .operacao = Operacao::Saida});
    core::RecalculaRazao(core::razaoContaFiado, codCliente);
}

// --- bills and bank

void abreBancos()
{
    for (const core::Razao &banco : bancosDaOficina) {
        core::LancaNoRazao(banco, {.descricao = u"SALDO INICIAL"_s, .valor = saldoInicialDoBanco});
    }
}

/// In whole hundreds, upwards, as money is carried.
float emCentenas(float valor)
{
    return std::ceil(valor / 100) * 100;
}

/// What is too much in a ledger, negative for what is missing; 0 where it is well.
float sobra(const core::Razao &razao, const Faixa &faixa)
{
    const float saldo = core::UltimoSaldo(razao);
    if (saldo >= faixa.menor && saldo <= faixa.maior) {
        return 0;
    }
    return emCentenas(saldo - faixa.alvo);
}

void transfere(float valor, bool deposito)
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = deposito ? u"DEPÓSITO BANCO 01"_s : u"SAQUE BANCO 01"_s,
                                          .valor = valor,
                                          .operacao = deposito ? Operacao::Saida : Operacao::Entrada});
    core::LancaNoRazao(core::razaoBanco1, {.descricao = deposito ? u"DEPÓSITO EM DINHEIRO"_s : u"SAQUE EM DINHEIRO"_s,
                                           .valor = valor,
                                           .operacao = deposito ? Operacao::Entrada : Operacao::Saida});
}

void acertaCaixa()
{
    const float demais = sobra(core::razaoCaixa, faixaDoCaixa);
    if (demais != 0) {
        transfere(std::abs(demais), demais > 0);
    }
}

/// The owner takes out what the workshop earned, and puts in what it lacks.
void acertaBancos(const Faixa &faixa)
{
    for (const core::Razao &banco : bancosDaOficina) {
        const float demais = sobra(banco, faixa);
        if (demais != 0) {
            core::LancaNoRazao(banco, {.descricao = demais > 0 ? u"RETIRADA DO SÓCIO"_s : u"APORTE DO SÓCIO"_s,
                                       .valor = std::abs(demais),
                                       .operacao = demais > 0 ? Operacao::Saida : Operacao::Entrada});
        }
    }
}

float soma(dao::Recordset contas)
{
    float total = 0;
    for (; !contas.Eof(); contas.MoveNext()) {
        total += runtime::CSng(contas.value(u"Valor"));
    }
    return total;
}

/// Bills are paid from the cash box: what it lacks comes from the bank, and what the bank lacks from the owner.
void provisiona(float total)
{
    const float falta = total - core::UltimoSaldo(core::razaoCaixa);
    if (falta <= 0) {
        return;
    }
    const float saque = emCentenas(falta);
    const float aporte = emCentenas(saque - core::UltimoSaldo(core::razaoBanco1));
    if (aporte > 0) {
        core::LancaNoRazao(core::razaoBanco1, {.descricao = u"APORTE DO SÓCIO"_s, .valor = aporte});
    }
    transfere(saque, false);
}

void paga(const dao::Recordset &conta)
{
    finance::PagaConta({.codigo = runtime::CStr(conta.value(u"Codigo")),
                        .data = core::Hoje(),
                        .valor = comoNaLista(conta.value(u"Valor")),
                        .descricao = runtime::CStr(conta.value(u"Descricao"))});
}

void pagaDespesas()
{
    const QString vencidas = u"SELECT * FROM ContasPagar"_s + vencidasAte();
    provisiona(soma(core::DBDados->OpenRecordset(vencidas)));
    auto contas = core::DBDados->OpenRecordset(vencidas);
    for (; !contas.Eof(); contas.MoveNext()) {
        paga(contas);
    }
}

/// Rows entered by hand recalculate their ledger; those of a week do it once.
void recalculaLivros()
{
    core::RecalculaRazao(core::razaoCaixa);
    for (const core::Razao &banco : bancosDaOficina) {
        core::RecalculaRazao(banco);
    }
}

} // namespace

Acertos::Acertos(const Oficina &oficina, int ordens)
    : sorteio_(oficina.tamanho.semente, sobreAcertos), deDespesas_(oficina.tamanho.semente, sobreDespesas),
      ordensPorMes_(OrdensPorMes(ordens))
{
}

/// Cheques are deposited on their day; of the other debtors some let a week pass, and then another.
void Acertos::recebeContas()
{
    auto contas = core::DBDados->OpenRecordset(u"SELECT * FROM ContasReceber"_s + vencidasAte());
    for (; !contas.Eof(); contas.MoveNext()) {
        if (runtime::CStr(contas.value(u"Descricao")).startsWith(u"CHEQUE")) {
            recebe(contas, sorteio_.um(bancosDaOficina));
        } else if (sorteio_.chance(emDia)) {
            recebe(contas, core::razaoCaixa);
        }
    }
}

void Acertos::recebeFiados()
{
    auto fiados = core::DBDados->OpenRecordset(u"SELECT * FROM Fiados"_s + vencidasAte());
    for (; !fiados.Eof(); fiados.MoveNext()) {
        if (soNoFiado(runtime::CStr(fiados.value(u"CodOs"))) && sorteio_.chance(emDia)) {
            recebeFiado(fiados);
        }
    }
}

/// For the days to come.
void Acertos::lancaDespesas()
{
    if (!PrimeiraSemanaDoMes()) {
        return;
    }
    for (const DespesaMensal &despesa : despesas()) {
        const int inteira = despesa.valor + despesa.porOrdem * ordensPorMes_;
        const qint64 valor = qint64{inteira} * deDespesas_.entre(92, 108) / 100;
        const runtime::Date vencimento = runtime::DateAdd(u"d", deDespesas_.entre(3, 20), runtime::Today());
        core::IncluiConta(core::TabelaContas::Pagar, {.descricao = despesa.descricao.toString(),
                                                      .valor = Reais(valor),
                                                      .vencimento = runtime::Format(vencimento, core::mascaraData)});
    }
}

void Acertos::daSemana()
{
    if (semana_++ == 0) {
        abreBancos();
    }
    lancaDespesas();
    recebeContas();
    compensaCheques();
    recebeFiados();
    pagaDespesas();
    acertaCaixa();
    acertaBancos(faixaDoBanco(ordensPorMes_));
    recalculaLivros();
}

} // namespace amostra
