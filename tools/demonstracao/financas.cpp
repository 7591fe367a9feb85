#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"

#include <QPointer>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

QString today()
{
    return runtime::Format(runtime::Today(), u"dd/mm/yyyy");
}

/// The newest row of a table.
dao::Recordset newest(const QString &table)
{
    auto row = core::DBDados->OpenRecordset(u"SELECT * FROM %1 ORDER BY Codigo"_s.arg(table));
    row.MoveLast();
    return row;
}

/// The row of a list whose description begins so, chosen by a click.
void chooseRow(ui::Form *window, const QString &list, int column, const QString &beginning)
{
    auto *view = cadastro::list(window, list);
    const auto rows = view->rowsWhere(column, [&](const QString &text) { return text.startsWith(beginning); });
    QVERIFY2(!rows.empty(), qPrintable(beginning));
    view->ensureVisible(rows.front());
    const QPoint place = view->visualRect(view->model()->index(rows.front(), column)).center();
    QTest::mouseClick(window->window()->windowHandle(), Qt::LeftButton, {},
                      view->viewport()->mapTo(window->window(), place));
    QCOMPARE(view->selectedRow(), rows.front());
}

class Financas : public QObject
{
    Q_OBJECT

private slots:
    void lancamentosNoCaixa();
    void livroCaixaImpresso();
    void chequeCompensado();
    void contaRecebidaEmParte();
    void contaPaga();
    void ordemPendentePaga();
    void contaDoCliente();

private:
    static void receiveAPart();
};

/// A row entered, changed and deleted, the balances behind it each time.
void Financas::lancamentosNoCaixa()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviCaixa"_s, u"frmMoviCaixa"_s);
    const auto before = newest(u"Caixa"_s).value(u"Saldo");
    refused(window, boxes, u"Data Inválida"_s, {{u"txtData"_s, u"01012020"_s}});
    refused(window, boxes, u"A data escolhida já passou"_s, {{u"txtData"_s, today()}});
    refused(window, boxes, u"Descrição Inválida"_s, {{u"txtDescricao"_s, u"almoço da equipe"_s}});
    refused(window, boxes, u"Valor Inválido"_s, {{u"txtValor"_s, u"58,50"_s}});
    click(window, u"optSaida"_s);
    click(window, u"btnOSPrint"_s);
    QVERIFY(printer::printer().lastDocument().front().lines().contains(u"Descrição.....: ALMOÇO DA EQUIPE"_s));
    click(window, u"btnIncluir"_s);
    QCOMPARE(newest(u"Caixa"_s).value(u"Saida"), Value(58.5F));
    QCOMPARE(newest(u"Caixa"_s).value(u"Saldo"), Value(std::get<float>(before) - 58.5F));

    chooseRow(window, u"Lista"_s, 2, u"ALMOÇO"_s);
    click(window, u"btnAlterar"_s);
    type(window, u"txtValor"_s, u"60"_s);
    picture(u"frmMoviCaixa_altera"_s);
    click(window, u"btnAlterar"_s);
    QCOMPARE(newest(u"Caixa"_s).value(u"Saldo"), Value(std::get<float>(before) - 60));
    confirmed(window, boxes, u"btnExcluir"_s, u"Excluir o Registro Selecionado"_s);
    QCOMPARE(newest(u"Caixa"_s).value(u"Saldo"), before);
    close(window);
    done(u"livro caixa: lançamento incluído com recibo, alterado e excluído, saldos recalculados"_s);
}

void Financas::livroCaixaImpresso()
{
    auto *window = choose(u"itmRelaLivroCaixa"_s, u"frmMoviCaixa"_s);
    click(window, u"btnPrint"_s);
    const QStringList printed = printer::printer().lastDocument().front().lines();
    QVERIFY(printed.contains(u"Registros Entre..: %1 à %1"_s.arg(today())));
    click(window, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza_caixa"_s);
    click(form(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(printer::printer().lastDocument().front().lines(), printed);
    close(form(u"frmRelaPreVisualiza"_s));
    click(window, u"btnBack"_s);
    done(u"livro caixa impresso, pré-visualizado e impresso da pré-visualização"_s);
}

void Financas::chequeCompensado()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviCheques"_s, u"frmMoviCheques"_s);
    const QString toClear = support::text(window, u"lblCompensar"_s);
    chooseRow(window, u"Lista"_s, 5, u"000123"_s);
    boxes.question(u"Lançar Recebimento do Cheque no Livro Caixa"_s, true);
    support::key(window, u"Lista"_s, Qt::Key_P);
    boxes.finish();
    QCOMPARE(support::text(window, u"lblCompensado"_s), u"400,00"_s);
    QVERIFY(support::text(window, u"lblCompensar"_s) != toClear);
    QVERIFY(runtime::CStr(newest(u"Caixa"_s).value(u"Descricao")).startsWith(u"CHEQUE CÓD "));
    picture(u"frmMoviCheques"_s);
    close(window);
    done(u"cheque compensado e lançado no caixa"_s);
}

/// Half of an instalment now, the rest in a month, with a receipt.
void Financas::receiveAPart()
{
    auto *window = form(u"frmMoviContasPRBaixa"_s);
    const QPointer<ui::Form> open = window;
    support::control<QTabWidget>(window, u"tabPagto"_s)->setCurrentIndex(1);
    const QString nextMonth = runtime::Format(runtime::DateAdd(u"m", 1, runtime::Today()), u"dd/mm/yyyy");
    cadastro::fill(window, {{u"txtDataPagto"_s, today()}, {u"txtValor"_s, u"50"_s}, {u"txtNovaData"_s, nextMonth}});
    picture(u"frmMoviContasPRBaixa_parcial"_s, window);
    click(window, u"btnOSPrint"_s);
    click(window, u"btnSalvar"_s);
    if (open && !open->unloading()) {
        open->Unload(); // a refused payment would wait for ever
        QTest::qFail("o recebimento não foi aceito", __FILE__, __LINE__);
    }
}

void Financas::contaRecebidaEmParte()
{
    auto *window = choose(u"itmMoviContasPR"_s, u"frmMoviContasPR"_s);
    const QString inTwoMonths = runtime::Format(runtime::DateAdd(u"m", 3, runtime::Today()), u"ddmmyyyy");
    type(window, u"txtDataFim"_s, inTwoMonths);
    click(window, u"btnPreenche"_s);
    chooseRow(window, u"Lista_0"_s, 2, u"CARNÊ"_s);
    support::whenShown(u"frmMoviContasPRBaixa"_s, [] { receiveAPart(); });
    support::key(window, u"Lista_0"_s, Qt::Key_P);
    support::failNotShown();
    const QStringList receipt = printer::printer().lastDocument().front().lines();
    QVERIFY(receipt.first().contains(u"RECIBO R$ 50,00"_s));
    QCOMPARE(newest(u"Caixa"_s).value(u"Entrada"), Value(50.0F));
    QVERIFY(runtime::CStr(newest(u"ContasReceber"_s).value(u"Descricao")).startsWith(u"PAG. PARCIAL O.S.: "));
    QCOMPARE(newest(u"ContaFiado"_s).value(u"Saida"), Value(50.0F));
    picture(u"frmMoviContasPR"_s);
    done(u"conta a receber paga em parte, com recibo: o resto ficou para o mês que vem"_s);
}

void Financas::contaPaga()
{
    Boxes boxes;
    auto *window = form(u"frmMoviContasPR"_s);
    support::control<QTabWidget>(window, u"tabContas"_s)->setCurrentIndex(1);
    refused(window, boxes, u"Data Inválida"_s, {{u"txtData"_s, today()}});
    refused(window, boxes, u"Descrição Inválida"_s, {{u"txtDescricao"_s, u"energia elétrica"_s}});
    refused(window, boxes, u"Valor Inválido"_s, {{u"txtValor"_s, u"240,35"_s}, {u"txtVencimento"_s, u"01012020"_s}});
    refused(window, boxes, u"Data de Vencimento Já Passou"_s, {{u"txtVencimento"_s, today()}});
    click(window, u"btnIncluir"_s);
    chooseRow(window, u"Lista_1"_s, 2, u"ENERGIA"_s);
    boxes.inputKeep(u"Digite a Data do Pagamento/Recebimento"_s, today()).input(u"Digite o Valor Pago"_s, u"235,00"_s);
    support::key(window, u"Lista_1"_s, Qt::Key_P);
    boxes.finish();
    QCOMPARE(newest(u"ContasPagar"_s).value(u"Valor"), Value(235.0F));
    QCOMPARE(newest(u"Caixa"_s).value(u"Saida"), Value(235.0F));
    picture(u"frmMoviContasPR_pagar"_s);
    close(window);
    done(u"conta a pagar lançada e paga com abatimento"_s);
}

void Financas::ordemPendentePaga()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviFiado"_s, u"frmMoviFiados"_s);
    picture(u"frmMoviFiados"_s);
    const int pending = cadastro::list(window)->count();
    cadastro::clickRow(window, 0);
    const QString order = cadastro::list(window)->item(0).subItem(1);
    boxes.question(u"Lançar pagamento da O.S. pendente no Livro Caixa"_s, true);
    support::key(window, u"Lista"_s, Qt::Key_P);
    boxes.finish();
    QCOMPARE(newest(u"Caixa"_s).value(u"Descricao"), Value(u"O.S. "_s + order));
    QVERIFY(cadastro::list(window)->count() <= pending);
    close(window);
    done(u"ordem pendente %1 paga e lançada no caixa"_s.arg(order));
}

void Financas::contaDoCliente()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviClientePendente"_s, u"frmMoviFiadosConta"_s);
    QVERIFY(!support::text(window, u"lblNome"_s).isEmpty());
    cadastro::fill(window, {{u"txtData"_s, today()}, {u"txtDescricao"_s, u"pagamento no balcão"_s}});
    click(window, u"optSaida"_s);
    type(window, u"txtValor"_s, u"100"_s);
    click(window, u"btnIncluir"_s);
    QCOMPARE(newest(u"ContaFiado"_s).value(u"Saida"), Value(100.0F));
    picture(u"frmMoviFiadosConta"_s);
    close(window);
    done(u"pagamento lançado na conta do cliente"_s);
}

} // namespace

Assunto financas()
{
    return std::make_unique<Financas>();
}

} // namespace demonstracao

#include "financas.moc"
