#include "tests/registers/cadapecas.h"

using namespace Qt::StringLiterals;
using cadapecas::oilFilter;
using cadapecas::Rows;

namespace
{

const QString maker = u"cboMarca"_s;
const QString askClear = u"Limpar Campos"_s;

} // namespace

/// The fields of the register of parts and services: cleared, switched off and typed into.
class TstFrmCadaPecasCampos : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { begin(); }
    void cleanup() { end(); }

    void clearAsksFirst();
    void clearEmptiesTheFields();
    void noStockControlDisablesTheStock();
    void stockControlEnablesTheStockAgain();

    void masksTheMoneyOnLeaving_data();
    void masksTheMoneyOnLeaving();
    void formatsTheQuantityOnLeaving_data();
    void formatsTheQuantityOnLeaving();
    void takesNumbersOnly_data();
    void takesNumbersOnly();
    void typedLettersBecomeCapitals();
    void enterGoesOnToTheNextField();
    void aPastedNameIsCutAt200Characters();
    void backClosesAndWritesNothing();
};

// --- clearing, and the switch of the stock

void TstFrmCadaPecasCampos::clearAsksFirst()
{
    open();
    cadastro::fill(form_, oilFilter);
    boxes_->question(askClear, false);
    click(u"btnCancelar"_s);
    compareFields(oilFilter);
}

void TstFrmCadaPecasCampos::clearEmptiesTheFields()
{
    threeParts();
    openWithTaxFields();
    load(u"0001"_s);
    type(u"txtTexto"_s, u"OLEO"_s);
    click(u"optServico"_s);
    boxes_->question(askClear, true);
    click(u"btnCancelar"_s);

    compareFields(
        cadapecas::emptied({u"lblCodigo"_s, u"txtNome"_s, maker, u"txtCusto"_s, u"txtVenda"_s, u"txtEstoque"_s,
                            u"txtEstoqueAtual"_s, u"txtCodExterno"_s, u"txtICMS"_s, u"txtClass"_s}));
    QCOMPARE(text(u"cboUnidade"_s), u"UNIDADE"_s);
    QCOMPARE(text(u"txtTexto"_s), u"OLEO"_s);
    QVERIFY(chosen(u"optServico"_s));
    QCOMPARE(codes().size(), 3);
    QCOMPARE(parts().size(), 3U);
}

void TstFrmCadaPecasCampos::noStockControlDisablesTheStock()
{
    open();
    cadastro::fill(form_, oilFilter);
    click(u"optNao"_s);
    QCOMPARE(text(u"txtEstoque"_s), QString());
    QCOMPARE(text(u"txtEstoqueAtual"_s), QString());
    for (const QWidget *control :
         {at(u"txtEstoque"_s), at(u"txtEstoqueAtual"_s), static_cast<QWidget *>(caption(u"Estoque Mínimo:"_s)),
          static_cast<QWidget *>(caption(u"Estoque Atual:"_s))}) {
        QVERIFY2(!control->isEnabled(), qPrintable(control->objectName()));
    }
    QVERIFY(at(u"txtCusto"_s)->isEnabled());
}

void TstFrmCadaPecasCampos::stockControlEnablesTheStockAgain()
{
    open();
    click(u"optNao"_s);
    click(u"optSim"_s);
    for (const QWidget *control :
         {at(u"txtEstoque"_s), at(u"txtEstoqueAtual"_s), static_cast<QWidget *>(caption(u"Estoque Mínimo:"_s)),
          static_cast<QWidget *>(caption(u"Estoque Atual:"_s))}) {
        QVERIFY2(control->isEnabled(), qPrintable(control->objectName()));
    }
    include(oilFilter);
    QCOMPARE(program_->rows(u"SELECT EstoqueMinimo, ControlaEstoque FROM Pecas"_s), (Rows{{u"5"_s, u"-1"_s}}));
}

// --- typing

void TstFrmCadaPecasCampos::masksTheMoneyOnLeaving_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    for (const auto &field : {u"txtCusto"_s, u"txtVenda"_s}) {
        const QByteArray name = field.toLatin1();
        QTest::addRow("%s, whole", name.constData()) << field << u"12"_s << u"12,00"_s;
        QTest::addRow("%s, thousands", name.constData()) << field << u"1234,5"_s << u"1.234,50"_s;
        QTest::addRow("%s, no number", name.constData()) << field << u"1,2,3"_s << u"1,2,3"_s;
        QTest::addRow("%s, empty", name.constData()) << field << QString() << QString();
    }
}

void TstFrmCadaPecasCampos::masksTheMoneyOnLeaving()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    open();
    type(field, typed);
    QTEST(text(field), "shown");
}

void TstFrmCadaPecasCampos::formatsTheQuantityOnLeaving_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("piece") << 0 << u"5"_s << u"05"_s;
    QTest::newRow("part of a piece") << 0 << u"2,5"_s << u"2,500"_s;
    QTest::newRow("kilogram") << 1 << u"5"_s << u"5,000"_s;
    QTest::newRow("litre") << 2 << u"1234,5"_s << u"1.234,500"_s;
    QTest::newRow("gallon") << 3 << u"5"_s << u"05"_s;
    QTest::newRow("packet") << 4 << u"120"_s << u"120"_s;
    QTest::newRow("empty") << 0 << QString() << QString();
}

void TstFrmCadaPecasCampos::formatsTheQuantityOnLeaving()
{
    QFETCH(int, unit);
    QFETCH(QString, typed);
    open();
    cadastro::choose(form_, u"cboUnidade"_s, unit);
    for (const auto &field : {u"txtEstoque"_s, u"txtEstoqueAtual"_s}) {
        type(field, typed);
        QTEST(text(field), "shown");
    }
}

void TstFrmCadaPecasCampos::takesNumbersOnly_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown");
    QTest::newRow("cost") << u"txtCusto"_s << u"1,2.3"_s;
    QTest::newRow("price") << u"txtVenda"_s << u"1,2.3"_s;
    QTest::newRow("minimum") << u"txtEstoque"_s << u"1,2.3"_s;
    QTest::newRow("stock") << u"txtEstoqueAtual"_s << u"1,2.3"_s;
    QTest::newRow("tax rate") << u"txtICMS"_s << u"123"_s;
}

void TstFrmCadaPecasCampos::takesNumbersOnly()
{
    QFETCH(QString, field);
    openWithTaxFields();
    support::type(form_, field, u"a1,b2.-3"_s, false);
    QTEST(text(field), "shown");
    support::type(form_, field, QString(), false);
}

void TstFrmCadaPecasCampos::typedLettersBecomeCapitals()
{
    openWithTaxFields();
    for (const auto &field : {u"txtNome"_s, u"txtCodExterno"_s, u"txtClass"_s, u"txtTexto"_s}) {
        type(field, u"vela ação"_s);
        QCOMPARE(text(field), u"VELA AÇÃO"_s);
    }
}

void TstFrmCadaPecasCampos::enterGoesOnToTheNextField()
{
    open();
    support::type(form_, u"txtNome"_s, u"VELA"_s, false);
    support::key(form_, u"txtNome"_s, Qt::Key_Return);
    QCOMPARE(cadastro::focusOf(form_), maker);
    QCOMPARE(parts(), Rows());
}

void TstFrmCadaPecasCampos::aPastedNameIsCutAt200Characters()
{
    open();
    cadastro::fill(form_, oilFilter);
    cadastro::paste(form_, u"txtNome"_s, QString(300, u'N'));
    QCOMPARE(text(u"txtNome"_s), QString(200, u'N'));
    boxes_->question(cadapecas::askInclude, true);
    click(u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Nome FROM Pecas"_s), (Rows{{QString(200, u'N')}}));
}

void TstFrmCadaPecasCampos::backClosesAndWritesNothing()
{
    open(5);
    cadastro::fill(form_, oilFilter);
    click(u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(cadapecas::window));
    QCOMPARE(parts().size() + ledger().size(), 0U);
    QCOMPARE(core::ModoChamada, qint16{5});
}

TARVELO_TEST_MAIN(TstFrmCadaPecasCampos)
#include "tst_frmCadaPecas_campos.moc"
