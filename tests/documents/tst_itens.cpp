#include "tests/workorders/janelaos.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QStringList listNames{u"Lista"_s, u"lstServicos"_s, u"lstTercerizados"_s, u"lstMaterial"_s};
const QString promptCode = u"Código"_s;
const QString promptType = u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s;
const QString promptQuantity = u"Quantidade"_s;
const QString promptText = u"Descrição"_s;
const QString promptPrice = u"Valor Unitário"_s;
const QStringList promptsOfJobs{
    u"Digite o Valor de Funilaria"_s, u"Digite o Valor de Pintura"_s,  u"Digite o Valor de Tapeceiro/Vidraceiro"_s,
    u"Digite o Valor de Elétrica"_s,  u"Digite o Valor de Mecânica"_s, u"Digite o Valor de Serv. Tercerizados"_s};

} // namespace

/// The entry row, the lists and the totals, as the window that opens an order holds them.
class TstItens : public OrderWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theListsHaveTheirColumns();
    void tabsFollowTheLayout_data();
    void tabsFollowTheLayout();
    void theVisibleTabDecidesNotTheSetting();

    void findsTheItemOnLeavingTheCode();
    void anUnknownCodeIsRefused();
    void anEmptyCodeAsksNothing();
    void anApostropheInTheCodeIsARunTimeError();
    void formatsTheQuantityOnLeaving_data();
    void formatsTheQuantityOnLeaving();
    void anEmptyQuantityIsOfferedAsOne();
    void formatsTheValueOnLeaving();
    void quantityAndValueTakeNumbersOnly_data();
    void quantityAndValueTakeNumbersOnly();
    void selectsTheWholeTextOnEntry_data();
    void selectsTheWholeTextOnEntry();
    void completesWhatIsTypedButNotARegisteredName();
    void keepsTheListOfDescriptions();

    void refusesAnItem_data();
    void refusesAnItem();
    void takesADescriptionOf200Characters();
    void emptiesTheEntryRowForTheNextItem();
    void compactLayoutPutsAllInOneList();
    void fullLayoutPutsAnItemInItsList();
    void fullLayoutPutsAOneOffWhereTheClerkStands_data();
    void fullLayoutPutsAOneOffWhereTheClerkStands();
    void anItemOfNoKindAddsNothingAndEmptiesTheRow();
    void materialTakesRegisteredItemsWithoutValue_data();
    void materialTakesRegisteredItemsWithoutValue();
    void materialRefusesAOneOff_data();
    void materialRefusesAOneOff();

    void addsUpByListInTheFullLayout();
    void addsUpByTypeInTheCompactLayout();
    void removesTheSelectedRow();
    void removesNothingWithoutASelection();
    void removesNothingFromTheMaterial();
    void clearingOneListZeroesAllTotals();
    void clearsTheListOnTheActiveTabOnly_data();
    void clearsTheListOnTheActiveTabOnly();

    void deleteRemovesTheRow();
    void insertEditsTheRow();
    void insertOffersThePresentValues();
    void anUnusableAnswerKeepsTheColumn_data();
    void anUnusableAnswerKeepsTheColumn();
    void keysOfTheListActOnPartsOnly();

    void theJobButtonNeedsItsSetting_data();
    void theJobButtonNeedsItsSetting();
    void addsTheJobValues();
    void skipsAJobWithoutANumber();
    void jobValuesGoToTheListOfTheActiveTab();
    void jobValuesAreRefusedAsMaterial();
};

void TstItens::theListsHaveTheirColumns()
{
    open(full);
    const QStringList charged{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V. Unit."_s, u"V. Total"_s};
    const QStringList material{u"Código"_s, u"Quantidade"_s, u"Descrição"_s};
    for (const QString &name : listNames) {
        QStringList titles;
        for (int column = 0; column < list(name)->columnCount(); ++column) {
            titles << list(name)->model()->headerData(column, Qt::Horizontal).toString();
        }
        QCOMPARE(titles, name == u"lstMaterial" ? material : charged);
    }
    QCOMPARE(totals(), QStringList(4, u"0,00"_s));
}

void TstItens::tabsFollowTheLayout_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<QString>("caption");
    QTest::newRow("1") << u"1"_s << false << u"T.A."_s;
    QTest::newRow("2") << u"2"_s << false << u"T.A."_s;
    QTest::newRow("3") << u"3"_s << true << u"T.T.:"_s;
    QTest::newRow("no number") << u"X"_s << false << u"T.A."_s;
}

void TstItens::tabsFollowTheLayout()
{
    QFETCH(QString, layout);
    QFETCH(bool, visible);
    open(layout);
    const auto *tabs = control<QTabWidget>(form_, u"tabItems"_s);
    QVERIFY(tabs->isTabVisible(0) && tabs->isTabVisible(3));
    QCOMPARE(tabs->isTabVisible(1), visible);
    QCOMPARE(tabs->isTabVisible(2), visible);
    QTEST(shown(u"Rotulos_37"_s), "caption");
}

void TstItens::theVisibleTabDecidesNotTheSetting()
{
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    open(full);
    program_->config(u"LayoutOS"_s, compact);
    addRegistered(service);
    QCOMPARE(rows(u"lstServicos"_s).size(), 1U);
    QCOMPARE(totals(), (QStringList{u"50,00"_s, u"0,00"_s, u"50,00"_s, u"0,00"_s}));
}

void TstItens::findsTheItemOnLeavingTheCode()
{
    program_->part(u"OLEO 20W50"_s, u"P"_s, u"1.030,50"_s, false, 2);
    program_->sql(u"UPDATE Pecas SET CodExterno = 'OL-20' WHERE Codigo = 1"_s);
    open(compact);
    type(form_, u"txtCodPeca"_s, u"ol-20"_s);

    QCOMPARE(shown(u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(shown(u"txtDescricao"_s), u"OLEO 20W50"_s);
    QCOMPARE(shown(u"txtValor"_s), u"1.030,50"_s);
    QCOMPARE(ui::tagOf(at(u"txtCodPeca"_s)), u"P"_s);
    QCOMPARE(ui::tagOf(at(u"txtQuantidade"_s)), u"2"_s);
    QVERIFY(at(u"txtQuantidade"_s)->hasFocus());
    QCOMPARE(shown(u"txtQuantidade"_s), u"1"_s);
}

void TstItens::anUnknownCodeIsRefused()
{
    open(compact);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código não Localizado"_s);
    type(form_, u"txtCodPeca"_s, u"77"_s);

    auto *code = control<QLineEdit>(form_, u"txtCodPeca"_s);
    QTRY_VERIFY(code->hasFocus());
    QCOMPARE(code->selectedText(), u"77"_s);
}

void TstItens::anEmptyCodeAsksNothing()
{
    program_->part(u"OLEO"_s, u"P"_s, u"1,00"_s);
    open(compact);
    type(form_, u"txtCodPeca"_s, QString());
    QCOMPARE(shown(u"txtDescricao"_s), QString());
}

void TstItens::anApostropheInTheCodeIsARunTimeError()
{
    open(compact);
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    boxes_->critical(u"Erro em tempo de execução '3075':\n\n"_s + [] {
        try {
            core::DBDados->OpenRecordset(u"SELECT * FROM Pecas WHERE Codigo = 0 OR CodExterno = 'D'AGUA'"_s);
        } catch (const runtime::RuntimeError &error) {
            return error.description();
        }
        return QString();
    }());
    type(form_, u"txtCodPeca"_s, u"D'AGUA"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
}

void TstItens::formatsTheQuantityOnLeaving_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one-off piece") << -1 << u"2"_s << u"02"_s;
    QTest::newRow("one-off of many") << -1 << u"150"_s << u"150"_s;
    QTest::newRow("one-off with a comma") << -1 << u"1,5"_s << u"1,500"_s;
    QTest::newRow("one-off with an idle comma") << -1 << u"2,0"_s << u"02"_s;
    QTest::newRow("unit") << 0 << u"2"_s << u"02"_s;
    QTest::newRow("fraction of a unit") << 0 << u"2,5"_s << u"2,500"_s;
    QTest::newRow("kilos") << 1 << u"2"_s << u"2,000"_s;
    QTest::newRow("litres") << 2 << u"1,25"_s << u"1,250"_s;
    QTest::newRow("thousand litres") << 2 << u"1000"_s << u"1.000,000"_s;
    QTest::newRow("gallons") << 3 << u"4"_s << u"04"_s;
    QTest::newRow("packets") << 4 << u"4"_s << u"04"_s;
    QTest::newRow("no number stays for the check") << 0 << u"1,,2"_s << u"1,,2"_s;
}

void TstItens::formatsTheQuantityOnLeaving()
{
    QFETCH(int, unit);
    QFETCH(QString, typed);
    if (unit >= 0) {
        program_->part(u"ITEM"_s, u"P"_s, u"1,00"_s, false, unit);
    }
    open(compact);
    type(form_, u"txtCodPeca"_s, unit >= 0 ? u"1"_s : QString());
    type(form_, u"txtQuantidade"_s, typed);
    QTEST(shown(u"txtQuantidade"_s), "shown");
}

void TstItens::anEmptyQuantityIsOfferedAsOne()
{
    open(compact);
    auto *quantity = control<QLineEdit>(form_, u"txtQuantidade"_s);
    quantity->setFocus();
    QTRY_COMPARE(quantity->text(), u"1"_s);
    QCOMPARE(quantity->selectedText(), u"1"_s);
    key(form_, u"txtQuantidade"_s, Qt::Key_Tab);
    QCOMPARE(quantity->text(), u"01"_s);
    quantity->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(quantity->text(), u"01"_s);
}

void TstItens::formatsTheValueOnLeaving()
{
    open(compact);
    type(form_, u"txtValor"_s, u"1234,5"_s);
    QCOMPARE(shown(u"txtValor"_s), u"1.234,50"_s);
    type(form_, u"txtValor"_s, u",,"_s);
    QCOMPARE(shown(u"txtValor"_s), u",,"_s);
}

void TstItens::quantityAndValueTakeNumbersOnly_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("quantity") << u"txtQuantidade"_s;
    QTest::newRow("value") << u"txtValor"_s;
}

void TstItens::quantityAndValueTakeNumbersOnly()
{
    QFETCH(QString, field);
    open(compact);
    type(form_, field, u"a1-2 b,5x"_s, false);
    QCOMPARE(shown(field), u"12,5"_s);
}

void TstItens::selectsTheWholeTextOnEntry_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("vehicle") << u"txtCodVeiculo"_s;
    QTest::newRow("item") << u"txtCodPeca"_s;
    QTest::newRow("value") << u"txtValor"_s;
}

void TstItens::selectsTheWholeTextOnEntry()
{
    QFETCH(QString, field);
    open(compact);
    at(u"txtKm"_s)->setFocus();
    auto *edit = control<QLineEdit>(form_, field);
    edit->setText(u"123"_s);
    edit->setFocus();
    QTRY_COMPARE(edit->selectedText(), u"123"_s);
}

void TstItens::completesWhatIsTypedButNotARegisteredName()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (3, 'LAVAGEM COMPLETA')"_s);
    program_->part(u"LAVAGEM"_s, u"S"_s, u"30,00"_s);
    core::AutoCompletar = true;
    open(compact);
    type(form_, u"txtDescricao"_s, u"lav"_s, false);
    QTRY_COMPARE(shown(u"txtDescricao"_s), u"LAVAGEM COMPLETA"_s);

    type(form_, u"txtCodPeca"_s, u"1"_s);
    QCOMPARE(shown(u"txtDescricao"_s), u"LAVAGEM"_s);
}

void TstItens::keepsTheListOfDescriptions()
{
    open(compact);
    add(u"1"_s, u"OUTRO"_s, u"1"_s);
    type(form_, u"txtDescricao"_s, u"LAVAGEM"_s);
    click(form_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"3"_s, u"LAVAGEM"_s}}));
    QCOMPARE(shown(u"txtDescricao"_s), u"LAVAGEM"_s);

    click(form_, u"btnMarcaRemove"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), Rows());
    QCOMPARE(shown(u"txtDescricao"_s), QString());
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
}

void TstItens::refusesAnItem_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString quantity = u"Quantidade Inválida"_s;
    const QString value = u"Valor Unitário Inválido"_s;
    const QString description = u"Descrição da Peça/Serviço Inválido"_s;
    QTest::newRow("no quantity") << QString() << u"1,00"_s << u"X"_s << quantity << u"txtQuantidade"_s;
    QTest::newRow("bad quantity") << u"1,,2"_s << u"1,00"_s << u"X"_s << quantity << u"txtQuantidade"_s;
    QTest::newRow("no value") << u"01"_s << QString() << u"X"_s << value << u"txtValor"_s;
    QTest::newRow("bad value") << u"01"_s << u",,"_s << u"X"_s << value << u"txtValor"_s;
    QTest::newRow("more than a quantity") << QString(60, u'9') << u"1,00"_s << u"X"_s << quantity << u"txtQuantidade"_s;
    QTest::newRow("more than a value") << u"01"_s << QString(60, u'9') << u"X"_s << value << u"txtValor"_s;
    QTest::newRow("no description") << u"01"_s << u"1,00"_s << QString() << description << u"txtDescricao"_s;
    QTest::newRow("201 characters") << u"01"_s << u"1,00"_s << QString(201, u'X') << description << u"txtDescricao"_s;
    QTest::newRow("quantity first") << QString() << QString() << QString() << quantity << u"txtQuantidade"_s;
    QTest::newRow("value before description") << u"01"_s << QString() << QString() << value << u"txtValor"_s;
}

void TstItens::refusesAnItem()
{
    QFETCH(QString, quantity);
    QFETCH(QString, value);
    QFETCH(QString, description);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    open(compact);
    ui::setTextOf(at(u"txtQuantidade"_s), quantity);
    ui::setTextOf(at(u"txtValor"_s), value);
    ui::setTextOf(at(u"txtDescricao"_s), description);
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    click(form_, u"btnItemAdd"_s);

    QTRY_VERIFY(at(focus)->hasFocus());
    QCOMPARE(rows(u"Lista"_s), Rows());
    QCOMPARE(shown(u"txtDescricao"_s), description);
    QCOMPARE(shown(u"txtValor"_s), value);
}

void TstItens::takesADescriptionOf200Characters()
{
    open(compact);
    const QString longest(200, u'X');
    ui::setTextOf(at(u"txtDescricao"_s), longest);
    type(form_, u"txtQuantidade"_s, u"1"_s);
    type(form_, u"txtValor"_s, u"1"_s);
    click(form_, u"btnItemAdd"_s);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0000"_s, u"A"_s, u"01"_s, longest, u"1,00"_s, u"1,00"_s}}));
}

void TstItens::emptiesTheEntryRowForTheNextItem()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s, false, 2);
    open(compact);
    addRegistered(part, u"2"_s);
    for (const QString &name : {u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtDescricao"_s, u"txtValor"_s}) {
        QCOMPARE(shown(name), QString());
        QCOMPARE(ui::tagOf(at(name)), QString());
    }
    QVERIFY(at(u"txtCodPeca"_s)->hasFocus());
}

void TstItens::compactLayoutPutsAllInOneList()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s, false, 2);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    open(compact);
    addRegistered(part, u"3,5"_s);
    addRegistered(service);
    add(u"2"_s, u"lavagem"_s, u"15"_s);

    const Rows expected{{u"0001"_s, u"P"_s, u"3,500"_s, u"OLEO"_s, u"27,55"_s, u"96,43"_s},
                        {u"0002"_s, u"S"_s, u"01"_s, u"TROCA"_s, u"50,00"_s, u"50,00"_s},
                        {u"0000"_s, u"A"_s, u"02"_s, u"LAVAGEM"_s, u"15,00"_s, u"30,00"_s}};
    QCOMPARE(rows(u"Lista"_s), expected);
}

void TstItens::fullLayoutPutsAnItemInItsList()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    open(full);
    addRegistered(service);
    QCOMPARE(control<QTabWidget>(form_, u"tabItems"_s)->currentIndex(), 0);
    goTo(2);
    addRegistered(part);

    QCOMPARE(rows(u"lstServicos"_s), (Rows{{u"0002"_s, u"S"_s, u"01"_s, u"TROCA"_s, u"50,00"_s, u"50,00"_s}}));
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0001"_s, u"P"_s, u"01"_s, u"OLEO"_s, u"30,00"_s, u"30,00"_s}}));
    QCOMPARE(rows(u"lstTercerizados"_s), Rows());
}

void TstItens::fullLayoutPutsAOneOffWhereTheClerkStands_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("parts") << 0;
    QTest::newRow("services") << 1;
    QTest::newRow("outsourced") << 2;
}

void TstItens::fullLayoutPutsAOneOffWhereTheClerkStands()
{
    QFETCH(int, tab);
    open(full);
    goTo(tab);
    add(u"1"_s, u"SOLDA"_s, u"12,5"_s);
    const Rows row{{u"0000"_s, u"A"_s, u"01"_s, u"SOLDA"_s, u"12,50"_s, u"12,50"_s}};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(rows(listNames.at(i)), i == tab ? row : Rows());
    }
}

void TstItens::anItemOfNoKindAddsNothingAndEmptiesTheRow()
{
    const qint32 odd = program_->part(u"ANTIGO"_s, u"X"_s, u"30,00"_s);
    open(full);
    addRegistered(odd);
    for (const QString &name : listNames) {
        QCOMPARE(list(name)->count(), 0);
    }
    QCOMPARE(shown(u"txtCodPeca"_s), QString());
    QCOMPARE(shown(u"txtDescricao"_s), QString());
}

void TstItens::materialTakesRegisteredItemsWithoutValue_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("full") << full;
    QTest::newRow("compact") << compact;
}

void TstItens::materialTakesRegisteredItemsWithoutValue()
{
    QFETCH(QString, layout);
    const qint32 part = program_->part(u"GRAXA"_s, u"P"_s, u"30,00"_s, false, 1);
    open(layout);
    goTo(3);
    addRegistered(part, u"0,5"_s);
    QCOMPARE(rows(u"lstMaterial"_s), (Rows{{u"0001"_s, u"0,500"_s, u"GRAXA"_s}}));
    QCOMPARE(rows(u"Lista"_s), Rows());
    QCOMPARE(totals(), QStringList(4, u"0,00"_s));
}

void TstItens::materialRefusesAOneOff_data()
{
    materialTakesRegisteredItemsWithoutValue_data();
}

void TstItens::materialRefusesAOneOff()
{
    QFETCH(QString, layout);
    open(layout);
    goTo(3);
    boxes_->exclamation(u"Somente Peças podem ser lançado aqui"_s);
    add(u"1"_s, u"GRAXA"_s, u"1"_s);
    QTRY_VERIFY(at(u"txtCodPeca"_s)->hasFocus());
    QCOMPARE(rows(u"lstMaterial"_s), Rows());
    QCOMPARE(shown(u"txtDescricao"_s), u"GRAXA"_s);
}

void TstItens::addsUpByListInTheFullLayout()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"30,10"_s);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"1.050,00"_s);
    open(full);
    addRegistered(part, u"2"_s);
    add(u"1"_s, u"AVULSA"_s, u"0,05"_s);
    addRegistered(service);
    goTo(1);
    add(u"1"_s, u"SOLDA"_s, u"9,99"_s);
    goTo(2);
    add(u"1"_s, u"GUINCHO"_s, u"200"_s);
    QCOMPARE(totals(), (QStringList{u"1.320,24"_s, u"60,25"_s, u"1.059,99"_s, u"200,00"_s}));
}

void TstItens::addsUpByTypeInTheCompactLayout()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"30,10"_s);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"1.050,00"_s);
    const qint32 odd = program_->part(u"ANTIGO"_s, u"X"_s, u"7,00"_s);
    open(compact);
    addRegistered(part, u"2"_s);
    addRegistered(service);
    add(u"1"_s, u"GUINCHO"_s, u"200"_s);
    addRegistered(odd);
    QCOMPARE(totals(), (QStringList{u"1.317,20"_s, u"60,20"_s, u"1.050,00"_s, u"200,00"_s}));
}

void TstItens::removesTheSelectedRow()
{
    open(full);
    add(u"1"_s, u"A"_s, u"10"_s);
    add(u"1"_s, u"B"_s, u"20"_s);
    list(u"Lista"_s)->selectRow(0);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"B"_s, u"20,00"_s, u"20,00"_s}}));
    QCOMPARE(totals(), (QStringList{u"20,00"_s, u"20,00"_s, u"0,00"_s, u"0,00"_s}));
}

void TstItens::removesNothingWithoutASelection()
{
    open(full);
    add(u"1"_s, u"A"_s, u"10"_s);
    list(u"Lista"_s)->clearSelection();
    list(u"Lista"_s)->setCurrentIndex({});
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
    QCOMPARE(shown(u"lblTotal"_s), u"10,00"_s);
}

void TstItens::removesNothingFromTheMaterial()
{
    const qint32 part = program_->part(u"GRAXA"_s, u"P"_s, u"30,00"_s);
    open(full);
    goTo(3);
    addRegistered(part);
    list(u"lstMaterial"_s)->selectRow(0);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(rows(u"lstMaterial"_s).size(), 1U);
}

void TstItens::clearingOneListZeroesAllTotals()
{
    open(full);
    add(u"1"_s, u"A"_s, u"10"_s);
    goTo(1);
    add(u"1"_s, u"B"_s, u"20"_s);
    click(form_, u"btnLimpa"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
    QCOMPARE(rows(u"lstServicos"_s), Rows());
    QCOMPARE(totals(), QStringList(4, u"0,00"_s));

    add(u"1"_s, u"C"_s, u"5"_s);
    QCOMPARE(totals(), (QStringList{u"15,00"_s, u"10,00"_s, u"5,00"_s, u"0,00"_s}));
}

void TstItens::clearsTheListOnTheActiveTabOnly_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("parts") << 0;
    QTest::newRow("services") << 1;
    QTest::newRow("outsourced") << 2;
    QTest::newRow("material") << 3;
}

void TstItens::clearsTheListOnTheActiveTabOnly()
{
    QFETCH(int, tab);
    open(full);
    for (const QString &name : listNames) {
        list(name)->addItem(u"0001"_s);
    }
    goTo(tab);
    click(form_, u"btnLimpa"_s);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(list(listNames.at(i))->count(), i == tab ? 0 : 1);
    }
}

void TstItens::deleteRemovesTheRow()
{
    open(compact);
    add(u"1"_s, u"A"_s, u"10"_s);
    add(u"1"_s, u"B"_s, u"20"_s);
    list(u"Lista"_s)->selectRow(1);
    key(form_, u"Lista"_s, Qt::Key_Delete);
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
    QCOMPARE(totals(), (QStringList{u"10,00"_s, u"0,00"_s, u"0,00"_s, u"10,00"_s}));
}

void TstItens::insertEditsTheRow()
{
    open(compact);
    add(u"1"_s, u"A"_s, u"10"_s);
    list(u"Lista"_s)->selectRow(0);
    boxes_->title(u"Tarvelo"_s)
        .input(promptCode, u"12"_s)
        .input(promptType, u"s"_s)
        .input(promptQuantity, u"2,5"_s)
        .input(promptText, u"troca de óleo"_s)
        .input(promptPrice, u"1234,567"_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);

    const Rows expected{{u"0012"_s, u"S"_s, u"2,5"_s, u"TROCA DE ÓLEO"_s, u"1.234,57"_s, u"3.086,43"_s}};
    QCOMPARE(rows(u"Lista"_s), expected);
    QCOMPARE(totals(), (QStringList{u"3.086,43"_s, u"0,00"_s, u"3.086,43"_s, u"0,00"_s}));
}

void TstItens::insertOffersThePresentValues()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s, false, 2);
    open(compact);
    addRegistered(part, u"3,5"_s);
    const Rows before = rows(u"Lista"_s);
    list(u"Lista"_s)->selectRow(0);
    boxes_->inputKeep(promptCode, u"0001"_s)
        .inputKeep(promptType, u"P"_s)
        .inputKeep(promptQuantity, u"3,500"_s)
        .inputKeep(promptText, u"OLEO"_s)
        .inputKeep(promptPrice, u"27,55"_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(rows(u"Lista"_s), before);
}

void TstItens::anUnusableAnswerKeepsTheColumn_data()
{
    QTest::addColumn<QStringList>("answers");
    QTest::newRow("cancelled") << QStringList();
    QTest::newRow("empty") << QStringList(5, QString());
    QTest::newRow("unusable") << QStringList{u"ABC"_s, u"X"_s, u"DOIS"_s, QString(), u"1,,0"_s};
    QTest::newRow("more than an item holds")
        << QStringList{u"9999999999"_s, QString(), u"1e60"_s, QString(201, u'A'), u"1e60"_s};
    QTest::newRow("two letters of type") << QStringList{QString(), u"PS"_s, QString(), QString(), QString()};
}

void TstItens::anUnusableAnswerKeepsTheColumn()
{
    QFETCH(QStringList, answers);
    open(compact);
    add(u"2"_s, u"LAVAGEM"_s, u"15"_s);
    const Rows before = rows(u"Lista"_s);
    list(u"Lista"_s)->selectRow(0);
    const QStringList prompts{promptCode, promptType, promptQuantity, promptText, promptPrice};
    for (int i = 0; i < prompts.size(); ++i) {
        answers.isEmpty() ? boxes_->inputCancel(prompts.at(i)) : boxes_->input(prompts.at(i), answers.at(i));
    }
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(rows(u"Lista"_s), before);
    QCOMPARE(shown(u"lblTotal"_s), u"30,00"_s);
}

void TstItens::keysOfTheListActOnPartsOnly()
{
    open(full);
    goTo(1);
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    list(u"lstServicos"_s)->selectRow(0);
    key(form_, u"lstServicos"_s, Qt::Key_Delete);
    key(form_, u"lstServicos"_s, Qt::Key_Insert);
    QCOMPARE(rows(u"lstServicos"_s).size(), 1U);
}

void TstItens::theJobButtonNeedsItsSetting_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("visible");
    QTest::newRow("1-1") << u"1-1"_s << true;
    QTest::newRow("2-2") << u"2-2"_s << false;
    QTest::newRow("none") << QString() << false;
}

void TstItens::theJobButtonNeedsItsSetting()
{
    QFETCH(QString, setting);
    program_->config(u"Personalizacao"_s, setting);
    open(compact);
    QTEST(at(u"btnAdicionar"_s)->isVisible(), "visible");
}

void TstItens::addsTheJobValues()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open(compact);
    boxes_->title(u"Tarvelo"_s);
    for (int i = 0; i < promptsOfJobs.size(); ++i) {
        boxes_->input(promptsOfJobs.at(i), QString::number(i + 1) + u"00,555"_s);
    }
    click(form_, u"btnAdicionar"_s);

    const QStringList names{u"FUNILARIA"_s, u"PINTURA"_s,  u"TAP./VID."_s,
                            u"ELÉTRICA"_s,  u"MECÂNICA"_s, u"SERVIÇOS TERCERIZADOS"_s};
    Rows expected;
    for (int i = 0; i < names.size(); ++i) {
        const QString value = QString::number(i + 1) + u"00,56"_s;
        expected.push_back({u"0000"_s, u"A"_s, u"01"_s, names.at(i), value, value});
    }
    QCOMPARE(rows(u"Lista"_s), expected);
    QCOMPARE(totals(), (QStringList{u"2.103,36"_s, u"0,00"_s, u"0,00"_s, u"2.103,36"_s}));
}

void TstItens::skipsAJobWithoutANumber()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open(compact);
    boxes_->inputCancel(promptsOfJobs.at(0))
        .input(promptsOfJobs.at(1), u"ABC"_s)
        .input(promptsOfJobs.at(2), QString())
        .input(promptsOfJobs.at(3), u"80"_s)
        .inputCancel(promptsOfJobs.at(4))
        .inputCancel(promptsOfJobs.at(5));
    click(form_, u"btnAdicionar"_s);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"ELÉTRICA"_s, u"80,00"_s, u"80,00"_s}}));
}

void TstItens::jobValuesGoToTheListOfTheActiveTab()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open(full);
    goTo(2);
    for (const QString &prompt : promptsOfJobs) {
        boxes_->input(prompt, u"10"_s);
    }
    click(form_, u"btnAdicionar"_s);
    QCOMPARE(rows(u"lstTercerizados"_s).size(), 6U);
    QCOMPARE(totals(), (QStringList{u"60,00"_s, u"0,00"_s, u"0,00"_s, u"60,00"_s}));
}

void TstItens::jobValuesAreRefusedAsMaterial()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open(full);
    goTo(3);
    boxes_->input(promptsOfJobs.at(0), u"10"_s).exclamation(u"Somente Peças podem ser lançado aqui"_s);
    for (int i = 1; i < promptsOfJobs.size(); ++i) {
        boxes_->inputCancel(promptsOfJobs.at(i));
    }
    click(form_, u"btnAdicionar"_s);
    QCOMPARE(rows(u"lstMaterial"_s), Rows());
}

TARVELO_TEST_MAIN(TstItens)
#include "tst_itens.moc"
