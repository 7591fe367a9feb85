#include "workorders/fechamento.h"

#include "core/banco.h"
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

QString hoje()
{
    return Format(Today(), mascaraData);
}

QString quatroDigitos(const Value &codigo)
{
    return Format(codigo, mascaraCodigo);
}

// --- the rows of the finance tables

struct Lancamento {
    QString descricao;
    QString valor;
    bool saida = false;
};

/// Posts to the cash book behind a balance, and gives the new one. The work order is told by the description alone.
float lancaCaixa(const Lancamento &lancamento, float saldoAnterior)
{
    float saldo = saldoAnterior;
    AcrescentaLinha(u"Caixa"_s, [&](dao::Recordset &linha) {
        linha[u"Data"] = hoje();
        linha[u"Descricao"] = lancamento.descricao;
        linha[lancamento.saida ? u"Saida" : u"Entrada"] = lancamento.valor;
        const float valor = CSng(lancamento.valor);
        saldo = lancamento.saida ? saldo - valor : saldo + valor;
        linha[u"Saldo"] = saldo;
    });
    return saldo;
}

float ultimoSaldoCaixa()
{
    return UltimoSaldo(u"SELECT * FROM Caixa Order By Codigo"_s, u"Saldo"_s);
}

void lancaContaReceber(const QString &descricao, const QString &valor, const QString &vencimento)
{
    AcrescentaLinha(u"ContasReceber"_s, [&](dao::Recordset &linha) {
        linha[u"Data"] = hoje();
        linha[u"Descricao"] = descricao;
        linha[u"Valor"] = valor;
        linha[u"Vencimento"] = vencimento;
        linha[u"Pago"] = false;
    });
}

/// Adds a cheque and gives its number in the system, which the account receivable names.
qint32 lancaCheque(const QString &codigo, const Fechamento::DadosCheque &cheque, const QString &valor,
                   const QString &vencimento)
{
    return AcrescentaLinha(u"Cheques"_s, [&](dao::Recordset &linha) {
        linha[u"CodOs"] = codigo;
        linha[u"Data"] = hoje();
        linha[u"Banco"] = ValorOuNulo(cheque.banco);
        linha[u"Conta"] = ValorOuNulo(cheque.conta);
        linha[u"Numero"] = ValorOuNulo(cheque.numero);
        linha[u"Valor"] = valor;
        linha[u"Vencimento"] = vencimento;
        linha[u"Pago"] = qint16{0};
    });
}

void lancaFiado(const Fechamento &f, const QString &valor, const QString &vencimento)
{
    AcrescentaLinha(u"Fiados"_s, [&](dao::Recordset &linha) {
        linha[u"CodOs"] = f.codigo;
        linha[u"CodCliente"] = f.codCliente;
        linha[u"Data"] = hoje();
        linha[u"Valor"] = valor;
        linha[u"Vencimento"] = vencimento;
        linha[u"Pago"] = false;
    });
}

void lancaContaFiado(const QString &codCliente, const Lancamento &lancamento)
{
    const float saldo =
        UltimoSaldo(u"SELECT * FROM ContaFiado WHERE CodCliente = "_s + codCliente + u" ORDER BY Codigo"_s, u"Saldo"_s);
    AcrescentaLinha(u"ContaFiado"_s, [&](dao::Recordset &linha) {
        linha[u"CodCliente"] = codCliente;
        linha[u"Data"] = hoje();
        linha[u"Descricao"] = lancamento.descricao;
        linha[u"Entrada"] = lancamento.valor;
        linha[u"Saldo"] = saldo + CSng(lancamento.valor);
    });
}

// --- the payment forms

void fechaAVista(const Fechamento &f)
{
    const float saldo = lancaCaixa({u"O.S. "_s + f.codigo, f.total}, ultimoSaldoCaixa());
    if (!f.desconto.isEmpty()) {
        lancaCaixa({u"DESCONTO DA O.S. "_s + f.codigo, f.desconto, true}, saldo);
    }
}

/// A cheque and the account receivable that follows from it; `parcela` is "00" for a cheque that is no instalment.
void lancaChequeEConta(const Fechamento &f, const Fechamento::DadosCheque &cheque, const ParcelaOS &parcela)
{
    const qint32 numero = lancaCheque(f.codigo, cheque, parcela.valor, parcela.vencimento);
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
    lancaFiado(f, f.pagamento.valor, f.pagamento.vencimento);
    lancaContaFiado(f.codCliente, {u"ORDEM SERVIÇO Nº "_s + f.codigo, f.pagamento.valor});
}

using DadosCheque = Fechamento::DadosCheque;

void parcelaAVista(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque & /*nenhum*/)
{
    lancaCaixa({u"O.S. "_s + f.codigo + u" Parcela "_s + parcela.parcela, parcela.valor}, ultimoSaldoCaixa());
}

/// The only credit sale that stands among the accounts receivable too.
void parcelaAPrazo(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque & /*nenhum*/)
{
    lancaFiado(f, parcela.valor, parcela.vencimento);
    lancaContaFiado(f.codCliente,
                    {u"ORDEM SERVIÇO Nº "_s + f.codigo + u" PARCELA "_s + parcela.parcela, parcela.valor});
    const QString descricao =
        u"O.S. PENDENTE: "_s + f.nomeCliente + u" - Nº "_s + quatroDigitos(f.codigo) + u'-' + parcela.parcela;
    lancaContaReceber(descricao, parcela.valor, parcela.vencimento);
}

void parcelaEmCheque(const Fechamento &f, const ParcelaOS &parcela, const DadosCheque &cheque)
{
    const qint32 numero = lancaCheque(f.codigo, cheque, parcela.valor, parcela.vencimento);
    const QString descricao = u"CHEQUE: "_s + f.nomeCliente + u" - CÓD "_s + quatroDigitos(numero) + u'/' +
                              quatroDigitos(f.codigo) + u'-' + parcela.parcela;
    lancaContaReceber(descricao, parcela.valor, parcela.vencimento);
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
        ordem[u"DataPagto"] = hoje();
        ordem[u"FormaPagto"] = forma.nome.toString();
    }
    ordem.Update();
    return Format(agora, mascaraDataHora);
}

void baixaPeca(const QString &codigo, const Value &codPeca, const Value &quantidade)
{
    const float saldo = UltimoSaldo(
        u"SELECT Estoque FROM Estoque WHERE CodPeca = "_s + CStr(codPeca) + u" ORDER BY Codigo"_s, u"Estoque"_s);
    AcrescentaLinha(u"Estoque"_s, [&](dao::Recordset &linha) {
        linha[u"CodPeca"] = codPeca;
        linha[u"Data"] = hoje();
        linha[u"Descricao"] = u"VENDA O.S. "_s + codigo;
        linha[u"Saida"] = quantidade;
        linha[u"Estoque"] = SaldoDepois(saldo, -CSng(quantidade));
    });
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
    const float saldo = UltimoSaldo(
        u"SELECT Saldo FROM ContaFiado WHERE CodCLiente = "_s + codCliente + u" ORDER BY Codigo"_s, u"Saldo"_s);
    return Format((IsNull(limite) ? 0.0F : CSng(limite)) - saldo, mascaraValor);
}

} // namespace workorders
