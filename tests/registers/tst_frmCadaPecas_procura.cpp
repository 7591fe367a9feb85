#include "tests/registers/cadapecas.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using support::control;

namespace
{

const QString badSearch = u"Tipo de Dados Inválido para Pesquisa"_s;

/// Every text of the filter among the three parts.
const cadapecas::Fields filter{
    {u"lblCodigo"_s, u"0003"_s},     {u"txtNome"_s, u"FILTRO DE AR"_s}, {u"cboMarca"_s, u"GOL"_s},
    {u"cboUnidade"_s, u"UNIDADE"_s}, {u"txtCusto"_s, u"1.000,00"_s},    {u"txtVenda"_s, u"2.345,60"_s},
    {u"txtEstoque"_s, u"02"_s},      {u"txtEstoqueAtual"_s, u"03"_s},   {u"txtCodExterno"_s, u"FA-7"_s},
    {u"txtICMS"_s, u"12"_s},         {u"txtClass"_s, u"8421"_s},
};

} // namespace

/// The register of parts and services as it searches and shows.
class TstFrmCadaPecasProcura : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { begin(); }
    void cleanup() { end(); }

    void searches_data();
    void searches();
    void anEmptySearchEmptiesTheListInSilence();
    void aSearchWithoutResultIsSilent();
    void aBadSearchIsRefused_data();
    void aBadSearchIsRefused();

    void localizarFillsItsFieldsOnly();
    void localizarShowsTheOldestStock();
    void localizarLooksAtTheStartOfTheName();
    void localizarWithoutAMatchLoadsTheSelectedRow();
    void localizarWithoutATextMovesTheFocus();
    void localizarOfAPartWithoutLedgerShowsNothing();

    void aRowShowsAllFields();
    void aRowShowsTheNewestStock();
    void aPartWithoutLedgerShowsNoStock();
    void aPartWithoutMinimumShowsNone();
    void whatIsNeitherPIsAService();
    void theFiscalClassComesWithTheLedger();
    void aRowWithoutStockControlActsAsNo();
    void aRowUnderStockControlActsAsYes();
    void aRowDeletedMeanwhileLeavesTheFields();
};

// --- searching

void TstFrmCadaPecasProcura::searches_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("code") << 0 << u"2"_s << QStringList{u"0002"_s};
    QTest::newRow("code with zeros") << 0 << u"0003"_s << QStringList{u"0003"_s};
    QTest::newRow("beginning of the name") << 1 << u"OLEO"_s << QStringList{u"0001"_s};
    QTest::newRow("middle of the name, other case") << 1 << u"de a"_s << QStringList{u"0003"_s};
    QTest::newRow("parts before services") << 1 << u"A"_s << QStringList{u"0003"_s, u"0002"_s};
    QTest::newRow("external code") << 2 << u"-2"_s << QStringList{u"0001"_s};
}

void TstFrmCadaPecasProcura::searches()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    threeParts();
    open();
    click(u"btnTodos"_s);
    search(field, text);
    QTEST(codes(), "found");
}

void TstFrmCadaPecasProcura::anEmptySearchEmptiesTheListInSilence()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    QCOMPARE(codes().size(), 3);
    click(u"btnPesquisar"_s);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaPecasProcura::aSearchWithoutResultIsSilent()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    search(u"VELA"_s);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaPecasProcura::aBadSearchIsRefused_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters as a code") << 0 << u"OLEO"_s;
    QTest::newRow("an apostrophe in the name") << 1 << u"D'AGUA"_s;
    QTest::newRow("an apostrophe in the external code") << 2 << u"X'1"_s;
}

void TstFrmCadaPecasProcura::aBadSearchIsRefused()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    threeParts();
    open();
    click(u"btnTodos"_s);
    cadastro::choose(form_, u"cboPesquisa"_s, field);
    type(u"txtTexto"_s, text);
    boxes_->exclamation(badSearch);
    click(u"btnPesquisar"_s);

    QCOMPARE(codes(), QStringList());
    QTRY_COMPARE(cadastro::focusOf(form_), u"txtTexto"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtTexto"_s)->selectedText(), text);
}

// --- finding in the list

void TstFrmCadaPecasProcura::localizarFillsItsFieldsOnly()
{
    threeParts();
    openWithTaxFields();
    load(u"0001"_s);
    locate(u"FILTRO"_s);
    auto expected = cadastro::with(filter, u"cboMarca"_s, u"TODOS"_s); // of the part before, as the taxes
    expected = cadastro::with(expected, u"txtICMS"_s, u"18"_s);
    compareFields(cadastro::with(expected, u"txtClass"_s, u"2710.19"_s));
}

void TstFrmCadaPecasProcura::localizarShowsTheOldestStock()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    locate(u"OLEO"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(u"txtEstoqueAtual"_s), u"40,000"_s);
}

void TstFrmCadaPecasProcura::localizarLooksAtTheStartOfTheName()
{
    threeParts();
    ledger(2, u"0"_s);
    open();
    click(u"btnTodos"_s);
    locate(u"A"_s); // stands inside of the names above it
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 2);
}

void TstFrmCadaPecasProcura::localizarWithoutAMatchLoadsTheSelectedRow()
{
    threeParts();
    open();
    load(u"0001"_s);
    type(u"txtNome"_s, u"OUTRO"_s);
    locate(u"VELA"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(u"txtNome"_s), u"OLEO 20W50"_s);
}

void TstFrmCadaPecasProcura::localizarWithoutATextMovesTheFocus()
{
    threeParts();
    open();
    load(u"0001"_s);
    type(u"txtNome"_s, u"OUTRO"_s);
    click(u"btnLocalizar"_s);
    QCOMPARE(cadastro::focusOf(form_), u"Lista"_s);
    QCOMPARE(text(u"txtNome"_s), u"OUTRO"_s);
}

void TstFrmCadaPecasProcura::localizarOfAPartWithoutLedgerShowsNothing()
{
    threeParts();
    open();
    load(u"0001"_s);
    locate(u"ALINHAMENTO"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 2);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(u"txtNome"_s), u"OLEO 20W50"_s);
}

// --- a row chosen

void TstFrmCadaPecasProcura::aRowShowsAllFields()
{
    threeParts();
    openWithTaxFields();
    load(u"0003"_s);
    compareFields(filter);
    QVERIFY(chosen(u"optPeca"_s));
    QVERIFY(chosen(u"optSim"_s));
}

void TstFrmCadaPecasProcura::aRowShowsTheNewestStock()
{
    threeParts();
    open();
    load(u"0001"_s); // the newer row carries the older date
    QCOMPARE(text(u"txtEstoqueAtual"_s), u"37,500"_s);
    QCOMPARE(text(u"txtEstoque"_s), u"2,500"_s);
    QCOMPARE(text(u"cboUnidade"_s), u"LITROS"_s);
}

void TstFrmCadaPecasProcura::aPartWithoutLedgerShowsNoStock()
{
    threeParts();
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 3"_s);
    openWithTaxFields();
    load(u"0001"_s);
    load(u"0003"_s);
    compareFields({{u"txtNome"_s, u"FILTRO DE AR"_s},
                   {u"cboMarca"_s, u"GOL"_s},
                   {u"cboUnidade"_s, u"UNIDADE"_s},
                   {u"txtCusto"_s, u"1.000,00"_s},
                   {u"txtVenda"_s, u"2.345,60"_s},
                   {u"txtEstoque"_s, u"02"_s},
                   {u"txtEstoqueAtual"_s, QString()},
                   {u"txtCodExterno"_s, u"FA-7"_s},
                   {u"txtICMS"_s, u"12"_s},
                   {u"txtClass"_s, u"8421"_s}});
    QVERIFY(chosen(u"optSim"_s));
}

void TstFrmCadaPecasProcura::aPartWithoutMinimumShowsNone()
{
    const qint32 code = part(u"VELA"_s, u"P"_s, u"ControlaEstoque = -1"_s);
    ledger(code, u"4"_s);
    openWithTaxFields();
    load(u"0001"_s);
    compareFields({{u"cboMarca"_s, QString()},
                   {u"txtCusto"_s, QString()},
                   {u"txtVenda"_s, u"10,00"_s},
                   {u"txtEstoque"_s, QString()},
                   {u"txtEstoqueAtual"_s, u"04"_s},
                   {u"txtCodExterno"_s, QString()},
                   {u"txtICMS"_s, QString()},
                   {u"txtClass"_s, QString()}});
}

void TstFrmCadaPecasProcura::whatIsNeitherPIsAService()
{
    part(u"ALINHAMENTO"_s, u"S"_s);
    part(u"OUTRA COISA"_s, u"X"_s);
    part(u"VELA"_s, u"P"_s);
    open();
    load(u"0001"_s);
    QVERIFY(chosen(u"optServico"_s) && !chosen(u"optPeca"_s));
    load(u"0003"_s);
    QVERIFY(chosen(u"optPeca"_s) && !chosen(u"optServico"_s));
    load(u"0002"_s);
    QVERIFY(chosen(u"optServico"_s) && !chosen(u"optPeca"_s));
}

void TstFrmCadaPecasProcura::theFiscalClassComesWithTheLedger()
{
    threeParts();
    open(); // hidden, and there all the same
    load(u"0001"_s);
    QVERIFY(!at(u"txtClass"_s)->isVisible());
    QCOMPARE(text(u"txtClass"_s), u"2710.19"_s);
    QCOMPARE(text(u"txtICMS"_s), u"18"_s);
}

void TstFrmCadaPecasProcura::aRowWithoutStockControlActsAsNo()
{
    const qint32 code = part(u"VELA"_s, u"P"_s, u"EstoqueMinimo = 5, ControlaEstoque = 0"_s);
    ledger(code, u"4"_s);
    open();
    load(u"0001"_s);
    QVERIFY(chosen(u"optNao"_s));
    QVERIFY(!at(u"txtEstoque"_s)->isEnabled() && !at(u"txtEstoqueAtual"_s)->isEnabled());
    QVERIFY(!caption(u"Estoque Mínimo:"_s)->isEnabled() && !caption(u"Estoque Atual:"_s)->isEnabled());
    QCOMPARE(text(u"txtEstoque"_s), QString());
    QCOMPARE(text(u"txtEstoqueAtual"_s), QString());
}

void TstFrmCadaPecasProcura::aRowUnderStockControlActsAsYes()
{
    threeParts();
    open();
    load(u"0002"_s);
    QVERIFY(chosen(u"optNao"_s));
    load(u"0003"_s);
    QVERIFY(chosen(u"optSim"_s));
    QVERIFY(at(u"txtEstoque"_s)->isEnabled() && at(u"txtEstoqueAtual"_s)->isEnabled());
    QVERIFY(caption(u"Estoque Mínimo:"_s)->isEnabled() && caption(u"Estoque Atual:"_s)->isEnabled());
    QCOMPARE(text(u"txtEstoque"_s), u"02"_s);
    QCOMPARE(text(u"txtEstoqueAtual"_s), u"03"_s);
}

void TstFrmCadaPecasProcura::aRowDeletedMeanwhileLeavesTheFields()
{
    threeParts();
    open();
    load(u"0001"_s);
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 3"_s);
    cadastro::clickRow(form_, 0);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(u"txtNome"_s), u"OLEO 20W50"_s);
}

TARVELO_TEST_MAIN(TstFrmCadaPecasProcura)
#include "tst_frmCadaPecas_procura.moc"
