#include "tests/stock/janelaentrada.h"

#include "platform/ui/application.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::text;
using support::type;

/// The lines of a note in the window that receives parts: added, summed, removed, told of.
class TstFrmMoviEntradaPecaLinhas : public entrada::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void refusesABadLine_data();
    void refusesABadLine();
    void aPartBecomesALine();
    void aFreeLineHasNoCode();
    void theProductIsOneOf32Bits_data();
    void theProductIsOneOf32Bits();
    void theTotalAddsIn32Bits();
    void theNewRowIsScrolledIntoView();
    void aLineIsRemoved_data();
    void aLineIsRemoved();
    void nothingIsRemovedWithoutARow();
    void removingAllLinesBringsTheTotalBack_data();
    void removingAllLinesBringsTheTotalBack();
    void clearingTheListLeavesTheFields();
    void clearingTheFieldsLeavesTheList();
    void aDoubleClickTellsOfThePart();
    void aDoubleClickOnAFreeLineOpensNothing();
};

void TstFrmMoviEntradaPecaLinhas::refusesABadLine_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString name = u"FRETE"_s;
    const QString badQuantity = u"Quantidade Inválida"_s;
    const QString badValue = u"Valor Unitário Inválido"_s;
    const QString badName = u"Descrição da Peça/Serviço Inválido"_s;
    QTest::newRow("quantity") << u"DEZ"_s << u"1"_s << name << badQuantity << u"txtQuantidade"_s;
    QTest::newRow("a quantity that no amount can be")
        << u"1E39"_s << u"1"_s << name << badQuantity << u"txtQuantidade"_s;
    QTest::newRow("no value") << u"1"_s << QString() << name << badValue << u"txtValor"_s;
    QTest::newRow("value") << u"1"_s << u"CARO"_s << name << badValue << u"txtValor"_s;
    QTest::newRow("a value that no amount can be") << u"1"_s << u"1E39"_s << name << badValue << u"txtValor"_s;
    QTest::newRow("no description") << u"1"_s << u"1"_s << QString() << badName << u"txtDescricao"_s;
    QTest::newRow("a long description") << u"1"_s << u"1"_s << QString(201, u'X') << badName << u"txtDescricao"_s;
    QTest::newRow("all, the quantity first") << u"DEZ"_s << QString() << QString() << badQuantity << u"txtQuantidade"_s;
    QTest::newRow("then the value") << u"1"_s << QString() << QString() << badValue << u"txtValor"_s;
}

void TstFrmMoviEntradaPecaLinhas::refusesABadLine()
{
    QFETCH(QString, quantity);
    QFETCH(QString, value);
    QFETCH(QString, description);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    open();
    type(window_, u"txtQuantidade"_s, quantity);
    type(window_, u"txtDescricao"_s, description);
    type(window_, u"txtValor"_s, value);
    boxes_->exclamation(message);
    click(window_, u"btnItemAdd"_s);
    QTRY_VERIFY(hasFocus(focus));
    QCOMPARE(list()->count(), 0);
    QCOMPARE(total(), u"0,00"_s);
}

void TstFrmMoviEntradaPecaLinhas::aPartBecomesALine()
{
    open();
    part(u"2"_s);
    type(window_, u"txtQuantidade"_s, u"2,5"_s);
    type(window_, u"txtValor"_s, u"20"_s);
    click(window_, u"btnItemAdd"_s);
    QCOMPARE(shown(), (QStringList{u"0002|P|2,500|OLEO|20,00|50,00"_s}));
    QVERIFY(list()->item(0).smallIcon() != 0);
    QCOMPARE(total(), u"50,00"_s);
    for (const QString &name : {u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtValor"_s}) {
        QVERIFY2(text(window_, name).isEmpty(), qPrintable(name));
    }
    QCOMPARE(text(window_, u"txtDescricao"_s), u"OLEO"_s);
    QVERIFY(hasFocus(u"txtCodPeca"_s));
}

void TstFrmMoviEntradaPecaLinhas::aFreeLineHasNoCode()
{
    open();
    add({}, u"1"_s, u"35,5"_s, u"frete"_s);
    QCOMPARE(shown(), (QStringList{u"0000|A|01|FRETE|35,50|35,50"_s}));
    QCOMPARE(list()->item(0).smallIcon(), 0);
}

void TstFrmMoviEntradaPecaLinhas::theProductIsOneOf32Bits_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("seven digits") << u"1"_s << u"1234567,89"_s << u"0000|A|01|FRETE|1.234.567,89|1.234.568,00"_s;
    QTest::newRow("a cost of three places") << u"1000"_s << u"0,125"_s << u"0000|A|1000|FRETE|0,13|125,00"_s;
    QTest::newRow("taken back") << u"-2"_s << u"10"_s << u"0000|A|-02|FRETE|10,00|-20,00"_s;
}

void TstFrmMoviEntradaPecaLinhas::theProductIsOneOf32Bits()
{
    QFETCH(QString, quantity);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    open();
    add({}, quantity, value, u"FRETE"_s);
    QCOMPARE(entrada::Case::shown(), QStringList{shown});
}

void TstFrmMoviEntradaPecaLinhas::theTotalAddsIn32Bits()
{
    open();
    add({}, u"1"_s, u"123456"_s, u"CARRO"_s);
    add({}, u"1"_s, u"0,04"_s, u"BALA"_s);
    QCOMPARE(total(), u"123.456,00"_s);
    add({}, u"1"_s, u"0,06"_s, u"BALA"_s);
    QCOMPARE(total(), u"123.456,10"_s);
}

void TstFrmMoviEntradaPecaLinhas::theNewRowIsScrolledIntoView()
{
    open();
    for (int line = 1; line <= 40; ++line) {
        add({}, u"1"_s, u"1"_s, u"ITEM %1"_s.arg(line));
    }
    const QRect place = list()->visualRect(list()->model()->index(39, 0));
    QVERIFY(list()->viewport()->rect().contains(place));
    QCOMPARE(total(), u"40,00"_s);
}

void TstFrmMoviEntradaPecaLinhas::aLineIsRemoved_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Delete") << true;
}

void TstFrmMoviEntradaPecaLinhas::aLineIsRemoved()
{
    QFETCH(bool, byKey);
    open();
    add(u"1"_s, u"2"_s);
    add(u"2"_s, u"1"_s);
    QCOMPARE(total(), u"2.086,00"_s);
    cadastro::clickRow(window_, 0);
    if (byKey) {
        support::key(window_, u"Lista"_s, Qt::Key_Delete);
    } else {
        click(window_, u"btnItemRemove"_s);
    }
    QCOMPARE(shown(), (QStringList{u"0002|P|1,000|OLEO|25,00|25,00"_s}));
    QCOMPARE(total(), u"25,00"_s);
}

void TstFrmMoviEntradaPecaLinhas::nothingIsRemovedWithoutARow()
{
    open();
    auto *remove = control<QAbstractButton>(window_, u"btnItemRemove"_s);
    QVERIFY(!remove->isEnabled());
    add(u"2"_s, u"1"_s);
    QVERIFY(!remove->isEnabled());
    cadastro::clickRow(window_, 0);
    QVERIFY(remove->isEnabled());
    support::key(window_, u"Lista"_s, Qt::Key_Delete);
    support::key(window_, u"Lista"_s, Qt::Key_Delete);
    QCOMPARE(list()->count(), 0);
    QCOMPARE(total(), u"0,00"_s);
    QVERIFY(!remove->isEnabled());
}

/// Beyond seven digits the cents are lost on the way, and with them the way back.
void TstFrmMoviEntradaPecaLinhas::removingAllLinesBringsTheTotalBack_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("in cents") << QStringList{u"0,10"_s, u"0,20"_s, u"1030,55"_s} << u"3.092,55"_s << u"0,00"_s;
    QTest::newRow("beyond seven digits") << QStringList{u"0,10"_s, u"0,20"_s, u"1030,55"_s, u"1234567,89"_s}
                                         << u"3.706.797,00"_s << u"1,00"_s;
}

void TstFrmMoviEntradaPecaLinhas::removingAllLinesBringsTheTotalBack()
{
    QFETCH(QStringList, values);
    open();
    for (const QString &value : values) {
        add({}, u"3"_s, value, u"ITEM"_s);
    }
    QTEST(total(), "before");
    while (list()->count() > 0) {
        cadastro::clickRow(window_, 0);
        click(window_, u"btnItemRemove"_s);
    }
    QTEST(total(), "after");
}

void TstFrmMoviEntradaPecaLinhas::clearingTheListLeavesTheFields()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s);
    part(u"1"_s);
    click(window_, u"btnLimpa"_s);
    QCOMPARE(list()->count(), 0);
    QCOMPARE(total(), u"0,00"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"ALFA PECAS"_s);
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
}

/// The total starts anew although the lines stay: taking one away takes it below nought.
void TstFrmMoviEntradaPecaLinhas::clearingTheFieldsLeavesTheList()
{
    open();
    supplier();
    type(window_, u"txtObs"_s, u"FRETE PAGO"_s);
    add(u"2"_s, u"1"_s);
    part(u"1"_s);
    click(window_, u"btnCancelar"_s);
    for (const QString &name : {u"txtCodFornecedor"_s, u"lblNome"_s, u"txtObs"_s, u"txtCodPeca"_s, u"txtQuantidade"_s,
                                u"txtDescricao"_s, u"txtValor"_s}) {
        QVERIFY2(text(window_, name).isEmpty(), qPrintable(name));
    }
    QVERIFY(hasFocus(u"txtCodFornecedor"_s));
    QCOMPARE(list()->count(), 1);
    QCOMPARE(total(), u"0,00"_s);

    cadastro::clickRow(window_, 0);
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(total(), u"-25,00"_s);
}

void TstFrmMoviEntradaPecaLinhas::aDoubleClickTellsOfThePart()
{
    open();
    add(u"2"_s, u"1"_s);
    boxes_->information(u"Cód. Peça:\t0002\nNome Peça:\tOLEO\nAplicação:\t\nUnidade Med.:\tLITROS\n"
                        "Valor Custo:\t25,00\nValor Venda:\t40,00\nEstoque Mín.:\t\nEstoque Atual:\t0,000\n"_s);
    cadastro::doubleClickRow(window_, 0);
    boxes_->finish();

    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 2"_s);
    cadastro::doubleClickRow(window_, 0);
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviEntradaPecaLinhas::aDoubleClickOnAFreeLineOpensNothing()
{
    open();
    add({}, u"1"_s, u"10"_s, u"FRETE"_s);
    cadastro::doubleClickRow(window_, 0);
    QCoreApplication::processEvents();
    QCOMPARE(list()->count(), 1);
    QVERIFY(!ui::Application::ended());
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaLinhas)
#include "tst_frmMoviEntradaPeca_linhas.moc"
