#include "platform/ui/wait.h"
#include "registers/registro.h"
#include "tests/registers/veiculos.h"

using namespace Qt::StringLiterals;
using cadastro::askInclude;
using cadastro::columnOf;
using cadastro::focusOf;
using cadastro::isOpen;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

/// The register between its neighbours: the customers that it opens, and the order that opens it.
class TstFrmCadaVeiculosUsos : public VehicleCase
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { end(); }

    void opensTheCustomersInAMode_data();
    void opensTheCustomersInAMode();
    void theKeysWorkInTheCustomerCodeOnly_data();
    void theKeysWorkInTheCustomerCodeOnly();
    void takesTheCustomerPicked();
    void takesTheCustomerAdded();
    void pickingACustomerLosesTheOrder();
    void showsTheCustomersInformation();
    void showsNoInformationWithoutACustomer();

    void handsAPickedVehicleToTheOrder_data();
    void handsAPickedVehicleToTheOrder();
    void aDoubleClickOnlyLoadsInOtherModes_data();
    void aDoubleClickOnlyLoadsInOtherModes();
    void handsAnAddedVehicleToTheOrder();
    void aPickerThatIncludesStaysOpen();
    void theHandBacksNameControlsThatExist();
    void fromTheOrderThroughBothRegistersAndBack();

private:
    ui::Form *openOrder()
    {
        program_->config(u"LayoutOS"_s, u"1"_s);
        return cadastro::open(order);
    }

    static ui::Form *find(const QString &name) { return ui::Forms::instance().find(name); }

    /// The register that a key in the order's vehicle code opens.
    void openFrom(ui::Form *caller, Qt::Key opener)
    {
        key(caller, u"txtCodVeiculo"_s, opener);
        form_ = find(window);
        QVERIFY(form_ != nullptr);
        QTRY_VERIFY(form_->isActiveWindow());
    }
};

// --- the customer register

void TstFrmCadaVeiculosUsos::opensTheCustomersInAMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("functionKey");
    QTest::addColumn<int>("modeOfCustomers");
    QTest::addColumn<QString>("caption");
    const QString find = u"btnClienteFind"_s;
    const QString add = u"btnClienteAdd"_s;
    const QString pick = u"Tarvelo - [Consulta Código de Clientes]"_s;
    const QString include_ = u"Tarvelo - [Incluir Cliente]"_s;
    const QString plain = u"Tarvelo - [Cadastro de Clientes]"_s;
    constexpr int none = 0;
    QTest::newRow("find") << 0 << find << none << 1 << pick;
    QTest::newRow("F1") << 0 << QString() << int(Qt::Key_F1) << 1 << pick;
    QTest::newRow("find, while picking") << 3 << find << none << 1 << pick;
    QTest::newRow("F1, while adding") << 4 << QString() << int(Qt::Key_F1) << 1 << pick;
    QTest::newRow("add") << 0 << add << none << 2 << include_;
    QTest::newRow("F2") << 0 << QString() << int(Qt::Key_F2) << 2 << include_;
    QTest::newRow("F2, while picking") << 3 << QString() << int(Qt::Key_F2) << 2 << include_;
    QTest::newRow("add, while adding") << 4 << add << none << 4 << plain;
    QTest::newRow("F2, while adding") << 4 << QString() << int(Qt::Key_F2) << 4 << plain;
}

void TstFrmCadaVeiculosUsos::opensTheCustomersInAMode()
{
    QFETCH(int, mode);
    QFETCH(QString, button);
    QFETCH(int, functionKey);
    QFETCH(int, modeOfCustomers);
    open(mode);
    if (button.isEmpty()) {
        key(form_, u"txtCodCliente"_s, Qt::Key(functionKey));
    } else {
        click(form_, button);
    }
    QVERIFY(isOpen(customers));
    QVERIFY(find(customers)->isVisible());
    QCOMPARE(core::ModoChamada, qint16(modeOfCustomers));
    QTEST(find(customers)->windowTitle(), "caption");
}

void TstFrmCadaVeiculosUsos::theKeysWorkInTheCustomerCodeOnly_data()
{
    QTest::addColumn<QString>("field");
    for (const auto &[field, unused] : gol) {
        if (!field.startsWith(u"lbl"_s) && field != u"txtCodCliente"_s) {
            QTest::newRow(qPrintable(field)) << field;
        }
    }
    QTest::newRow("search text") << u"txtTexto"_s;
    QTest::newRow("list") << u"Lista"_s;
    QTest::newRow("button") << u"btnIncluir"_s;
}

void TstFrmCadaVeiculosUsos::theKeysWorkInTheCustomerCodeOnly()
{
    QFETCH(QString, field);
    open();
    key(form_, field, Qt::Key_F1);
    key(form_, field, Qt::Key_F2);
    QVERIFY(!isOpen(customers));
    QCOMPARE(core::ModoChamada, qint16{0});
    QCOMPARE(focusOf(form_), field);
}

void TstFrmCadaVeiculosUsos::takesTheCustomerPicked()
{
    open();
    key(form_, u"txtCodCliente"_s, Qt::Key_F1);
    auto *picker = find(customers);
    click(picker, u"btnTodos"_s);
    QCOMPARE(columnOf(picker), (QStringList{u"0002"_s, u"0001"_s}));
    cadastro::doubleClickRow(picker, 0);

    QTRY_VERIFY(!isOpen(customers));
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
    QCOMPARE(focusOf(form_), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtCodCliente"_s)->selectedText(), u"0002"_s);
    type(form_, u"cboMarca"_s, u"UNO"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), u"ANTONIO"_s);
}

void TstFrmCadaVeiculosUsos::takesTheCustomerAdded()
{
    open();
    key(form_, u"txtCodCliente"_s, Qt::Key_F2);
    auto *adding = find(customers);
    QCOMPARE(focusOf(adding), u"txtNome"_s);
    cadastro::fill(adding, {{u"txtNome"_s, u"JOANA"_s}, {u"txtEndereco"_s, u"RUA A"_s}, {u"txtNumero"_s, u"10"_s}});
    boxes_->question(askInclude, true);
    click(adding, u"btnIncluir"_s);

    QVERIFY(!isOpen(customers));
    QCOMPARE(shown(u"txtCodCliente"_s), u"3"_s);
    QCOMPARE(focusOf(form_), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtCodCliente"_s)->selectedText(), u"3"_s);
    type(form_, u"cboMarca"_s, u"UNO"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0003"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), u"JOANA"_s);

    // The register is a plain one: it keeps the vehicle to itself.
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(isOpen(window));
    QVERIFY(!isOpen(order));
    QCOMPARE(program_->rows(u"SELECT CodCliente, MarcaModelo FROM Veiculos WHERE Codigo = 4"_s),
             (Rows{{u"3"_s, u"UNO"_s}}));
}

/// The last mode set wins: after the picker of customers the register no longer knows of the order.
void TstFrmCadaVeiculosUsos::pickingACustomerLosesTheOrder()
{
    auto *caller = openOrder();
    openFrom(caller, Qt::Key_F2);
    key(form_, u"txtCodCliente"_s, Qt::Key_F1);
    auto *picker = find(customers);
    click(picker, u"btnTodos"_s);
    cadastro::doubleClickRow(picker, 1);
    QTRY_VERIFY(!isOpen(customers));
    type(form_, u"cboMarca"_s, u"UNO"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), u"MARIA"_s);
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), QString());
    QCOMPARE(vehicles().size(), 4U);
}

void TstFrmCadaVeiculosUsos::showsTheCustomersInformation()
{
    program_->sql(u"UPDATE Clientes SET Endereco = 'RUA A', Numero = 12, Complemento = 'CASA 2', Bairro = 'CENTRO', "
                  "Cidade = 'SANTOS', Fone1 = '(11) 3322-4455', Celular = '(11) 9876-5432', Observacoes = 'BOA' "
                  "WHERE Codigo = 1"_s);
    open();
    type(form_, u"txtCodCliente"_s, u"1"_s);
    boxes_->title(u"Tarvelo"_s)
        .information(u"Código Cliente:\t0001\nNome Cliente:\tMARIA\nEndereço:\tRUA A, 12\nComplemento:\tCASA 2\n"
                     "Bairro:\tCENTRO\nCidade:\tSANTOS\nFone1:\t(11) 3322-4455\nFone2:\t\n"
                     "Celular:\t(11) 9876-5432\nObservações:\tBOA\n"_s);
    click(form_, u"btnClienteInfo"_s);
    boxes_->finish();
}

void TstFrmCadaVeiculosUsos::showsNoInformationWithoutACustomer()
{
    open();
    click(form_, u"btnClienteInfo"_s);
    boxes_->exclamation(u"Código do Cliente não Localizado ou não Cadastrado"_s);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    click(form_, u"btnClienteInfo"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), QString());
}

// --- the order

void TstFrmCadaVeiculosUsos::handsAPickedVehicleToTheOrder_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("double click") << true;
    QTest::newRow("Enter") << false;
}

void TstFrmCadaVeiculosUsos::handsAPickedVehicleToTheOrder()
{
    QFETCH(bool, byMouse);
    auto *caller = openOrder();
    openFrom(caller, Qt::Key_F1);
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Consulta Código de Veículos]"_s);
    click(form_, u"btnTodos"_s);
    if (byMouse) {
        cadastro::doubleClickRow(form_, 1);
    } else {
        cadastro::clickRow(form_, 1);
        key(form_, u"Lista"_s, Qt::Key_Return);
    }

    QTRY_VERIFY(!isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), u"0003"_s);
    QCOMPARE(focusOf(caller), u"txtCodVeiculo"_s);
    QCOMPARE(control<QLineEdit>(caller, u"txtCodVeiculo"_s)->selectedText(), u"0003"_s);
    type(caller, u"txtKm"_s, u"1000"_s);
    QCOMPARE(text(caller, u"lblPlacas"_s), u"KLM9999"_s);
    QCOMPARE(text(caller, u"lblNome"_s), u"ANTONIO"_s);
}

void TstFrmCadaVeiculosUsos::aDoubleClickOnlyLoadsInOtherModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("plain") << 0;
    QTest::newRow("a customer was added meanwhile") << 2;
    QTest::newRow("adding") << 4;
}

void TstFrmCadaVeiculosUsos::aDoubleClickOnlyLoadsInOtherModes()
{
    QFETCH(int, mode);
    auto *caller = openOrder();
    openFull(mode);
    cadastro::doubleClickRow(form_, 2);
    ui::DoEvents();
    QVERIFY(isOpen(window));
    QCOMPARE(cadastro::shown(form_, gol), gol);
    key(form_, u"Lista"_s, Qt::Key_Return);
    ui::DoEvents();
    QVERIFY(isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), QString());
}

void TstFrmCadaVeiculosUsos::handsAnAddedVehicleToTheOrder()
{
    auto *caller = openOrder();
    openFrom(caller, Qt::Key_F2);
    QCOMPARE(core::ModoChamada, qint16{4});
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Incluir Veículo]"_s);
    cadastro::fill(form_, {{u"txtCodCliente"_s, u"2"_s}, {u"cboMarca"_s, u"UNO"_s}, {u"txtPlaca"_s, u"NEW0001"_s}});
    answer(askInclude, u"btnIncluir"_s);

    QVERIFY(!isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), u"4"_s);
    QCOMPARE(focusOf(caller), u"txtCodVeiculo"_s);
    QCOMPARE(control<QLineEdit>(caller, u"txtCodVeiculo"_s)->selectedText(), u"4"_s);
    type(caller, u"txtKm"_s, u"1000"_s);
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), u"0004"_s);
    QCOMPARE(text(caller, u"lblPlacas"_s), u"NEW0001"_s);
    QCOMPARE(text(caller, u"lblNome"_s), u"ANTONIO"_s);
}

void TstFrmCadaVeiculosUsos::aPickerThatIncludesStaysOpen()
{
    auto *caller = openOrder();
    openFrom(caller, Qt::Key_F1);
    cadastro::fill(form_, {{u"txtCodCliente"_s, u"2"_s}, {u"cboMarca"_s, u"UNO"_s}});
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), QString());
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s, u"0004"_s}));
}

void TstFrmCadaVeiculosUsos::theHandBacksNameControlsThatExist()
{
    const auto &table = registers::registroVeiculos();
    QCOMPARE(table.devolucoes.size(), 1U);
    QCOMPARE(table.devolucoesInclusao.size(), 1U);
    QCOMPARE(table.devolucoes[0].modo, qint16{3});
    QCOMPARE(table.devolucoesInclusao[0].modo, qint16{4});
    for (const auto &row : {table.devolucoes[0], table.devolucoesInclusao[0]}) {
        QCOMPARE(row.janela, u"frmOSAbre");
        QCOMPARE(row.controle, u"txtCodVeiculo");
        auto *target = ui::Forms::instance().Load(row.janela.toString());
        QVERIFY(target->findChild<QWidget *>(row.controle.toString()));
    }
}

void TstFrmCadaVeiculosUsos::fromTheOrderThroughBothRegistersAndBack()
{
    auto *caller = openOrder();
    openFrom(caller, Qt::Key_F2);
    QCOMPARE(focusOf(form_), u"txtCodCliente"_s);
    key(form_, u"txtCodCliente"_s, Qt::Key_F2);
    auto *adding = find(customers);
    QVERIFY(adding != nullptr);
    QCOMPARE(core::ModoChamada, qint16{4});
    QCOMPARE(adding->windowTitle(), u"Tarvelo - [Cadastro de Clientes]"_s);

    cadastro::fill(adding, {{u"txtNome"_s, u"JOANA"_s}, {u"txtEndereco"_s, u"RUA A"_s}, {u"txtNumero"_s, u"10"_s}});
    boxes_->question(askInclude, true);
    click(adding, u"btnIncluir"_s);
    QVERIFY(!isOpen(customers));
    QCOMPARE(shown(u"txtCodCliente"_s), u"3"_s);
    QCOMPARE(core::ModoChamada, qint16{4});

    cadastro::fill(form_, {{u"cboMarca"_s, u"UNO"_s}, {u"txtPlaca"_s, u"NEW0001"_s}});
    QCOMPARE(shown(u"lblNomeCliente"_s), u"JOANA"_s);
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(!isOpen(window));
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), u"4"_s);

    type(caller, u"txtKm"_s, u"1000"_s);
    QCOMPARE(text(caller, u"txtCodVeiculo"_s), u"0004"_s);
    QCOMPARE(text(caller, u"lblMarca"_s), u"UNO"_s);
    QCOMPARE(text(caller, u"lblNome"_s), u"JOANA"_s);
    QCOMPARE(text(caller, u"lblCodCliente"_s), u"3"_s);
    QCOMPARE(core::ModoChamada, qint16{0});
    boxes_->finish();
}

TARVELO_TEST_MAIN(TstFrmCadaVeiculosUsos)
#include "tst_frmCadaVeiculos_usos.moc"
