#include "registers/frmCadaFast.h"
#include "registers/registers.h"
#include "workorders/workorders.h"

#include "core/modulo.h"
#include "platform/ui/application.h"
#include "platform/ui/form.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::Rows;
using support::Boxes;
using support::click;
using support::control;
using support::text;
using support::type;

namespace
{

const QString question = u"Confirma a Inclusão"_s;

} // namespace

class TstFrmCadaFast : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensWithItsCaptionAndState();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void typedLettersBecomeCapitals();
    void masksFieldsAsTheyAreTyped_data();
    void masksFieldsAsTheyAreTyped();
    void theCodeTakesDigitsOnly();

    void aKnownCodeFillsTheCustomer();
    void anUnknownCodeEmptiesTheCustomerAndIsRefused();
    void anEmptyCodeEmptiesTheCustomer();
    void anExistingNameIsOnlyAWarning();
    void anExistingPlateIsOnlyAWarning();
    void anApostropheInTheNameIsARunTimeError();

    void refusesAMissingField_data();
    void refusesAMissingField();
    void nothingIsWrittenOnNo();
    void createsCustomerAndVehicle();
    void whatStaysEmptyIsNull();
    void aKnownCustomerStaysAsItWas();
    void aSecondCustomerOfANameCanBeCreated();
    void aFailureInTheVehicleLeavesTheCustomerBehind();
    void handsTheVehicleToTheOrder();
    void theHandBackNamesAControlThatExists();

    void keepsTheListOfMakes();
    void completesAMake();
    void backClosesAndWritesNothing();
    void thePickerIsOpenedInItsMode();

private:
    void fill(const QString &name, const QString &make);
    Rows customers() const { return program_->rows(u"SELECT * FROM Clientes"_s); }
    Rows vehicles() const { return program_->rows(u"SELECT * FROM Veiculos"_s); }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<Boxes> boxes_;
    ui::Form *form_ = nullptr;
};

void TstFrmCadaFast::initTestCase()
{
    registers::registerForms();
    workorders::registerForms();
}

void TstFrmCadaFast::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<Boxes>();
    form_ = support::show(u"frmCadaFast"_s);
}

void TstFrmCadaFast::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstFrmCadaFast::fill(const QString &name, const QString &make)
{
    type(form_, u"txtNome"_s, name);
    type(form_, u"cboMarca"_s, make);
}

void TstFrmCadaFast::opensWithItsCaptionAndState()
{
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Cadastro Rápido]"_s);
    QCOMPARE(control<QComboBox>(form_, u"cboEstado"_s)->currentIndex(), 24);
    QCOMPARE(text(form_, u"cboEstado"_s), u"SP"_s);
}

void TstFrmCadaFast::fitsTheMainWindow()
{
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmCadaFast::tabGoesFieldByField()
{
    const QStringList order{u"txtCodCliente"_s,  u"txtNome"_s,    u"txtEndereco"_s, u"txtNumero"_s, u"txtComplemento"_s,
                            u"txtBairro"_s,      u"txtCidade"_s,  u"cboEstado"_s,   u"txtCEP"_s,    u"txtFone1"_s,
                            u"txtCelular"_s,     u"cboMarca"_s,   u"txtAno"_s,      u"txtCor"_s,    u"txtPlaca"_s,
                            u"txtCombustivel"_s, u"btnIncluir"_s, u"btnVoltar"_s};
    support::controlOf(form_, order.first())->setFocus();
    for (const QString &name : order) {
        QVERIFY2(support::controlOf(form_, name)->hasFocus(), qPrintable(name));
        support::key(form_, name, Qt::Key_Tab);
    }
}

void TstFrmCadaFast::typedLettersBecomeCapitals()
{
    type(form_, u"txtNome"_s, u"josé da silva"_s);
    QCOMPARE(text(form_, u"txtNome"_s), u"JOSÉ DA SILVA"_s);
}

void TstFrmCadaFast::masksFieldsAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("postal code") << u"txtCEP"_s << u"01310x100"_s << u"01.310-100"_s;
    QTest::newRow("phone") << u"txtFone1"_s << u"1133224455"_s << u"(11) 3322-4455"_s;
    QTest::newRow("mobile") << u"txtCelular"_s << u"11-98765432"_s << u"(11) 9876-5432"_s;
    QTest::newRow("model year") << u"txtAno"_s << u"20192020"_s << u"2019/2020"_s;
}

void TstFrmCadaFast::masksFieldsAsTheyAreTyped()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    type(form_, field, typed);
    QTEST(text(form_, field), "shown");
}

void TstFrmCadaFast::theCodeTakesDigitsOnly()
{
    type(form_, u"txtCodCliente"_s, u"a1,b.2"_s, false);
    QCOMPARE(text(form_, u"txtCodCliente"_s), u"12"_s);
}

void TstFrmCadaFast::aKnownCodeFillsTheCustomer()
{
    program_->customer(u"MARIA"_s);
    program_->sql(u"UPDATE Clientes SET Endereco = 'RUA A', Numero = 12, Complemento = 'CASA 2', Bairro = 'CENTRO', "
                  "Cidade = 'SANTOS', Estado = 'RJ', CEP = '01.310-100', Fone1 = '(11) 3322-4455', "
                  "Celular = '(11) 9876-5432' WHERE Codigo = 1"_s);
    type(form_, u"txtCodCliente"_s, u"1"_s);

    QCOMPARE(text(form_, u"txtCodCliente"_s), u"0001"_s);
    QCOMPARE(text(form_, u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(text(form_, u"txtEndereco"_s), u"RUA A"_s);
    QCOMPARE(text(form_, u"txtNumero"_s), u"12"_s);
    QCOMPARE(text(form_, u"txtComplemento"_s), u"CASA 2"_s);
    QCOMPARE(text(form_, u"txtBairro"_s), u"CENTRO"_s);
    QCOMPARE(text(form_, u"txtCidade"_s), u"SANTOS"_s);
    QCOMPARE(text(form_, u"cboEstado"_s), u"RJ"_s);
    QCOMPARE(text(form_, u"txtCEP"_s), u"01.310-100"_s);
    QCOMPARE(text(form_, u"txtFone1"_s), u"(11) 3322-4455"_s);
    QCOMPARE(text(form_, u"txtCelular"_s), u"(11) 9876-5432"_s);
}

void TstFrmCadaFast::anUnknownCodeEmptiesTheCustomerAndIsRefused()
{
    type(form_, u"txtNome"_s, u"MARIA"_s);
    control<QComboBox>(form_, u"cboEstado"_s)->setEditText(u"RJ"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Cliente não localizado"_s);
    type(form_, u"txtCodCliente"_s, u"99"_s);

    QCOMPARE(text(form_, u"txtNome"_s), QString());
    QCOMPARE(text(form_, u"cboEstado"_s), u"SP"_s);
    QTRY_VERIFY(support::controlOf(form_, u"txtCodCliente"_s)->hasFocus());
}

void TstFrmCadaFast::anEmptyCodeEmptiesTheCustomer()
{
    type(form_, u"txtNome"_s, u"MARIA"_s);
    type(form_, u"txtFone1"_s, u"1133224455"_s);
    control<QComboBox>(form_, u"cboEstado"_s)->setEditText(u"RJ"_s);
    type(form_, u"txtCodCliente"_s, QString());

    QCOMPARE(text(form_, u"txtNome"_s), QString());
    QCOMPARE(text(form_, u"txtFone1"_s), QString());
    QCOMPARE(text(form_, u"cboEstado"_s), u"SP"_s);
}

void TstFrmCadaFast::anExistingNameIsOnlyAWarning()
{
    program_->customer(u"MARIA"_s);
    boxes_->exclamation(u"Nome de Cliente Já Cadastrado"_s);
    type(form_, u"txtNome"_s, u"MARIA"_s);
    QCOMPARE(text(form_, u"txtNome"_s), u"MARIA"_s);
    QTRY_VERIFY(support::controlOf(form_, u"txtEndereco"_s)->hasFocus());
}

void TstFrmCadaFast::anExistingPlateIsOnlyAWarning()
{
    program_->vehicle(program_->customer(u"MARIA"_s), u"ABC1234"_s);
    boxes_->exclamation(u"Placa já cadastrada"_s);
    type(form_, u"txtPlaca"_s, u"ABC1234"_s);
    QTRY_VERIFY(support::controlOf(form_, u"txtCombustivel"_s)->hasFocus());
}

void TstFrmCadaFast::anApostropheInTheNameIsARunTimeError()
{
    boxes_->critical(cadastro::errorBox(u"SELECT Codigo FROM Clientes WHERE Nome = 'JOANA D'ARC'"_s));
    type(form_, u"txtNome"_s, u"JOANA D'ARC"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(customers(), Rows());
}

void TstFrmCadaFast::refusesAMissingField_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("make");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("name") << QString() << u"GOL"_s << u"Nome Inválido"_s << u"txtNome"_s;
    QTest::newRow("make") << u"MARIA"_s << QString() << u"Marca/Modelo Inválido"_s << u"cboMarca"_s;
    QTest::newRow("both, the name first") << QString() << QString() << u"Nome Inválido"_s << u"txtNome"_s;
}

void TstFrmCadaFast::refusesAMissingField()
{
    QFETCH(QString, name);
    QFETCH(QString, make);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    fill(name, make);
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    click(form_, u"btnIncluir"_s);

    QTRY_VERIFY(support::controlOf(form_, focus)->hasFocus());
    QCOMPARE(customers().size() + vehicles().size(), 0U);
}

void TstFrmCadaFast::nothingIsWrittenOnNo()
{
    fill(u"MARIA"_s, u"GOL"_s);
    boxes_->title(u"Tarvelo"_s).question(question, false);
    click(form_, u"btnIncluir"_s);

    QCOMPARE(customers().size() + vehicles().size(), 0U);
    QCOMPARE(text(form_, u"txtNome"_s), u"MARIA"_s);
    QVERIFY(form_->isVisible());
}

void TstFrmCadaFast::createsCustomerAndVehicle()
{
    fill(u"MARIA"_s, u"GOL 1.6"_s);
    type(form_, u"txtEndereco"_s, u"RUA A"_s);
    type(form_, u"txtNumero"_s, u"120"_s);
    type(form_, u"txtComplemento"_s, u"CASA 2"_s);
    type(form_, u"txtBairro"_s, u"CENTRO"_s);
    type(form_, u"txtCidade"_s, u"SANTOS"_s);
    type(form_, u"txtCEP"_s, u"01310100"_s);
    type(form_, u"txtFone1"_s, u"1133224455"_s);
    type(form_, u"txtCelular"_s, u"1198765432"_s);
    type(form_, u"txtAno"_s, u"20192020"_s);
    type(form_, u"txtCor"_s, u"PRATA"_s);
    type(form_, u"txtPlaca"_s, u"ABC1D23"_s);
    type(form_, u"txtCombustivel"_s, u"FLEX"_s);
    boxes_->question(question, true);
    click(form_, u"btnIncluir"_s);

    const QString null = u"<Null>"_s;
    const Rows customer{{u"1"_s,      u"15/05/2024 00:00:00"_s,
                         u"MARIA"_s,  u"RUA A"_s,
                         u"120"_s,    u"CASA 2"_s,
                         u"CENTRO"_s, u"SANTOS"_s,
                         u"SP"_s,     u"01.310-100"_s,
                         null,        u"(11) 3322-4455"_s,
                         null,        u"(11) 9876-5432"_s,
                         null,        null,
                         null,        null,
                         null,        null}};
    QCOMPARE(customers(), customer);
    const Rows vehicle{{u"1"_s, u"1"_s, u"GOL 1.6"_s, u"2019/2020"_s, u"PRATA"_s, u"ABC1D23"_s, u"FLEX"_s, null, null}};
    QCOMPARE(vehicles(), vehicle);
}

void TstFrmCadaFast::whatStaysEmptyIsNull()
{
    fill(u"MARIA"_s, u"GOL"_s);
    boxes_->question(question, true);
    click(form_, u"btnIncluir"_s);

    const Rows customer{{u"<Null>"_s, u"<Null>"_s, u"SP"_s, u"<Null>"_s}};
    QCOMPARE(program_->rows(u"SELECT Endereco, Numero, Estado, LimiteCredito FROM Clientes"_s), customer);
    const Rows vehicle{{u"<Null>"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s}};
    QCOMPARE(program_->rows(u"SELECT Ano, Cor, Placas, Combustivel FROM Veiculos"_s), vehicle);
}

void TstFrmCadaFast::aKnownCustomerStaysAsItWas()
{
    program_->customer(u"OUTRA"_s);
    program_->customer(u"MARIA"_s, u"500,00"_s);
    const Rows before = customers();
    type(form_, u"txtCodCliente"_s, u"2"_s);
    fill(u"MARIA CASADA"_s, u"GOL"_s);
    type(form_, u"txtCidade"_s, u"SANTOS"_s);
    boxes_->question(question, true);
    click(form_, u"btnIncluir"_s);

    QCOMPARE(customers(), before);
    QCOMPARE(program_->rows(u"SELECT CodCliente, MarcaModelo FROM Veiculos"_s), (Rows{{u"2"_s, u"GOL"_s}}));
}

void TstFrmCadaFast::aSecondCustomerOfANameCanBeCreated()
{
    program_->customer(u"MARIA"_s);
    boxes_->exclamation(u"Nome de Cliente Já Cadastrado"_s).question(question, true);
    fill(u"MARIA"_s, u"GOL"_s);
    click(form_, u"btnIncluir"_s);

    QCOMPARE(program_->rows(u"SELECT Codigo, Nome FROM Clientes"_s),
             (Rows{{u"1"_s, u"MARIA"_s}, {u"2"_s, u"MARIA"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodCliente FROM Veiculos"_s), (Rows{{u"2"_s}}));
}

void TstFrmCadaFast::aFailureInTheVehicleLeavesTheCustomerBehind()
{
    type(form_, u"txtNome"_s, u"MARIA"_s);
    auto *make = control<QComboBox>(form_, u"cboMarca"_s);
    make->lineEdit()->setMaxLength(201); // what no user can type
    make->setEditText(QString(201, u'X'));
    boxes_->question(question, true)
        .critical(u"Erro em tempo de execução '3163':\n\n"_s + runtime::errorText(3163, {u"MarcaModelo"_s}));
    click(form_, u"btnIncluir"_s);

    boxes_->finish();
    QCOMPARE(program_->rows(u"SELECT Nome FROM Clientes"_s), (Rows{{u"MARIA"_s}}));
    QCOMPARE(vehicles(), Rows());
}

void TstFrmCadaFast::handsTheVehicleToTheOrder()
{
    program_->vehicle(program_->customer(u"OUTRA"_s), u"XYZ0000"_s);
    auto *order = support::show(u"frmOSAbre"_s);
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    fill(u"MARIA"_s, u"GOL"_s);
    boxes_->question(question, true);
    click(form_, u"btnIncluir"_s);

    QVERIFY(!ui::Forms::instance().find(u"frmCadaFast"_s));
    QCOMPARE(text(order, u"txtCodVeiculo"_s), u"2"_s);
    auto *code = control<QLineEdit>(order, u"txtCodVeiculo"_s);
    QCOMPARE(order->focusWidget(), code);
    QCOMPARE(code->selectedText(), u"2"_s);

    order->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(order));
    support::key(order, u"txtCodVeiculo"_s, Qt::Key_Tab);
    QCOMPARE(text(order, u"txtCodVeiculo"_s), u"0002"_s);
    QCOMPARE(text(order, u"lblMarca"_s), u"GOL"_s);
    QCOMPARE(text(order, u"lblNome"_s), u"MARIA"_s);
}

void TstFrmCadaFast::theHandBackNamesAControlThatExists()
{
    const auto tables = registers::frmCadaFast::devolucoes();
    QCOMPARE(tables.size(), 1U);
    for (const core::Devolucao &row : tables.front().linhas) {
        auto *target = ui::Forms::instance().Load(row.janela.toString());
        QVERIFY2(target->findChild<QWidget *>(row.controle.toString()), qPrintable(row.controle.toString()));
    }
}

void TstFrmCadaFast::keepsTheListOfMakes()
{
    auto *make = control<QComboBox>(form_, u"cboMarca"_s);
    type(form_, u"cboMarca"_s, u"GOL 1.6"_s);
    click(form_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"1"_s, u"GOL 1.6"_s}}));
    QCOMPARE(make->itemText(0), u"GOL 1.6"_s);
    QCOMPARE(make->currentText(), u"GOL 1.6"_s);

    click(form_, u"btnMarcaRemove"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), Rows());
    QCOMPARE(make->currentText(), QString());
}

void TstFrmCadaFast::completesAMake()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'GOL 1.6')"_s);
    core::AutoCompletar = true;
    form_->Unload();
    form_ = support::show(u"frmCadaFast"_s);
    type(form_, u"cboMarca"_s, u"g"_s, false);
    QTRY_COMPARE(text(form_, u"cboMarca"_s), u"GOL 1.6"_s);
}

void TstFrmCadaFast::backClosesAndWritesNothing()
{
    fill(u"MARIA"_s, u"GOL"_s);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!ui::Forms::instance().find(u"frmCadaFast"_s));
    QCOMPARE(customers().size() + vehicles().size(), 0U);
}

/// The last case: a window that is made known stays known.
void TstFrmCadaFast::thePickerIsOpenedInItsMode()
{
    cadastro::standIn(u"frmCadaCliente"_s, {});
    form_->Unload();
    form_ = support::show(u"frmCadaFast"_s);
    click(form_, u"btnClienteFind"_s);
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{38});
    QVERIFY(ui::Forms::instance().find(u"frmCadaCliente"_s)->isVisible());
}

TARVELO_TEST_MAIN(TstFrmCadaFast)
#include "tst_frmCadaFast.moc"
