#include "workorders/fechamento.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"

#include <array>
#include <vector>

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

QString quatroDigitos(const Value &codigo)
{
    return Format(codigo, mascaraCodigo);
}

// --- the rows of the finance tables

/// What an account holds of a description.
constexpr qsizetype maiorDescricao = 100;

/// A description around the customer's name. What stands behind the name tells the order and the instalment, by which
/// the row is found again: of a long name less is written.
QString comNome(const QString &inicio, const QString &nome, const QString &fim)
{
    return inicio + Left(nome, maiorDescricao - inicio.size() - fim.size()) + fim;
}

/// The work order is told by the description alone.
void lancaCaixa(const QString &descricao, const QString &valor, Operacao operacao = Operacao::Entrada)
{
    LancaNoRazao(razaoCaixa, {.descricao = descricao, .valor = valor, .operacao = operacao});
}

void lancaContaReceber(const QString &descricao, const QString &valor, const QString &vencimento)
{
    IncluiConta(TabelaContas::Receber, {.descricao = descricao, .valor = valor, .vencimento = vencimento});
}

using DadosCheque = Fechamento::DadosCheque;

qint32 lancaCheque(const QString &codigo, const DadosCheque &cheque, const ParcelaOS &parcela)
{
    return IncluiCheque({.codOs = codigo,
                         .banco = cheque.banco,
                         .conta = cheque.conta,
                         .numero = cheque.numero,
                         .valor = parcela.valor,
                         .vencimento = parcela.vencimento});
}

/// A pending order, and the charge to the customer's account.
void lancaFiado(const Fechamento &f, const QString &valor, const QString &vencimento, const QString &descricao)
{
    IncluiFiado({.codOs = f.codigo, .codCliente = f.codCliente, .valor = valor, .vencimento = vencimento});
    LancaNoRazao(razaoContaFiado, {.dono = f.codCliente, .descricao = descricao, .valor = valor});
}

// --- the payment forms

void fechaAVista(const Fechamento &f)
{
    lancaCaixa(u"O.S. "_s + f.codigo, f.total);
    if (!f.desconto.isEmpty()) {
        lancaCaixa(u"DESCONTO DA O.S. "_s + f.codigo, f.desconto, Operacao::Saida);
    }
}

/// A cheque and the account receivable that follows from it; `parcela` is "00" for a cheque that is no instalment.
void lancaChequeEConta(const Fechamento &f, const DadosCheque &cheque, const ParcelaOS &parcela)
{
    const qint32 numero = lancaCheque(f.codigo, cheque, parcela);
    const QString descricao = u"CHEQUE CÓD "_s + quatroDigitos(numero) + u'/' + quatroDigitos(f.codigo) + u'-' +
                              Format(parcela.parcela, u"00");
    lancaContaReceber(descricao, parcela.valor, parcela.vencimento);
}

void fechaChequePre(const Fechamento &f)
{
    const PagamentoOS &p = f.pagamento;
    lancaChequeEConta(f, {p.banco, p.conta, p.numeroCheque}, {u"00"_s, p.vencimento, p.valorCheque, {}});
}

void fechaCarne(const Fechamento &f)
{
    for (const ParcelaOS &parcela : f.pagamento.parcelas) {
        lancaContaReceber(u"CARNÊ Nº "_s + quatroDigitos(f.codigo) + u'-' + Format(parcela.parcela, u"00"),
                          parcela.valor, parcela.vencimento);
    }
}

void fechaCheques(const Fechamento &f)
{
    std::size_t i = 0;
    for (const ParcelaOS &parcela : f.pagamento.parcelas) {
        const QString numero = i < f.numerosCheques.size() ? f.numerosCheques[i] : QString();
        lancaChequeEConta(f, {f.pagamento.banco, f.pagamento.conta, numero}, parcela);
        ++i;
    }
}

void fechaFiado(const Fechamento &f)
{
    lancaFiado(f, f.pagamento.valor, f.pagamento.vencimento, u"ORDEM SERVIÇO Nº "_s + f.codigo);
}

void parcelaAVista(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque & /*nenhum*/)
{
    lancaCaixa(u"O.S. "_s + f.codigo + u" Parcela "_s + parcela.parcela, parcela.valor);
}

/// The only credit sale that stands among the accounts receivable too.
void parcelaAPrazo(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque & /*nenhum*/)
{
    lancaFiado(f, parcela.valor, parcela.vencimento,
               u"ORDEM SERVIÇO Nº "_s + f.codigo + u" PARCELA "_s + parcela.parcela);
    const QString numero = u" - Nº "_s + quatroDigitos(f.codigo) + u'-' + parcela.parcela;
    lancaContaReceber(comNome(u"O.S. PENDENTE: "_s, f.nomeCliente, numero), parcela.valor, parcela.vencimento);
}

void parcelaEmCheque(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque &cheque)
{
    const qint32 numero = lancaCheque(f.codigo, cheque, parcela);
    const QString numeros =
        u" - CÓD "_s + quatroDigitos(numero) + u'/' + quatroDigitos(f.codigo) + u'-' + parcela.parcela;
    lancaContaReceber(comNome(u"CHEQUE: "_s, f.nomeCliente, numeros), parcela.valor, parcela.vencimento);
}

struct Documento {
    QStringView nome;
    void (*lanca)(const Fechamento &, const ParcelaOS &, const DadosCheque &);
};

constexpr std::array<Documento, 3> documentos{{
    {documentoAVista, parcelaAVista},
    {documentoAPrazo, parcelaAPrazo},
    {documentoCheque, parcelaEmCheque},
}};

void lancaParcela(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque &cheque)
{
    for (const Documento &documento : documentos) {
        if (documento.nome == parcela.documento) {
            documento.lanca(f, parcela, cheque);
            return;
        }
    }
}

/// The user is asked for all cheques before the first row is written: a program that is killed while he is asked leaves
/// no order half closed.
void fechaPersonalizado(const Fechamento &f)
{
    std::vector<DadosCheque> cheques;
    for (const ParcelaOS &parcela : f.pagamento.parcelas) {
        cheques.push_back(parcela.documento == documentoCheque ? f.pedeCheque(parcela) : DadosCheque{});
    }
    std::size_t i = 0;
    for (const ParcelaOS &parcela : f.pagamento.parcelas) {
        lancaParcela(f, parcela, cheques[i++]);
    }
}

/// What a payment form posts and what it writes into the order. An order on store credit stays unpaid.
struct Forma {
    void (*lanca)(const Fechamento &);
    bool pago;
    QStringView nome;
};

constexpr std::array<Forma, 6> formas{{
    {fechaAVista, true, u"À VISTA"},
    {fechaChequePre, true, u"CHEQUE-PRÉ"},
    {fechaCarne, true, u"PARCELADO CARNÊ"},
    {fechaCheques, true, u"PARCELADO CHEQUE"},
    {fechaFiado, false, u""},
    {fechaPersonalizado, true, u"PAGAMENTO PERSONALIZADO"},
}};

// --- the order and the stock

/// Marks the order, and gives the moment that it was closed.
QString marcaFechada(const QString &codigo, const Forma &forma)
{
    auto ordem = DBDados->OpenRecordset(u"SELECT * FROM OrdemServico WHERE Codigo = "_s + codigo);
    if (ordem.Eof()) {
        return {};
    }
    const Date agora = Now();
    ordem.Edit();
    ordem[u"DataOut"] = agora;
    ordem[u"EmAberto"] = false;
    ordem[u"Pago"] = forma.pago;
    if (forma.pago) {
        ordem[u"DataPagto"] = Hoje();
        ordem[u"FormaPagto"] = forma.nome.toString();
    }
    ordem.Update();
    return Format(agora, mascaraDataHora);
}

void baixaPeca(const QString &codigo, const Value &codPeca, const Value &quantidade)
{
    LancaNoRazao(razaoEstoque, {.dono = CStr(codPeca),
                                .descricao = u"VENDA O.S. "_s + codigo,
                                .valor = quantidade,
                                .operacao = Operacao::Saida});
}

} // namespace

QString FechaOrdem(const Fechamento &fechamento)
{
    const Forma &forma = formas.at(static_cast<std::size_t>(fechamento.pagamento.forma));
    forma.lanca(fechamento);
    QString dataOut = marcaFechada(fechamento.codigo, forma);
    BaixaEstoque(fechamento.codigo);
    return dataOut;
}

void BaixaEstoque(const QString &codigo)
{
    auto itens =
        DBDados->OpenRecordset(u"SELECT OSPecas.*, Pecas.ControlaEstoque FROM OSPecas, Pecas WHERE OSPecas.CodOs = "_s +
                               codigo + u" AND Pecas.Codigo = OSPecas.CodPeca"_s);
    for (; !itens.Eof(); itens.MoveNext()) {
        if (Verdadeiro(itens.value(u"ControlaEstoque"))) {
            baixaPeca(codigo, itens.value(u"CodPeca"), itens.value(u"Quantidade"));
        }
    }
}

QString CreditoDisponivel(const QString &codCliente)
{
    auto cliente = DBDados->OpenRecordset(u"SELECT LimiteCredito FROM Clientes WHERE Codigo = "_s + codCliente);
    const Value limite = cliente.Eof() ? Value{} : cliente.value(u"LimiteCredito");
    const float saldo = UltimoSaldo(razaoContaFiado, codCliente);
    return Format((IsNull(limite) ? 0.0F : CSng(limite)) - saldo, mascaraValor);
}

} // namespace workorders
