#include "tests/registers/cadapecas.h"

#include "platform/ui/application.h"
#include "workorders/abertura.h"

using namespace Qt::StringLiterals;
using cadapecas::null;
using cadapecas::oilFilter;
using cadapecas::Rows;
using cadastro::askAlter;
using cadastro::askDelete;

namespace
{

const QString stockStays = u"O Campo Estoque Atual Não Pode ser Alterado Pelo Cadastro de Peças/Serviços"_s;
const QString notFound = u"Código não localizado"_s;
const QString maker = u"cboMarca"_s;

} // namespace

/// The register of parts and services as it alters and deletes.
class TstFrmCadaPecasGrava : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { begin(); }
    void cleanup() { end(); }

    void altersEveryColumn();
    void alterRefusesABadField_data();
    void alterRefusesABadField();
    void alterDoesNotCheckTheStock();
    void alterNeverTouchesTheLedger();
    void alterTellsThatTheStockStaysEveryTime();
    void withoutStockControlAlterStoresAMinimumOfZero();
    void aMinimumShownWithoutStockControlIsAlteredToZero();
    void nothingIsAlteredOnNo();
    void alterReloadsTheListAndEmptiesTheFields();
    void alterWithNothingLoadedFindsNoPart();
    void alterOfAPartDeletedMeanwhileFindsNoPart();
    void aTaxRateTooLargeLeavesThePartAsItWas();

    void deleteNeedsAPart();
    void nothingIsDeletedOnNo();
    void deleteTakesThePartAndItsLedger();
    void deleteEmptiesTheFieldsDownToTheStock();
    void deleteOfAPartDeletedMeanwhileTakesTheLedger();
    void deleteLeavesTheLinesOfOrdersEstimatesAndNotes();
    void anOldOrderStillShowsTheDescription();
};

// --- altering

void TstFrmCadaPecasGrava::altersEveryColumn()
{
    threeParts();
    openWithTaxFields();
    load(u"0001"_s);
    click(u"optServico"_s);
    cadastro::choose(form_, u"cboUnidade"_s, 1);
    cadastro::fill(form_, oilFilter);
    type(u"txtICMS"_s, u"7"_s);
    type(u"txtClass"_s, u"99"_s);
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);

    const Rows altered{{u"1"_s, u"FILTRO DE OLEO"_s, u"GOL 1.0"_s, u"S"_s, u"1"_s, u"12.5"_s, u"1025.9"_s, u"5"_s,
                        u"-1"_s, u"FO-100"_s, u"7"_s, u"99"_s}};
    QCOMPARE(program_->rows(u"SELECT * FROM Pecas WHERE Codigo = 1"_s), altered);
    QCOMPARE(parts().size(), 3U);
    QCOMPARE(program_->rows(u"SELECT Nome FROM Pecas WHERE Codigo = 3"_s), (Rows{{u"FILTRO DE AR"_s}}));
}

void TstFrmCadaPecasGrava::alterRefusesABadField_data()
{
    addBadFields();
}

void TstFrmCadaPecasGrava::alterRefusesABadField()
{
    QFETCH(QString, field);
    QFETCH(QString, content);
    QFETCH(QString, message);
    threeParts();
    open();
    load(u"0003"_s);
    const Rows before = parts();
    type(field, content);
    boxes_->exclamation(message);
    click(u"btnAlterar"_s);

    QTRY_COMPARE(cadastro::focusOf(form_), field);
    QCOMPARE(parts(), before);
}

void TstFrmCadaPecasGrava::alterDoesNotCheckTheStock()
{
    threeParts();
    open();
    load(u"0003"_s);
    type(u"txtNome"_s, u"FILTRO DE CABINE"_s);
    type(u"txtEstoqueAtual"_s, QString());
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Nome FROM Pecas WHERE Codigo = 3"_s), (Rows{{u"FILTRO DE CABINE"_s}}));
}

void TstFrmCadaPecasGrava::alterNeverTouchesTheLedger()
{
    threeParts();
    open();
    load(u"0001"_s);
    const Rows before = ledger();
    type(u"txtEstoqueAtual"_s, u"99"_s);
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);

    QCOMPARE(ledger(), before);
    load(u"0001"_s);
    QCOMPARE(text(u"txtEstoqueAtual"_s), u"37,500"_s);
}

void TstFrmCadaPecasGrava::alterTellsThatTheStockStaysEveryTime()
{
    threeParts();
    open();
    const Rows before = parts();
    for (const auto &code : {u"0001"_s, u"0003"_s}) {
        load(code); // and nothing is changed
        boxes_->question(askAlter, true).information(stockStays);
        click(u"btnAlterar"_s);
        boxes_->finish();
    }
    QCOMPARE(parts(), before);
}

void TstFrmCadaPecasGrava::withoutStockControlAlterStoresAMinimumOfZero()
{
    open();
    click(u"optNao"_s);
    include(cadapecas::withoutStock(oilFilter));
    const QString stock = u"SELECT EstoqueMinimo, ControlaEstoque FROM Pecas"_s;
    QCOMPARE(program_->rows(stock), (Rows{{null, u"0"_s}}));

    load(u"0001"_s);
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);
    QCOMPARE(program_->rows(stock), (Rows{{u"0"_s, u"0"_s}}));
}

/// Finding a part in the list shows its stock, and leaves the switch as the part before has set it.
void TstFrmCadaPecasGrava::aMinimumShownWithoutStockControlIsAlteredToZero()
{
    threeParts();
    open();
    load(u"0002"_s);
    locate(u"FILTRO"_s);
    QVERIFY(chosen(u"optNao"_s));
    QCOMPARE(text(u"txtEstoque"_s), u"02"_s);
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT EstoqueMinimo, ControlaEstoque FROM Pecas WHERE Codigo = 3"_s),
             (Rows{{u"0"_s, u"0"_s}}));
}

void TstFrmCadaPecasGrava::nothingIsAlteredOnNo()
{
    threeParts();
    open();
    load(u"0003"_s);
    const Rows before = parts();
    type(u"txtNome"_s, u"OUTRO"_s);
    boxes_->question(askAlter, false);
    click(u"btnAlterar"_s);
    QCOMPARE(parts(), before);
    QCOMPARE(text(u"txtNome"_s), u"OUTRO"_s);
}

void TstFrmCadaPecasGrava::alterReloadsTheListAndEmptiesTheFields()
{
    threeParts();
    openWithTaxFields();
    search(u"OLEO"_s);
    cadastro::clickRow(form_, 0);
    type(u"txtNome"_s, u"ADITIVO"_s);
    boxes_->question(askAlter, true).information(stockStays);
    click(u"btnAlterar"_s);

    QCOMPARE(cadastro::columnOf(form_, 1), (QStringList{u"ADITIVO"_s, u"FILTRO DE AR"_s, u"ALINHAMENTO"_s}));
    compareFields(
        cadapecas::emptied({u"lblCodigo"_s, u"txtNome"_s, maker, u"txtCusto"_s, u"txtVenda"_s, u"txtEstoque"_s,
                            u"txtEstoqueAtual"_s, u"txtCodExterno"_s, u"txtICMS"_s, u"txtClass"_s}));
}

void TstFrmCadaPecasGrava::alterWithNothingLoadedFindsNoPart()
{
    threeParts();
    open();
    const Rows before = parts();
    cadastro::fill(form_, oilFilter);
    boxes_->question(askAlter, true).information(stockStays).exclamation(notFound);
    click(u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(parts(), before);
    QVERIFY(!ui::Application::ended());
}

void TstFrmCadaPecasGrava::alterOfAPartDeletedMeanwhileFindsNoPart()
{
    threeParts();
    open();
    load(u"0003"_s);
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 3"_s);
    const Rows before = parts();
    boxes_->question(askAlter, true).information(stockStays).exclamation(notFound);
    click(u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(parts(), before);
    QVERIFY(!ui::Application::ended());
}

void TstFrmCadaPecasGrava::aTaxRateTooLargeLeavesThePartAsItWas()
{
    const QString error = cadapecas::overflowBox();
    threeParts();
    openWithTaxFields();
    load(u"0003"_s);
    const Rows before = parts();
    type(u"txtNome"_s, u"OUTRO"_s);
    type(u"txtICMS"_s, u"40000"_s);
    boxes_->question(askAlter, true).information(stockStays).critical(error);
    click(u"btnAlterar"_s);

    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(parts(), before);
}

// --- deleting

void TstFrmCadaPecasGrava::deleteNeedsAPart()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    boxes_->exclamation(u"Código Inválido"_s);
    click(u"btnExcluir"_s);
    QTRY_COMPARE(cadastro::focusOf(form_), u"Lista"_s);
    QCOMPARE(parts().size(), 3U);
}

void TstFrmCadaPecasGrava::nothingIsDeletedOnNo()
{
    threeParts();
    open();
    load(u"0001"_s);
    const Rows before = stored(u"Estoque"_s);
    compareKeptOnNo(u"Pecas"_s);
    QCOMPARE(stored(u"Estoque"_s), before);
    QCOMPARE(ledger().size(), 3U);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaPecasGrava::deleteTakesThePartAndItsLedger()
{
    threeParts();
    open();
    load(u"0001"_s);
    boxes_->question(askDelete, true);
    click(u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Pecas ORDER BY Codigo"_s), (Rows{{u"2"_s}, {u"3"_s}}));
    QCOMPARE(program_->rows(u"SELECT Codigo, CodPeca FROM Estoque"_s), (Rows{{u"3"_s, u"3"_s}}));
    QCOMPARE(codes(), (QStringList{u"0003"_s, u"0002"_s}));
}

void TstFrmCadaPecasGrava::deleteEmptiesTheFieldsDownToTheStock()
{
    threeParts();
    openWithTaxFields();
    load(u"0001"_s);
    boxes_->question(askDelete, true);
    click(u"btnExcluir"_s);
    compareFields(cadapecas::emptied(
        {u"lblCodigo"_s, u"txtNome"_s, maker, u"txtCusto"_s, u"txtVenda"_s, u"txtEstoque"_s, u"txtEstoqueAtual"_s}));
    compareFields({{u"txtCodExterno"_s, u"OL-20"_s}, {u"txtICMS"_s, u"18"_s}, {u"txtClass"_s, u"2710.19"_s}});

    boxes_->exclamation(u"Código Inválido"_s); // nothing is shown any more
    click(u"btnExcluir"_s);
}

void TstFrmCadaPecasGrava::deleteOfAPartDeletedMeanwhileTakesTheLedger()
{
    threeParts();
    open();
    load(u"0003"_s);
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 3"_s);
    boxes_->question(askDelete, true);
    click(u"btnExcluir"_s);
    QCOMPARE(parts().size(), 2U);
    QCOMPARE(program_->rows(u"SELECT CodPeca FROM Estoque"_s), (Rows{{u"1"_s}, {u"1"_s}}));
}

void TstFrmCadaPecasGrava::deleteLeavesTheLinesOfOrdersEstimatesAndNotes()
{
    threeParts();
    program_->sql(u"INSERT INTO OSPecas (CodOS, CodPeca, Descricao) VALUES (7, 1, 'OLEO')"_s);
    program_->sql(u"INSERT INTO OrcaPecas (CodOrca, CodPeca, Descricao) VALUES (8, 1, 'OLEO')"_s);
    program_->sql(u"INSERT INTO NotasPecas (CodNota, CodPeca, Descricao) VALUES (9, 1, 'OLEO')"_s);
    open();
    load(u"0001"_s);
    boxes_->question(askDelete, true);
    click(u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodOS, CodPeca, Descricao FROM OSPecas"_s), (Rows{{u"7"_s, u"1"_s, u"OLEO"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodOrca, CodPeca, Descricao FROM OrcaPecas"_s),
             (Rows{{u"8"_s, u"1"_s, u"OLEO"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodNota, CodPeca, Descricao FROM NotasPecas"_s),
             (Rows{{u"9"_s, u"1"_s, u"OLEO"_s}}));
}

void TstFrmCadaPecasGrava::anOldOrderStillShowsTheDescription()
{
    threeParts();
    workorders::NovaOrdem order;
    order.codCliente = QString::number(program_->customer(u"MARIA"_s));
    order.codVeiculo = QString::number(program_->vehicle(1, u"ABC1D23"_s));
    order.valor = u"61,00"_s;
    order.itens = {{u"0001"_s, u"P"_s, u"2"_s, u"OLEO 20W50"_s, u"30,50"_s, {}}};
    workorders::AbreOrdem(order);
    open();
    load(u"0001"_s);
    boxes_->question(askDelete, true);
    click(u"btnExcluir"_s);
    QCOMPARE(parts().size(), 2U);

    auto *query = cadastro::open(u"frmOSConsulta"_s);
    cadastro::clickRow(query, 0);
    QCOMPARE(support::text(query, u"lblCodigo"_s), u"0001"_s);
    const auto *items = cadastro::list(query, u"lstPecas"_s);
    QCOMPARE(items->count(), 1);
    QCOMPARE(items->item(0).text(), u"0001"_s);
    QCOMPARE(items->item(0).subItem(3), u"OLEO 20W50"_s);
    QCOMPARE(items->item(0).subItem(5), u"61,00"_s);
}

TARVELO_TEST_MAIN(TstFrmCadaPecasGrava)
#include "tst_frmCadaPecas_grava.moc"
