#include "tests/estimates/alteraorcamento.h"

#include "support/otherprogram.h"

using namespace Qt::StringLiterals;
using support::click;
using support::key;
using support::type;

namespace
{

const QString badDescription = u"Descrição da Peça/Serviço Inválido"_s;

} // namespace

/// The window that alters an estimate: its items, each written at once.
class TstFrmOSOrcaAlteraItens : public AlteringTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void anItemAddedStaysWithoutConfirming();
    void everyKindStandsInTheOneList();
    void anItemIsOneWriteOfTheFile();
    void anItemRemovedIsGoneWithoutConfirming_data();
    void anItemRemovedIsGoneWithoutConfirming();
    void anItemChangedStaysWithoutConfirming();
    void unusableAnswersChangeNothing();
    void theHeaderWaitsForTheConfirmation();
    void everyChangeGoesToTheEstimateShown();
    void theDescriptionsAreKeptAndNoItemIsTouched();
    void refusesABadItem_data();
    void refusesABadItem();
    void aDescriptionOf200CharactersIsWrittenAnd201AreRefused();

    void nothingIsAddedWhileNoEstimateIsShown_data();
    void nothingIsAddedWhileNoEstimateIsShown();
    void aCodeThatIsBeingTypedLocksTheItems();
    void removingNeedsASelectedRow();

    void anEstimateDeletedMeanwhileTakesNoItem();
    void anEstimateDeletedMeanwhileLosesNoMore();
    void anEstimateDeletedMeanwhileChangesNoItem();
    void anItemDeletedMeanwhileIsTold();
    void anItemIsRemovedThatSomebodyHasRemoved();
    void aPartDeletedMeanwhileKeepsItsItem();

    void thePickerWritesToTheOrder();

private:
    QString add(const QString &part) const;
    void select(int row) const { cadastro::clickRow(form_, row); }
    void answerValue(const QString &value) const;
};

/// Adds one piece of a registered part.
QString TstFrmOSOrcaAlteraItens::add(const QString &part) const
{
    type(form_, u"txtCodPeca"_s, part);
    type(form_, u"txtQuantidade"_s, u"1,5"_s);
    click(form_, u"btnItemAdd"_s);
    return total();
}

/// The five boxes of a row, the last of them answered.
void TstFrmOSOrcaAlteraItens::answerValue(const QString &value) const
{
    boxes_->inputCancel(u"Código"_s)
        .inputCancel(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s)
        .inputCancel(u"Quantidade"_s)
        .inputCancel(u"Descrição"_s)
        .input(u"Valor Unitário"_s, value);
}

void TstFrmOSOrcaAlteraItens::anItemAddedStaysWithoutConfirming()
{
    openLoaded();
    AlteringTest::add(u"2"_s, u"PINTURA"_s, u"1.000,05"_s);
    QCOMPARE(shown(u"lblTotal"_s), u"2.070,60"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodPeca"_s);
    leave();
    QCOMPARE(items(), (Rows{{u"2"_s, u"2"_s, u"2"_s, u"OLEO"_s, u"27.5"_s, u"P"_s},
                            {u"3"_s, u"0"_s, u"1"_s, u"SOLDA"_s, u"15.5"_s, u"A"_s},
                            {u"4"_s, u"0"_s, u"2"_s, u"PINTURA"_s, u"1000.05"_s, u"A"_s}}));
    QCOMPARE(total(), u"2070.6"_s);
}

void TstFrmOSOrcaAlteraItens::everyKindStandsInTheOneList()
{
    program_->config(u"LayoutOS"_s, u"3"_s);
    program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    openLoaded();
    QCOMPARE(add(u"1"_s), u"115.88"_s);
    QCOMPARE(add(u"3"_s), u"190.88"_s);
    QCOMPARE(items().at(2), (QStringList{u"4"_s, u"1"_s, u"1.5"_s, u"FILTRO"_s, u"30.25"_s, u"P"_s}));
    QCOMPARE(items().at(3), (QStringList{u"5"_s, u"3"_s, u"1.5"_s, u"TROCA"_s, u"50"_s, u"S"_s}));
    QCOMPARE(cadastro::rowsOf(form_).size(), 4U);
}

void TstFrmOSOrcaAlteraItens::anItemIsOneWriteOfTheFile()
{
    openLoaded();
    type(form_, u"txtQuantidade"_s, u"1"_s);
    type(form_, u"txtDescricao"_s, u"PINTURA"_s);
    type(form_, u"txtValor"_s, u"10"_s);
    quint32 before = support::writesOf(core::DBDados->path());
    click(form_, u"btnItemAdd"_s);
    QCOMPARE(support::writesOf(core::DBDados->path()) - before, 1U);
    select(0);
    before = support::writesOf(core::DBDados->path());
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(support::writesOf(core::DBDados->path()) - before, 1U);
}

void TstFrmOSOrcaAlteraItens::anItemRemovedIsGoneWithoutConfirming_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Delete") << true;
}

void TstFrmOSOrcaAlteraItens::anItemRemovedIsGoneWithoutConfirming()
{
    QFETCH(bool, byKey);
    openLoaded();
    select(0);
    if (byKey) {
        key(form_, u"Lista"_s, Qt::Key_Delete);
    } else {
        click(form_, u"btnItemRemove"_s);
    }
    QCOMPARE(shown(u"lblTotal"_s), u"15,50"_s);
    leave();
    QCOMPARE(items(), (Rows{{u"3"_s, u"0"_s, u"1"_s, u"SOLDA"_s, u"15.5"_s, u"A"_s}}));
    QCOMPARE(total(), u"15.5"_s);
    QCOMPARE(itemsStored().size(), 2U);
}

void TstFrmOSOrcaAlteraItens::anItemChangedStaysWithoutConfirming()
{
    openLoaded();
    select(1);
    boxes_->title(u"Tarvelo"_s)
        .input(u"Código"_s, u"1"_s)
        .input(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, u"s"_s)
        .input(u"Quantidade"_s, u"3"_s)
        .input(u"Descrição"_s, u"solda elétrica"_s)
        .input(u"Valor Unitário"_s, u"1000,1"_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(cadastro::rowsOf(form_).at(1),
             (QStringList{u"0001"_s, u"S"_s, u"3"_s, u"SOLDA ELÉTRICA"_s, u"1.000,10"_s, u"3.000,30"_s}));
    QCOMPARE(shown(u"lblTotal"_s), u"3.055,30"_s);
    leave();
    QCOMPARE(items(), (Rows{{u"2"_s, u"2"_s, u"2"_s, u"OLEO"_s, u"27.5"_s, u"P"_s},
                            {u"3"_s, u"1"_s, u"3"_s, u"SOLDA ELÉTRICA"_s, u"1000.1"_s, u"S"_s}}));
    QCOMPARE(total(), u"3055.3"_s);
}

void TstFrmOSOrcaAlteraItens::unusableAnswersChangeNothing()
{
    openLoaded();
    const Rows before = itemsStored();
    select(1);
    boxes_->input(u"Código"_s, u"9999999999"_s)
        .input(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, u"K"_s)
        .input(u"Quantidade"_s, u"DOIS"_s)
        .input(u"Descrição"_s, QString(201, u'X'))
        .input(u"Valor Unitário"_s, u"1,,0"_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(itemsStored(), before);
    QCOMPARE(total(), u"70.5"_s);
}

void TstFrmOSOrcaAlteraItens::theHeaderWaitsForTheConfirmation()
{
    openLoaded();
    type(form_, u"txtObs"_s, u"OUTRA"_s);
    AlteringTest::add(u"1"_s, u"PINTURA"_s, u"10"_s);
    leave();
    QCOMPARE(program_->rows(u"SELECT Observacoes, Valor FROM Orcamento WHERE Codigo = 2"_s),
             (Rows{{u"RETORNA SEXTA"_s, u"80.5"_s}}));
}

void TstFrmOSOrcaAlteraItens::everyChangeGoesToTheEstimateShown()
{
    openLoaded();
    load(u"1"_s);
    AlteringTest::add(u"1"_s, u"PINTURA"_s, u"10"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM Orcamento"_s), (Rows{{u"1"_s, u"15"_s}, {u"2"_s, u"70.5"_s}}));
    QCOMPARE(items().size(), 2U);
    QCOMPARE(itemsStored().back().at(1), u"1"_s);
}

void TstFrmOSOrcaAlteraItens::theDescriptionsAreKeptAndNoItemIsTouched()
{
    openLoaded();
    const Rows before = itemsStored();
    type(form_, u"txtDescricao"_s, u"PINTURA"_s);
    click(form_, u"btnDescricaoAdd"_s);
    type(form_, u"cboMarca"_s, u"FUSCA"_s);
    click(form_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s),
             (Rows{{u"3"_s, u"PINTURA"_s}, {u"1"_s, u"FUSCA"_s}}));
    click(form_, u"btnDescricaoRemove"_s);
    click(form_, u"btnMarcaRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
    QCOMPARE(itemsStored(), before);
}

void TstFrmOSOrcaAlteraItens::refusesABadItem_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::newRow("quantity") << u",,"_s << u"SOLDA"_s << u"10"_s << u"Quantidade Inválida"_s;
    QTest::newRow("value") << u"1"_s << u"SOLDA"_s << u",,"_s << u"Valor Unitário Inválido"_s;
    QTest::newRow("no value") << u"1"_s << u"SOLDA"_s << QString() << u"Valor Unitário Inválido"_s;
    QTest::newRow("description") << u"1"_s << QString() << u"10"_s << badDescription;
}

void TstFrmOSOrcaAlteraItens::refusesABadItem()
{
    QFETCH(QString, quantity);
    QFETCH(QString, description);
    QFETCH(QString, value);
    QFETCH(QString, message);
    openLoaded();
    const Rows before = itemsStored();
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    AlteringTest::add(quantity, description, value);
    QCOMPARE(itemsStored(), before);
    QCOMPARE(total(), u"70.5"_s);
}

void TstFrmOSOrcaAlteraItens::aDescriptionOf200CharactersIsWrittenAnd201AreRefused()
{
    openLoaded();
    AlteringTest::add(u"1"_s, QString(200, u'X'), u"10"_s);
    QCOMPARE(items().back().at(3), QString(200, u'X'));
    boxes_->exclamation(badDescription);
    AlteringTest::add(u"1"_s, QString(201, u'X'), u"10"_s);
    QCOMPARE(items().size(), 3U);
    QCOMPARE(total(), u"80.5"_s);
}

// --- no estimate

void TstFrmOSOrcaAlteraItens::nothingIsAddedWhileNoEstimateIsShown_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("told");
    QTest::newRow("none yet") << QString() << QString();
    QTest::newRow("not there") << u"3"_s << notFound;
    QTest::newRow("no number") << u"ABC"_s << u"Código do Orçamento Inválido"_s;
}

void TstFrmOSOrcaAlteraItens::nothingIsAddedWhileNoEstimateIsShown()
{
    QFETCH(QString, code);
    QFETCH(QString, told);
    open();
    const Rows before = itemsStored();
    if (!told.isEmpty()) {
        boxes_->exclamation(told);
    }
    load(code);
    AlteringTest::add(u"1"_s, u"PINTURA"_s, u"10"_s);
    QVERIFY(itemsLocked());
    QVERIFY(cadastro::rowsOf(form_).empty());
    QCOMPARE(itemsStored(), before);
    QCOMPARE(shown(u"txtDescricao"_s), u"PINTURA"_s);
}

void TstFrmOSOrcaAlteraItens::aCodeThatIsBeingTypedLocksTheItems()
{
    openLoaded();
    select(0);
    QVERIFY(support::controlOf(form_, u"btnItemRemove"_s)->isEnabled());
    type(form_, u"txtCodOrcamento"_s, u"1"_s, false);
    QVERIFY(itemsLocked());
    QVERIFY(!support::controlOf(form_, u"btnItemRemove"_s)->isEnabled());
    key(form_, u"txtCodOrcamento"_s, Qt::Key_Return);
    QVERIFY(!itemsLocked());
    QCOMPARE(shown(u"txtNome"_s), u"OUTRO"_s);
}

void TstFrmOSOrcaAlteraItens::removingNeedsASelectedRow()
{
    openLoaded();
    QVERIFY(!support::controlOf(form_, u"btnItemRemove"_s)->isEnabled());
    key(form_, u"Lista"_s, Qt::Key_Delete);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(items().size(), 2U);
}

// --- what somebody else has deleted

void TstFrmOSOrcaAlteraItens::anEstimateDeletedMeanwhileTakesNoItem()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    program_->sql(u"DELETE * FROM OrcaPecas WHERE CodOrca = 2"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(notFound);
    AlteringTest::add(u"1"_s, u"PINTURA"_s, u"10"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 2U);
    QCOMPARE(shown(u"lblTotal"_s), u"70,50"_s);
    QCOMPARE(itemsStored().size(), 1U);
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM Orcamento"_s), (Rows{{u"1"_s, u"5"_s}}));
}

void TstFrmOSOrcaAlteraItens::anEstimateDeletedMeanwhileLosesNoMore()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    program_->sql(u"DELETE * FROM OrcaPecas WHERE CodOrca = 2"_s);
    select(0);
    boxes_->title(u"Tarvelo"_s).exclamation(notFound);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(itemsStored(), (Rows{{u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"LAVAGEM"_s, u"5"_s, u"A"_s}}));
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM Orcamento"_s), (Rows{{u"1"_s, u"5"_s}}));
}

void TstFrmOSOrcaAlteraItens::anEstimateDeletedMeanwhileChangesNoItem()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    const Rows before = itemsStored();
    select(0);
    answerValue(u"99"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(notFound);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(itemsStored(), before);
}

void TstFrmOSOrcaAlteraItens::anItemDeletedMeanwhileIsTold()
{
    openLoaded();
    program_->sql(u"DELETE * FROM OrcaPecas WHERE Codigo = 2"_s);
    const Rows before = itemsStored();
    select(0);
    answerValue(u"99"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Item Não Localizado."_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(itemsStored(), before);
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
    QCOMPARE(shown(u"lblTotal"_s), u"15,50"_s);
}

void TstFrmOSOrcaAlteraItens::anItemIsRemovedThatSomebodyHasRemoved()
{
    openLoaded();
    program_->sql(u"DELETE * FROM OrcaPecas WHERE Codigo = 2"_s);
    select(0);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(items(), (Rows{{u"3"_s, u"0"_s, u"1"_s, u"SOLDA"_s, u"15.5"_s, u"A"_s}}));
    QCOMPARE(total(), u"15.5"_s);
}

/// A line whose part is gone counts in units; the item keeps its code.
void TstFrmOSOrcaAlteraItens::aPartDeletedMeanwhileKeepsItsItem()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 2"_s);
    QCOMPARE(cadastro::rowsOf(form_).front().at(2), u"2,000"_s);
    select(0);
    answerValue(u"10"_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(items().front(), (QStringList{u"2"_s, u"2"_s, u"2"_s, u"OLEO"_s, u"10"_s, u"P"_s}));
    QCOMPARE(total(), u"35.5"_s);
    load(u"2"_s);
    QCOMPARE(cadastro::rowsOf(form_).front(),
             (QStringList{u"0002"_s, u"P"_s, u"02"_s, u"OLEO"_s, u"10,00"_s, u"20,00"_s}));
}

// --- the register of parts

/// Its picker hands back to the window that opens an order, whoever has called it.
void TstFrmOSOrcaAlteraItens::thePickerWritesToTheOrder()
{
    openLoaded();
    click(form_, u"btnPecaFind"_s);
    QCOMPARE(int{core::ModoChamada}, 5);
    auto *picker = ui::Forms::instance().find(u"frmCadaPecas"_s);
    QVERIFY(picker != nullptr);
    const QString code = cadastro::columnOf(picker).at(1);
    cadastro::doubleClickRow(picker, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSAbre"_s));
    QCOMPARE(support::text(ui::Forms::instance().find(u"frmOSAbre"_s), u"txtCodPeca"_s), code);
    QCOMPARE(shown(u"txtCodPeca"_s), QString());
    QVERIFY(cadastro::isOpen(window));
}

TARVELO_TEST_MAIN(TstFrmOSOrcaAlteraItens)
#include "tst_frmOSOrcaAltera_itens.moc"
