#include "platform/ui/wait.h"
#include "tests/registers/veiculos.h"

using namespace Qt::StringLiterals;
using cadastro::askAlter;
using cadastro::askInclude;
using cadastro::focusOf;
using support::click;
using support::control;
using support::key;
using support::type;

/// What the fields do while they are filled, and what they take.
class TstFrmCadaVeiculosCampos : public VehicleCase
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init()
    {
        start();
        open();
    }
    void cleanup() { end(); }

    void theCodeTakesDigitsOnly();
    void aKnownCodeShowsTheName();
    void anUnknownCodeEmptiesTheName();
    void aCodeBeyondALongIsUnknown();
    void leavingAnEmptyCodeKeepsTheName();
    void aCodeJustTypedIsLookedUpBeforeTheInclude();
    void lettersPastedAsACodeLeaveNothing();

    void typedLettersBecomeCapitals();
    void enterWalksThroughTheFields();
    void theYearGetsItsSlash();
    void aStoredYearShowsWithoutOne();
    void anExistingPlateIsOnlyAWarning();
    void theVehiclesOwnPlateWarnsToo();
    void aPlateCanBeStoredTwice();
    void anApostropheInThePlateIsARunTimeError();

    void keepsTheListOfMakes();
    void theListOfMakesIsItsOwn();
    void completesAMake();
    void aStoredMakeIsNotCompleted();

    void pastedTextIsCutToTheColumn_data();
    void pastedTextIsCutToTheColumn();
    void fieldsFilledToTheEdgeAreStored();
    void aModelBeyondItsColumnIsARunTimeError();
};

// --- the customer's code

void TstFrmCadaVeiculosCampos::theCodeTakesDigitsOnly()
{
    type(form_, u"txtCodCliente"_s, u"a1,b.2-"_s, false);
    QCOMPARE(shown(u"txtCodCliente"_s), u"12"_s);
}

void TstFrmCadaVeiculosCampos::aKnownCodeShowsTheName()
{
    type(form_, u"txtCodCliente"_s, u"2"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), u"ANTONIO"_s);
}

void TstFrmCadaVeiculosCampos::anUnknownCodeEmptiesTheName()
{
    load(u"0001"_s);
    boxes_->exclamation(u"Código do Cliente não Localizado ou não Cadastrado"_s);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    boxes_->finish();
    QCOMPARE(shown(u"lblNomeCliente"_s), QString());
    QCOMPARE(shown(u"cboMarca"_s), u"GOL 1.0"_s);
}

void TstFrmCadaVeiculosCampos::aCodeBeyondALongIsUnknown()
{
    boxes_->exclamation(u"Código do Cliente não Localizado ou não Cadastrado"_s);
    type(form_, u"txtCodCliente"_s, u"99999999999"_s);
    boxes_->finish();
    QVERIFY(!ui::Application::ended());
    QCOMPARE(shown(u"lblNomeCliente"_s), QString());
}

void TstFrmCadaVeiculosCampos::leavingAnEmptyCodeKeepsTheName()
{
    load(u"0001"_s);
    type(form_, u"txtCodCliente"_s, QString());
    QCOMPARE(shown(u"lblNomeCliente"_s), u"MARIA"_s);
}

/// Leaving the field comes before the click that leaves it.
void TstFrmCadaVeiculosCampos::aCodeJustTypedIsLookedUpBeforeTheInclude()
{
    type(form_, u"cboMarca"_s, u"UNO"_s);
    type(form_, u"txtCodCliente"_s, u"2"_s, false);
    answer(askInclude, u"btnIncluir"_s);
    boxes_->finish();
    QCOMPARE(program_->rows(u"SELECT CodCliente, MarcaModelo FROM Veiculos WHERE Codigo = 4"_s),
             (Rows{{u"2"_s, u"UNO"_s}}));
}

void TstFrmCadaVeiculosCampos::lettersPastedAsACodeLeaveNothing()
{
    cadastro::paste(form_, u"txtCodCliente"_s, u"ABC"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), QString());
    key(form_, u"txtCodCliente"_s, Qt::Key_Tab);
    boxes_->finish();
    QVERIFY(!ui::Application::ended());
}

// --- help at typing

void TstFrmCadaVeiculosCampos::typedLettersBecomeCapitals()
{
    type(form_, u"txtCor"_s, u"açafrão"_s);
    QCOMPARE(shown(u"txtCor"_s), u"AÇAFRÃO"_s);
}

void TstFrmCadaVeiculosCampos::enterWalksThroughTheFields()
{
    cadastro::focus(form_, u"txtAno"_s);
    key(form_, u"txtAno"_s, Qt::Key_Return);
    QCOMPARE(focusOf(form_), u"txtCor"_s);
    key(form_, u"txtCor"_s, Qt::Key_Return);
    QCOMPARE(focusOf(form_), u"txtPlaca"_s);
}

void TstFrmCadaVeiculosCampos::theYearGetsItsSlash()
{
    type(form_, u"txtAno"_s, u"2019"_s, false);
    QCOMPARE(shown(u"txtAno"_s), u"2019/"_s);
    type(form_, u"txtAno"_s, u"20192020"_s);
    QCOMPARE(shown(u"txtAno"_s), u"2019/2020"_s);
}

void TstFrmCadaVeiculosCampos::aStoredYearShowsWithoutOne()
{
    program_->sql(u"UPDATE Veiculos SET Ano = '2019' WHERE Codigo = 1"_s);
    load(u"0001"_s);
    QCOMPARE(shown(u"txtAno"_s), u"2019"_s);
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Ano FROM Veiculos WHERE Codigo = 1"_s), (Rows{{u"2019"_s}}));
}

void TstFrmCadaVeiculosCampos::anExistingPlateIsOnlyAWarning()
{
    boxes_->exclamation(u"Placa já cadastrada"_s);
    type(form_, u"txtPlaca"_s, u"abc1d23"_s);
    boxes_->finish();
    QTRY_COMPARE(focusOf(form_), u"txtCombustivel"_s);
    QCOMPARE(shown(u"txtPlaca"_s), u"ABC1D23"_s);
}

void TstFrmCadaVeiculosCampos::theVehiclesOwnPlateWarnsToo()
{
    load(u"0001"_s);
    boxes_->exclamation(u"Placa já cadastrada"_s);
    key(form_, u"txtPlaca"_s, Qt::Key_Tab);
    boxes_->finish();
    QCOMPARE(cadastro::shown(form_, gol), gol);
}

void TstFrmCadaVeiculosCampos::aPlateCanBeStoredTwice()
{
    type(form_, u"txtCodCliente"_s, u"2"_s);
    type(form_, u"cboMarca"_s, u"UNO"_s);
    boxes_->exclamation(u"Placa já cadastrada"_s).question(askInclude, true);
    type(form_, u"txtPlaca"_s, u"ABC1D23"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Veiculos WHERE Placas = 'ABC1D23' ORDER BY Codigo"_s),
             (Rows{{u"1"_s}, {u"4"_s}}));
}

void TstFrmCadaVeiculosCampos::anApostropheInThePlateIsARunTimeError()
{
    boxes_->critical(cadastro::errorBox(u"SELECT Placas FROM Veiculos WHERE Placas = 'AB'C1'"_s));
    type(form_, u"txtPlaca"_s, u"AB'C1"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(vehicles().size(), 3U);
}

// --- the list of makes

void TstFrmCadaVeiculosCampos::keepsTheListOfMakes()
{
    auto *make = control<QComboBox>(form_, u"cboMarca"_s);
    type(form_, u"cboMarca"_s, u"GOL 1.6"_s);
    click(form_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"1"_s, u"GOL 1.6"_s}}));
    QCOMPARE(make->count(), 1);
    QCOMPARE(make->itemText(0), u"GOL 1.6"_s);
    QCOMPARE(make->currentText(), u"GOL 1.6"_s);

    click(form_, u"btnMarcaRemove"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), Rows());
    QCOMPARE(make->count(), 0);
    QCOMPARE(make->currentText(), QString());
}

void TstFrmCadaVeiculosCampos::theListOfMakesIsItsOwn()
{
    form_->Unload();
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'UNO')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (2, 'BANCO DO BRASIL')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'FOX')"_s);
    open();
    const auto *make = control<QComboBox>(form_, u"cboMarca"_s);
    QCOMPARE(make->count(), 2);
    QCOMPARE(make->itemText(0), u"FOX"_s);
    QCOMPARE(make->itemText(1), u"UNO"_s);
    QCOMPARE(make->currentText(), QString());
}

void TstFrmCadaVeiculosCampos::completesAMake()
{
    form_->Unload();
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'GOL 1.6')"_s);
    core::AutoCompletar = true;
    open();
    type(form_, u"cboMarca"_s, u"g"_s, false);
    QTRY_COMPARE(shown(u"cboMarca"_s), u"GOL 1.6"_s);
}

void TstFrmCadaVeiculosCampos::aStoredMakeIsNotCompleted()
{
    form_->Unload();
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'CELTA 1.0')"_s);
    core::AutoCompletar = true;
    open();
    load(u"0002"_s);
    ui::DoEvents();
    QCOMPARE(shown(u"cboMarca"_s), u"CELTA"_s);
}

// --- bad input

void TstFrmCadaVeiculosCampos::pastedTextIsCutToTheColumn_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("length");
    QTest::newRow("year") << u"txtAno"_s << 9;
    QTest::newRow("colour") << u"txtCor"_s << 30;
    QTest::newRow("plate") << u"txtPlaca"_s << 10;
    QTest::newRow("fuel") << u"txtCombustivel"_s << 30;
    QTest::newRow("notes") << u"txtObservacoes"_s << 200;
    QTest::newRow("chassis") << u"txtChassi"_s << 50;
}

void TstFrmCadaVeiculosCampos::pastedTextIsCutToTheColumn()
{
    QFETCH(QString, field);
    QFETCH(int, length);
    cadastro::paste(form_, field, QString(300, u'X'));
    QCOMPARE(shown(field), QString(length, u'X'));
}

void TstFrmCadaVeiculosCampos::fieldsFilledToTheEdgeAreStored()
{
    type(form_, u"txtCodCliente"_s, u"1"_s);
    control<QComboBox>(form_, u"cboMarca"_s)->setEditText(QString(200, u'M'));
    for (const auto *field : {u"txtAno", u"txtCor", u"txtPlaca", u"txtCombustivel", u"txtObservacoes", u"txtChassi"}) {
        cadastro::paste(form_, QString::fromUtf16(field), QString(300, u'X'));
    }
    answer(askInclude, u"btnIncluir"_s);
    const auto x = [](int length) { return QString(length, u'X'); };
    QCOMPARE(vehicles().back(),
             (QStringList{u"4"_s, u"1"_s, QString(200, u'M'), x(9), x(30), x(10), x(30), x(200), x(50)}));
}

void TstFrmCadaVeiculosCampos::aModelBeyondItsColumnIsARunTimeError()
{
    type(form_, u"txtCodCliente"_s, u"1"_s);
    auto *make = control<QComboBox>(form_, u"cboMarca"_s);
    make->lineEdit()->setMaxLength(201); // what no user can type
    make->setEditText(QString(201, u'M'));
    boxes_->question(askInclude, true).critical(cadastro::errorBox(3163, runtime::errorText(3163, {u"MarcaModelo"_s})));
    click(form_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(vehicles().size(), 3U);
}

TARVELO_TEST_MAIN(TstFrmCadaVeiculosCampos)
#include "tst_frmCadaVeiculos_campos.moc"
