// Opens and closes orders without end on the program folder given as argument, settles what their closing left,
// recalculates the ledgers, alters orders item by item, turns estimates into orders, and receives suppliers' notes,
// each operation as one unit. Begins with the form of payment that the second argument tells. Tells each finished one
// on its standard output: "ABERTA code", "FECHADA code form", a word and a code for what was settled, "RECALCULADO
// ledger" with the code of its newest row, "ALTERADA code step", "ORCADO estimate", "CONVERTIDA order estimate",
// "NOTA number". The crash test kills it while it works.
#include "documents/documentogravado.h"
#include "documents/itensgravados.h"
#include "estimates/orcamento.h"
#include "finance/compensacao.h"
#include "finance/pagamentoconta.h"
#include "finance/pendencia.h"
#include "finance/recebimento.h"
#include "stock/entrada.h"
#include "workorders/abertura.h"
#include "workorders/alteracao.h"
#include "workorders/fechamento.h"

#include "core/config.h"
#include "core/esquema.h"
#include "core/financas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace
{

void tell(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

NovaOrdem newOrder()
{
    NovaOrdem order;
    order.codCliente = u"1"_s;
    order.codVeiculo = u"0001"_s;
    order.km = u"1000"_s;
    order.valor = u"100,00"_s;
    order.itens = {{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,00"_s, u"60,00"_s},
                   {u"0002"_s, u"S"_s, u"01"_s, u"REVISÃO"_s, u"30,00"_s, u"30,00"_s},
                   {u"0000"_s, u"A"_s, u"01"_s, u"ESTOPA"_s, u"10,00"_s, u"10,00"_s}};
    return order;
}

Fechamento closing(qint32 code, FormaPagamento form)
{
    Fechamento closing;
    closing.codigo = runtime::Format(code, u"0000");
    closing.nomeCliente = u"MARIA"_s;
    closing.codCliente = u"1"_s;
    closing.total = u"100,00"_s;

    auto &payment = closing.pagamento;
    const auto today = runtime::Format(runtime::Today(), u"dd/mm/yyyy");
    payment.forma = form;
    payment.valor = payment.valorCheque = u"100,00"_s;
    payment.vencimento = today;
    payment.parcelas = {{u"01"_s, today, u"50,00"_s, u"DINHEIRO À VISTA"_s},
                        {u"02"_s, today, u"50,00"_s, u"CHEQUE PRÉ"_s}};
    closing.numerosCheques = {u"10"_s, u"11"_s};
    closing.pedeCheque = [](const ParcelaOS &) { return Fechamento::DadosCheque{u"BANCO"_s, u"1"_s, u"12"_s}; };
    return closing;
}

qint32 open()
{
    const dao::Unit unit;
    return AbreOrdem(newOrder());
}

void close(qint32 code, FormaPagamento form)
{
    const dao::Unit unit;
    FechaOrdem(closing(code, form));
}

// --- settling what the closing left

constexpr int allForms = 6;

QString shown(qint32 code)
{
    return runtime::Format(code, u"0000");
}

QString dayBefore(int days)
{
    return runtime::Format(runtime::DateAdd(u"d", -days, runtime::Today()), u"dd/mm/yyyy");
}

/// The codes of the rows that a statement finds, in their order.
QStringList codesOf(const QString &select)
{
    QStringList codes;
    dao::Recordset rows = core::DBDados->OpenRecordset(select);
    for (; !rows.Eof(); rows.MoveNext()) {
        codes << shown(runtime::CLng(rows.value(0)));
    }
    return codes;
}

/// One instalment paid whole, into the cash book and the customer's account; the other one in part, into a bank. Both
/// are dated back, so that the balances have something to be mended.
void receive(qint32 order, int turn)
{
    const QString name = u"CARNÊ Nº %1-0"_s.arg(shown(order));
    const auto codes =
        codesOf(u"SELECT Codigo FROM ContasReceber WHERE Descricao LIKE '%1*' ORDER BY Codigo"_s.arg(name));
    finance::Recebimento payment{.codigo = codes.at(0),
                                 .data = dayBefore(turn % 40),
                                 .descricao = name + u'1',
                                 .valor = u"50,00"_s,
                                 .livro = &core::razaoCaixa,
                                 .codCliente = u"1"_s,
                                 .codOs = shown(order)};
    {
        const dao::Unit unit;
        finance::Recebe(payment);
    }
    tell(u"RECEBIDA %1"_s.arg(order));
    payment.codigo = codes.at(1);
    payment.descricao = name + u'2';
    payment.livro = &core::razaoBanco1;
    payment.codCliente.clear();
    payment.parcial = {.pago = u"16,67"_s, .resto = u"33,33"_s, .vencimento = dayBefore(-30)};
    {
        const dao::Unit unit;
        finance::Recebe(payment);
    }
    tell(u"RECEBIDA_EM_PARTE %1"_s.arg(order));
}

void clearCheques(qint32 order)
{
    for (const QString &code : codesOf(u"SELECT Codigo FROM Cheques WHERE CodOs = %1"_s.arg(order))) {
        {
            const dao::Unit unit;
            finance::LancaCheque(*finance::AlternaCheque(code));
        }
        tell(u"COMPENSADO "_s + code);
    }
}

void payBill(qint32 order)
{
    const QString name = u"ALUGUEL "_s + shown(order);
    {
        const dao::Unit unit;
        core::IncluiConta(core::TabelaContas::Pagar,
                          {.descricao = name, .valor = u"40,00"_s, .vencimento = dayBefore(0)});
    }
    const auto codes = codesOf(u"SELECT Codigo FROM ContasPagar WHERE Descricao = '%1'"_s.arg(name));
    {
        const dao::Unit unit;
        finance::PagaConta({.codigo = codes.at(0), .data = dayBefore(0), .valor = u"33,33"_s, .descricao = name});
    }
    tell(u"PAGA %1"_s.arg(order));
}

void payPending(qint32 order)
{
    const auto codes = codesOf(u"SELECT Codigo FROM Fiados WHERE CodOs = %1"_s.arg(order));
    {
        const dao::Unit unit;
        finance::AlternaPendencia(shown(order), codes.at(0));
        finance::LancaPendencia(shown(order), u"100,00"_s);
    }
    tell(u"PENDENCIA_PAGA %1"_s.arg(order));
}

void recalculate()
{
    for (const auto *ledger : {&core::razaoCaixa, &core::razaoBanco1, &core::razaoContaFiado}) {
        core::RecalculaRazao(*ledger, ledger->dono.isEmpty() ? QString() : u"1"_s);
        const auto newest = codesOf(u"SELECT Codigo FROM %1 ORDER BY Codigo DESC"_s.arg(ledger->tabela)).value(0);
        tell(u"RECALCULADO %1 %2"_s.arg(ledger->tabela, newest));
    }
}

/// What follows an order that was closed with a form.
void settle(qint32 order, int form, int turn)
{
    switch (form) {
    case 0:
        payBill(order);
        break;
    case 2:
        receive(order, turn);
        break;
    case 4:
        payPending(order);
        break;
    default:
        clearCheques(order);
    }
    if (form == allForms - 1) {
        recalculate();
    }
}

// --- altering and converting

void tellStep(qint32 order, int step)
{
    tell(u"ALTERADA %1 %2"_s.arg(order).arg(step));
}

/// An order that is altered from its opening on: the word of its mechanic tells it from the others.
qint32 openToAlter()
{
    const dao::Unit unit;
    NovaOrdem order = newOrder();
    order.mecanico = u"ALTERADA"_s;
    return AbreOrdem(order);
}

void changeHeader(qint32 order)
{
    const dao::Unit unit;
    CabecalhoAlterado header = LeOrdem(order)->cabecalho;
    header.textos.km = u"2500"_s;
    AlteraOrdem(order, header);
}

/// An item is added, one changed, the header too, one removed, and every other order deleted: what the altering window
/// writes, each with the total that it shows then.
void alter(int turn)
{
    const qint32 order = openToAlter();
    tellStep(order, 0);
    const auto stored = LeItens(u"SELECT OSPecas.* FROM OSPecas WHERE OSPecas.CodOS = %1"_s.arg(order));
    {
        const dao::Unit unit;
        AcrescentaItem(ordemGravada, order, {u"0000"_s, u"A"_s, u"01"_s, u"COLA"_s, u"25,00"_s, {}}, u"125,00"_s);
    }
    tellStep(order, 1);
    {
        const dao::Unit unit;
        AlteraItem(ordemGravada, order, stored.at(0).chave, {u"0001"_s, u"P"_s, u"03"_s, u"FILTRO"_s, u"30,00"_s, {}},
                   u"155,00"_s);
    }
    tellStep(order, 2);
    changeHeader(order);
    tellStep(order, 3);
    {
        const dao::Unit unit;
        RemoveItem(ordemGravada, order, stored.at(1).chave, u"125,00"_s);
    }
    tellStep(order, 4);
    if (turn % 2 == 0) {
        {
            const dao::Unit unit;
            ExcluiDocumento(ordemGravada, order);
        }
        tellStep(order, 5);
    }
}

/// The items of an estimate as they go into the order that is opened with them.
NovaOrdem orderOf(qint32 estimate)
{
    NovaOrdem order = newOrder();
    order.itens.clear();
    for (const ItemGravado &item : LeItens(u"SELECT * FROM OrcaPecas WHERE CodOrca = %1"_s.arg(estimate))) {
        order.itens.push_back(item.linha);
        order.itens.back().tipo = item.psa;
    }
    return order;
}

void convert()
{
    qint32 estimate = 0;
    {
        const dao::Unit unit;
        estimate = estimates::IncluiOrcamento(
            {.codCliente = u"1"_s, .nome = u"MARIA"_s, .valor = u"100,00"_s, .itens = newOrder().itens});
    }
    tell(u"ORCADO %1"_s.arg(estimate));
    const NovaOrdem order = orderOf(estimate);
    qint32 code = 0;
    {
        const dao::Unit unit;
        code = AbreOrdem(order);
    }
    tell(u"CONVERTIDA %1 %2"_s.arg(code).arg(estimate));
}

/// A note with a part on two lines, whose costs are others every time.
void receiveNote(int turn)
{
    const QString cost = u"%1,25"_s.arg(10 + turn % 50);
    qint32 number = 0;
    {
        const dao::Unit unit;
        number = stock::IncluiNota({.codFornecedor = u"0001"_s,
                                    .observacoes = {},
                                    .valor = u"100,00"_s,
                                    .linhas = {{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"9,50"_s, {}},
                                               {u"0003"_s, u"P"_s, u"05"_s, u"VELA"_s, cost, {}},
                                               {u"0000"_s, u"A"_s, u"01"_s, u"FRETE"_s, u"10,00"_s, {}},
                                               {u"0001"_s, u"P"_s, u"03"_s, u"FILTRO"_s, cost, {}}}});
    }
    tell(u"NOTA %1"_s.arg(number));
}

void serve(int turn)
{
    const auto code = open();
    tell(u"ABERTA %1"_s.arg(code));
    const int form = turn % allForms;
    close(code, static_cast<FormaPagamento>(form));
    tell(u"FECHADA %1 %2"_s.arg(code).arg(form));
    settle(code, form, turn);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto silent = [](const QString &) {};
    core::App::setPath(QCoreApplication::arguments().value(1));
    core::ArquivoINI = core::App::Path() + u"/config.ini"_s;
    core::ArquivoDB = core::App::Path() + u"/DADOS/DADOS.MDB"_s;
    core::AbreOuCriaBanco(silent);
    core::CriarDB(silent);
    tell(u"PRONTO"_s);

    for (int turn = QCoreApplication::arguments().value(2).toInt();; ++turn) {
        serve(turn);
        alter(turn);
        convert();
        receiveNote(turn);
    }
}
