#include "tests/registers/cadapecas.h"

#include "platform/ui/application.h"

using namespace Qt::StringLiterals;
using cadapecas::null;
using cadapecas::oilFilter;
using cadapecas::Rows;

namespace
{

const QString maker = u"cboMarca"_s;

} // namespace

/// The register of parts and services as it takes in a new one.
class TstFrmCadaPecasInclui : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { begin(); }
    void cleanup() { end(); }

    void includeRefusesABadField_data();
    void includeRefusesABadField();
    void includeChecksInOrder();
    void aMakeOf200CharactersIsTaken();
    void withoutStockControlTheStockIsNotChecked();
    void nothingIsIncludedOnNo();
    void includesAPart();
    void includesByUnit();
    void opensTheLedgerOfAPart();
    void whatStaysEmptyIsNull();
    void aServiceOpensItsLedgerWithZero();
    void aServiceUnderStockControlOpensItsLedgerToo();
    void aMinimumShownWithoutStockControlIsNotIncluded();
    void hiddenTaxFieldsAreWritten();
    void aPartShownIsIncludedAsACopy();
    void includeReloadsTheWholeList();
    void includeEmptiesItsFieldsAndKeepsTheOthers();
    void includeForgetsTheMode_data();
    void includeForgetsTheMode();
    void anApostropheInTheNameIsTaken();
    void aTaxRateTooLargeEndsInARunTimeError();
};

// --- including

void TstFrmCadaPecasInclui::includeRefusesABadField_data()
{
    addBadFields();
    QTest::newRow("no stock") << u"txtEstoqueAtual"_s << QString() << u"Estoque Atual Inválido"_s;
}

void TstFrmCadaPecasInclui::includeRefusesABadField()
{
    QFETCH(QString, field);
    QFETCH(QString, content);
    QFETCH(QString, message);
    open();
    cadastro::fill(form_, cadastro::with(oilFilter, field, content));
    boxes_->exclamation(message);
    click(u"btnIncluir"_s);

    QTRY_COMPARE(cadastro::focusOf(form_), field);
    QCOMPARE(parts().size() + ledger().size(), 0U);
}

/// Each check speaks only when the ones before it are content.
void TstFrmCadaPecasInclui::includeChecksInOrder()
{
    open();
    const QStringList messages{u"Nome Inválido"_s,           u"Marca Inválida"_s,          u"Valor de Custo Inválido"_s,
                               u"Valor de Venda Inválido"_s, u"Estoque Mínimo Inválido"_s, u"Estoque Atual Inválido"_s};
    for (qsizetype check = 0; check < messages.size(); ++check) {
        boxes_->exclamation(messages.at(check));
        click(u"btnIncluir"_s);
        boxes_->finish();
        const auto &[field, content] = oilFilter.at(check);
        QTRY_COMPARE(cadastro::focusOf(form_), field);
        type(field, content);
    }
    QCOMPARE(parts().size() + ledger().size(), 0U);
}

void TstFrmCadaPecasInclui::aMakeOf200CharactersIsTaken()
{
    open();
    include(cadastro::with(oilFilter, maker, QString(200, u'X')));
    QCOMPARE(program_->rows(u"SELECT MarcaModelo FROM Pecas"_s), (Rows{{QString(200, u'X')}}));
}

void TstFrmCadaPecasInclui::withoutStockControlTheStockIsNotChecked()
{
    open();
    click(u"optNao"_s);
    include(cadapecas::withoutStock(oilFilter));
    QCOMPARE(parts().size(), 1U);
    QCOMPARE(ledger().size(), 1U);
}

void TstFrmCadaPecasInclui::nothingIsIncludedOnNo()
{
    open(19);
    cadastro::fill(form_, oilFilter);
    boxes_->question(cadapecas::askInclude, false);
    click(u"btnIncluir"_s);

    QCOMPARE(parts().size() + ledger().size(), 0U);
    compareFields(oilFilter);
    QCOMPARE(core::ModoChamada, qint16{19});
    QVERIFY(form_->isVisible());
}

void TstFrmCadaPecasInclui::includesAPart()
{
    openWithTaxFields();
    type(u"txtICMS"_s, u"18"_s);
    type(u"txtClass"_s, u"8421.23"_s);
    include(oilFilter);

    const Rows part{{u"1"_s, u"FILTRO DE OLEO"_s, u"GOL 1.0"_s, u"P"_s, u"0"_s, u"12.5"_s, u"1025.9"_s, u"5"_s, u"-1"_s,
                     u"FO-100"_s, u"18"_s, u"8421.23"_s}};
    QCOMPARE(parts(), part);
    QCOMPARE(support::exact(std::get<float>(program_->value(u"SELECT ValorVenda FROM Pecas"_s))),
             support::exact(1025.9F));
}

void TstFrmCadaPecasInclui::includesByUnit()
{
    open();
    cadastro::choose(form_, u"cboUnidade"_s, 2);
    include(cadastro::with(cadastro::with(oilFilter, u"txtEstoque"_s, u"2,5"_s), u"txtEstoqueAtual"_s, u"7,25"_s));
    QCOMPARE(program_->rows(u"SELECT UM, EstoqueMinimo FROM Pecas"_s), (Rows{{u"2"_s, u"2.5"_s}}));
    QCOMPARE(program_->rows(u"SELECT Entrada, Estoque FROM Estoque"_s), (Rows{{u"7.25"_s, u"7.25"_s}}));
}

void TstFrmCadaPecasInclui::opensTheLedgerOfAPart()
{
    part(u"VELA"_s); // the codes of parts and of ledger rows differ
    open();
    include(oilFilter);
    const Rows opening{{u"1"_s, u"2"_s, u"15/05/2024 00:00:00"_s, u"ENTRADA INICIAL"_s, u"10"_s, null, u"10"_s}};
    QCOMPARE(ledger(), opening);
}

void TstFrmCadaPecasInclui::whatStaysEmptyIsNull()
{
    open();
    include(cadastro::with(oilFilter, u"txtCodExterno"_s, QString()));
    QCOMPARE(program_->rows(u"SELECT CodExterno, ICMS, ClassFiscal FROM Pecas"_s), (Rows{{null, null, null}}));
}

void TstFrmCadaPecasInclui::aServiceOpensItsLedgerWithZero()
{
    open();
    click(u"optServico"_s);
    click(u"optNao"_s);
    include(cadapecas::withoutStock(oilFilter));

    QCOMPARE(program_->rows(u"SELECT PS, EstoqueMinimo, ControlaEstoque FROM Pecas"_s), (Rows{{u"S"_s, null, u"0"_s}}));
    const Rows opening{{u"1"_s, u"1"_s, u"15/05/2024 00:00:00"_s, u"ENTRADA INICIAL"_s, u"0"_s, null, u"0"_s}};
    QCOMPARE(ledger(), opening);
}

void TstFrmCadaPecasInclui::aServiceUnderStockControlOpensItsLedgerToo()
{
    open();
    click(u"optServico"_s);
    include(oilFilter);
    QCOMPARE(program_->rows(u"SELECT PS, EstoqueMinimo, ControlaEstoque FROM Pecas"_s),
             (Rows{{u"S"_s, u"5"_s, u"-1"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodPeca, Entrada, Saida, Estoque FROM Estoque"_s),
             (Rows{{u"1"_s, u"10"_s, null, u"10"_s}}));
}

/// Finding a part in the list shows its stock, and leaves the switch as the part before has set it.
void TstFrmCadaPecasInclui::aMinimumShownWithoutStockControlIsNotIncluded()
{
    threeParts();
    open();
    load(u"0002"_s);
    locate(u"FILTRO"_s);
    QVERIFY(chosen(u"optNao"_s));
    QCOMPARE(text(u"txtEstoque"_s), u"02"_s);
    boxes_->question(cadapecas::askInclude, true);
    click(u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Nome, EstoqueMinimo, ControlaEstoque FROM Pecas WHERE Codigo = 4"_s),
             (Rows{{u"FILTRO DE AR"_s, null, u"0"_s}}));
    QCOMPARE(program_->rows(u"SELECT Entrada, Estoque FROM Estoque WHERE CodPeca = 4"_s), (Rows{{u"0"_s, u"0"_s}}));
}

void TstFrmCadaPecasInclui::hiddenTaxFieldsAreWritten()
{
    threeParts();
    open();
    load(u"0001"_s);
    QVERIFY(!at(u"txtICMS"_s)->isVisible() && !at(u"txtClass"_s)->isVisible());
    boxes_->question(cadapecas::askInclude, true);
    click(u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT ICMS, ClassFiscal FROM Pecas WHERE Codigo = 4"_s),
             (Rows{{u"18"_s, u"2710.19"_s}}));
}

void TstFrmCadaPecasInclui::aPartShownIsIncludedAsACopy()
{
    threeParts();
    open();
    load(u"0001"_s);
    const Rows before = parts();
    boxes_->question(cadapecas::askInclude, true);
    click(u"btnIncluir"_s);

    Rows after = before;
    after.push_back(before.front());
    after.back().front() = u"4"_s;
    QCOMPARE(parts(), after);
    const QStringList opening{u"4"_s, u"4"_s,   u"15/05/2024 00:00:00"_s, u"ENTRADA INICIAL"_s, u"37.5"_s,
                              null,   u"37.5"_s};
    QCOMPARE(ledger().back(), opening);
}

void TstFrmCadaPecasInclui::includeReloadsTheWholeList()
{
    threeParts();
    open();
    search(u"OLEO"_s);
    QCOMPARE(codes(), QStringList{u"0001"_s});
    include(oilFilter);
    QCOMPARE(codes(), (QStringList{u"0003"_s, u"0004"_s, u"0001"_s, u"0002"_s}));
}

void TstFrmCadaPecasInclui::includeEmptiesItsFieldsAndKeepsTheOthers()
{
    threeParts();
    openWithTaxFields();
    load(u"0001"_s);
    boxes_->question(cadapecas::askInclude, true);
    click(u"btnIncluir"_s);

    compareFields(cadapecas::emptied(
        {u"lblCodigo"_s, u"txtNome"_s, maker, u"txtCusto"_s, u"txtVenda"_s, u"txtEstoque"_s, u"txtEstoqueAtual"_s}));
    compareFields({{u"cboUnidade"_s, u"UNIDADE"_s},
                   {u"txtCodExterno"_s, u"OL-20"_s},
                   {u"txtICMS"_s, u"18"_s},
                   {u"txtClass"_s, u"2710.19"_s}});
}

void TstFrmCadaPecasInclui::includeForgetsTheMode_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 5, 6, 18, 23, 40}) {
        QTest::newRow(qPrintable(QString::number(mode))) << mode;
    }
}

void TstFrmCadaPecasInclui::includeForgetsTheMode()
{
    QFETCH(int, mode);
    open(mode);
    include(oilFilter);
    QCOMPARE(parts().size(), 1U);
    QCOMPARE(core::ModoChamada, qint16{0});
    QVERIFY(cadastro::isOpen(cadapecas::window));
    QVERIFY(!cadastro::isOpen(u"frmOSAbre"_s));
}

void TstFrmCadaPecasInclui::anApostropheInTheNameIsTaken()
{
    open();
    include(cadastro::with(oilFilter, u"txtNome"_s, u"BOMBA D'AGUA"_s));
    QCOMPARE(program_->rows(u"SELECT Nome FROM Pecas"_s), (Rows{{u"BOMBA D'AGUA"_s}}));
    QCOMPARE(cadastro::columnOf(form_, 1), QStringList{u"BOMBA D'AGUA"_s});
}

void TstFrmCadaPecasInclui::aTaxRateTooLargeEndsInARunTimeError()
{
    const QString error = cadapecas::overflowBox();
    QVERIFY(!error.isEmpty());
    openWithTaxFields();
    cadastro::fill(form_, oilFilter);
    type(u"txtICMS"_s, u"40000"_s);
    boxes_->question(cadapecas::askInclude, true).critical(error);
    click(u"btnIncluir"_s);

    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(parts(), Rows());
    QCOMPARE(ledger(), Rows());
}

TARVELO_TEST_MAIN(TstFrmCadaPecasInclui)
#include "tst_frmCadaPecas_inclui.moc"
