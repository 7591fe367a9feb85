#include "workorders/frmOSAbre.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"
#include "support/modal.h"
#include "support/otherprogram.h"
#include "tests/workorders/janelaos.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QString notFound = u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s;
const QString question = u"Confirma Inclusão"_s;

/// Stands in for a window that hands something back or takes it.
class Stand : public ui::Form
{
public:
    explicit Stand(const QString &name) : Form(name)
    {
        modeAtLoad = core::ModoChamada;
        auto *code = new QLineEdit(this);
        code->setObjectName(u"txtCodOS"_s);
        resize(200, 100);
    }
    static inline qint16 modeAtLoad = -1;
};

void addStand(const QString &name)
{
    ui::Forms::instance().add(name, [name] { return new Stand(name); });
}

} // namespace

class TstFrmOSAbre : public OrderWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { start(); }
    void cleanup()
    {
        support::failNotShown();
        stop();
    }

    void anOrderForAWindowThatDoesNotExistIsPassedOver();

    void opensWithItsCaption();
    void fitsTheMainWindow_data();
    void fitsTheMainWindow();
    void tabGoesAsAClerkTypes();
    void enterGoesOnAsTab();
    void typedLettersBecomeCapitals();
    void textsTakeWhatTheirColumnsHold();
    void aPastedMechanicIsCutToTheColumnAndTheOrderIsWritten();
    void buttonsThatWouldDoNothingSayWhy();
    void keepsTheListOfMechanics();

    void findsTheVehicleAndItsOwner_data();
    void findsTheVehicleAndItsOwner();
    void showsNullsAsEmpty();
    void anEmptyCodeAsksNothing();
    void putsTheModeBackAfterTheVehicle();
    void anUnknownVehicleNotWantedEmptiesItsData();
    void anUnknownVehicleIsRegisteredAtOnce();
    void anApostropheInThePlateIsARunTimeError();
    void showsInformationOnCustomerAndVehicle();

    void refusesAnOrderWithoutVehicle_data();
    void refusesAnOrderWithoutVehicle();
    void refusesAnUnknownVehicleBesideTheOneFoundBefore_data();
    void refusesAnUnknownVehicleBesideTheOneFoundBefore();
    void refusesAnOrderWithoutCustomer();
    void nothingIsWrittenOnNo();
    void writesTheOrder();
    void openingIsOneWriteOfTheFile();
    void anOrderWithoutItemsCanBeOpened();
    void writesItemsByListInTheFullLayout();
    void writesPartsAloneInTheCompactLayout();
    void writesTheTotalThatIsShown();
    void isReadyForTheNextOrder();
    void clearKeepsTheLists();
    void backClosesAndWritesNothing();

    void opensThePickersInTheirModes_data();
    void opensThePickersInTheirModes();
    void handsTheNumberToTheAlteringWindow();

private:
    void newVehicle();
    void openWithVehicle(const QString &layout = compact, qint16 mode = 0);
    void include() const;
    int count(const QString &name) const { return list(name)->count(); }
    Rows orders() const { return program_->rows(u"SELECT * FROM OrdemServico"_s); }
    Rows items() const;
};

/// The window alone: those that it knows by name are made known by the cases that want them.
void TstFrmOSAbre::initTestCase()
{
    registers::registerForms();
    core::RegistraJanela(
        u"frmOSAbre"_s, [] { return new workorders::frmOSAbre; }, workorders::frmOSAbre::devolucoes());
}

/// The second of everything, so that no code is right by accident.
void TstFrmOSAbre::newVehicle()
{
    program_->vehicle(program_->customer(u"OUTRO"_s), u"XYZ0000"_s);
    program_->vehicle(program_->customer(u"MARIA"_s), u"ABC1D23"_s, u"GOL 1.6"_s);
}

void TstFrmOSAbre::openWithVehicle(const QString &layout, qint16 mode)
{
    newVehicle();
    open(layout, mode);
    type(form_, u"txtCodVeiculo"_s, u"ABC1D23"_s);
}

void TstFrmOSAbre::include() const
{
    boxes_->title(u"Tarvelo"_s).question(question, true);
    click(form_, u"btnIncluir"_s);
}

OrderWindowTest::Rows TstFrmOSAbre::items() const
{
    return program_->rows(u"SELECT CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OSPecas"_s);
}

void TstFrmOSAbre::anOrderForAWindowThatDoesNotExistIsPassedOver()
{
    QVERIFY(!ui::Forms::instance().exists(u"frmOSAltera"_s));
    openWithVehicle(compact, 8);
    include();
    QCOMPARE(orders().size(), 1U);
    QVERIFY(!ui::Forms::instance().find(u"frmOSAbre"_s));
}

void TstFrmOSAbre::opensWithItsCaption()
{
    open();
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Abrir Ordem de Serviço]"_s);
    QVERIFY(at(u"txtCodVeiculo"_s)->hasFocus());
}

void TstFrmOSAbre::fitsTheMainWindow_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("compact") << compact;
    QTest::newRow("full") << full;
}

void TstFrmOSAbre::fitsTheMainWindow()
{
    QFETCH(QString, layout);
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open(layout);
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmOSAbre::tabGoesAsAClerkTypes()
{
    open(full);
    const QStringList order{u"txtCodVeiculo"_s, u"txtKm"_s,      u"txtObs"_s,        u"txtServicos"_s,
                            u"txtMecanico"_s,   u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtDescricao"_s,
                            u"txtValor"_s,      u"btnItemAdd"_s};
    at(order.first())->setFocus();
    for (const QString &name : order) {
        QVERIFY2(at(name)->hasFocus(), qPrintable(name));
        key(form_, name, Qt::Key_Tab);
    }
}

void TstFrmOSAbre::enterGoesOnAsTab()
{
    open();
    key(form_, u"txtKm"_s, Qt::Key_Return);
    QVERIFY(at(u"txtObs"_s)->hasFocus());
    key(form_, u"txtServicos"_s, Qt::Key_Enter);
    QVERIFY(at(u"txtMecanico"_s)->hasFocus());
    QCOMPARE(shown(u"txtServicos"_s), QString());
}

void TstFrmOSAbre::typedLettersBecomeCapitals()
{
    open();
    for (const QString &field : {u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s, u"txtMecanico"_s, u"txtDescricao"_s}) {
        type(form_, field, u"ção 1"_s);
        QCOMPARE(shown(field), u"ÇÃO 1"_s);
    }
}

void TstFrmOSAbre::textsTakeWhatTheirColumnsHold()
{
    open();
    const QString tooLong(300, u'X');
    QCOMPARE(control<QLineEdit>(form_, u"txtKm"_s)->maxLength(), 10);
    QCOMPARE(control<QLineEdit>(form_, u"txtObs"_s)->maxLength(), 250);
    auto *services = control<QPlainTextEdit>(form_, u"txtServicos"_s);
    services->setPlainText(tooLong);
    QCOMPARE(services->toPlainText().size(), 255);
    type(form_, u"txtServicos"_s, u"curto"_s);
    QCOMPARE(shown(u"txtServicos"_s), u"CURTO"_s);
}

void TstFrmOSAbre::aPastedMechanicIsCutToTheColumnAndTheOrderIsWritten()
{
    newVehicle();
    open();
    type(form_, u"txtCodVeiculo"_s, u"2"_s);
    QGuiApplication::clipboard()->setText(QString(230, u'J') + u"\nOÃO"_s);
    key(form_, u"txtMecanico"_s, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(shown(u"txtMecanico"_s), QString(200, u'J'));
    boxes_->question(u"Confirma Inclusão"_s, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Mecanico FROM OrdemServico"_s), (Rows{{QString(200, u'J')}}));
}

void TstFrmOSAbre::buttonsThatWouldDoNothingSayWhy()
{
    newVehicle();
    open(full);
    const auto offered = [&](const QString &button, const QString &reason) {
        const bool enabled = at(button)->isEnabled();
        return at(button)->toolTip().endsWith(reason) ? !enabled : false;
    };
    for (const QString &button : {u"btnMarcaAdd"_s, u"btnMarcaRemove"_s, u"btnMecAdd"_s, u"btnMecRemove"_s}) {
        QVERIFY2(offered(button, u"Digite o texto da lista"_s), qPrintable(button));
    }
    QVERIFY(offered(u"btnInfoVeiculo"_s, u"Nenhum veículo foi informado"_s));
    QVERIFY(offered(u"btnInfoCliente"_s, u"Nenhum veículo foi informado"_s));
    QVERIFY(offered(u"btnItemRemove"_s, u"Escolha um item na lista"_s));

    type(form_, u"txtCodVeiculo"_s, u"2"_s);
    type(form_, u"txtMecanico"_s, u"JOAO"_s);
    add(u"1"_s, u"POLIMENTO"_s, u"10"_s);
    list(u"Lista"_s)->selectRow(0);
    for (const QString &button : {u"btnInfoVeiculo"_s, u"btnInfoCliente"_s, u"btnMecAdd"_s, u"btnItemRemove"_s}) {
        QVERIFY2(at(button)->isEnabled(), qPrintable(button));
        QVERIFY2(!at(button)->toolTip().contains(u'\n'), qPrintable(at(button)->toolTip()));
    }
    goTo(3);
    QVERIFY(offered(u"btnItemRemove"_s, u"O material lançado não pode ser removido"_s));
    goTo(0);
    at(u"btnItemRemove"_s)->setFocus();
    click(form_, u"btnItemRemove"_s);
    QVERIFY(!at(u"btnItemRemove"_s)->isEnabled());
    QVERIFY(at(u"txtCodPeca"_s)->hasFocus());
}

void TstFrmOSAbre::keepsTheListOfMechanics()
{
    open();
    type(form_, u"txtMecanico"_s, u"JOAO"_s);
    click(form_, u"btnMecAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"5"_s, u"JOAO"_s}}));

    core::AutoCompletar = true;
    type(form_, u"txtMecanico"_s, u"jo"_s, false);
    QTRY_COMPARE(shown(u"txtMecanico"_s), u"JOAO"_s);
    click(form_, u"btnMecRemove"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), Rows());
    QCOMPARE(shown(u"txtMecanico"_s), QString());
}

void TstFrmOSAbre::findsTheVehicleAndItsOwner_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("code") << u"2"_s;
    QTest::newRow("plate in small letters") << u"abc1d23"_s;
    QTest::newRow("chassis") << u"9BWZZZ377VT004251"_s;
    QTest::newRow("chassis of digits") << u"777"_s;
}

void TstFrmOSAbre::findsTheVehicleAndItsOwner()
{
    QFETCH(QString, typed);
    newVehicle();
    const QString chassis = typed == u"777" ? u"777"_s : u"9BWZZZ377VT004251"_s;
    program_->sql(u"UPDATE Clientes SET Fone1 = '(11) 1234-5678', Celular = '(11) 9999-8888' WHERE Codigo = 2"_s);
    program_->sql(u"UPDATE Veiculos SET Ano = '2019/2020', Cor = 'PRATA', Combustivel = 'FLEX', Chassi = '"_s +
                  chassis + u"' WHERE Codigo = 2"_s);
    open();
    type(form_, u"txtCodVeiculo"_s, typed);

    QCOMPARE(shown(u"txtCodVeiculo"_s), u"0002"_s);
    QCOMPARE(shown(u"lblCodVeiculo"_s), u"0002"_s);
    QCOMPARE(shown(u"lblMarca"_s), u"GOL 1.6"_s);
    QCOMPARE(shown(u"lblPlacas"_s), u"ABC1D23"_s);
    QCOMPARE(shown(u"lblCombustivel"_s), u"FLEX"_s);
    QCOMPARE(shown(u"lblCor"_s), u"PRATA"_s);
    QCOMPARE(shown(u"lblAno"_s), u"2019/2020"_s);
    QCOMPARE(shown(u"lblCodCliente"_s), u"2"_s);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"lblFone1"_s), u"(11) 1234-5678"_s);
    QCOMPARE(shown(u"lblCelular"_s), u"(11) 9999-8888"_s);
    QVERIFY(at(u"txtKm"_s)->hasFocus());
}

void TstFrmOSAbre::showsNullsAsEmpty()
{
    openWithVehicle();
    for (const QString &label : {u"lblAno"_s, u"lblCor"_s, u"lblCombustivel"_s, u"lblFone1"_s, u"lblCelular"_s}) {
        QCOMPARE(shown(label), QString());
    }
}

void TstFrmOSAbre::anEmptyCodeAsksNothing()
{
    openWithVehicle(compact, 8);
    core::ModoChamada = 3;
    type(form_, u"txtCodVeiculo"_s, QString());
    QCOMPARE(shown(u"lblMarca"_s), u"GOL 1.6"_s);
    QCOMPARE(core::ModoChamada, qint16{3});
}

void TstFrmOSAbre::putsTheModeBackAfterTheVehicle()
{
    newVehicle();
    open(compact, 8);
    QCOMPARE(ui::tagOf(form_), u"8"_s);
    core::ModoChamada = 3;
    type(form_, u"txtCodVeiculo"_s, u"2"_s);
    QCOMPARE(core::ModoChamada, qint16{8});
}

void TstFrmOSAbre::anUnknownVehicleNotWantedEmptiesItsData()
{
    openWithVehicle();
    type(form_, u"txtKm"_s, u"1000"_s);
    type(form_, u"txtObs"_s, u"NADA"_s);
    type(form_, u"txtServicos"_s, u"REVISAO"_s);
    boxes_->title(u"Tarvelo"_s).question(notFound, false);
    type(form_, u"txtCodVeiculo"_s, u"1234"_s);

    auto *code = control<QLineEdit>(form_, u"txtCodVeiculo"_s);
    QTRY_VERIFY(code->hasFocus());
    QCOMPARE(code->selectedText(), u"1234"_s);
    for (const QString &name : {u"lblMarca"_s, u"lblPlacas"_s, u"lblCombustivel"_s, u"lblCor"_s, u"lblAno"_s,
                                u"lblNome"_s, u"lblFone1"_s, u"lblCelular"_s, u"txtKm"_s, u"txtObs"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QCOMPARE(shown(u"lblCodCliente"_s), u"2"_s);
    QCOMPARE(shown(u"txtServicos"_s), u"REVISAO"_s);
}

void TstFrmOSAbre::anUnknownVehicleIsRegisteredAtOnce()
{
    newVehicle();
    open(compact, 8);
    boxes_->question(notFound, true).question(u"Confirma a Inclusão"_s, true);
    support::whenShown(u"frmCadaFast"_s, [] {
        auto *quick = ui::Forms::instance().find(u"frmCadaFast"_s);
        QVERIFY(quick->isModal());
        QCOMPARE(support::text(quick, u"txtPlaca"_s), u"NEW0A11"_s);
        core::ModoChamada = 38;
        type(quick, u"txtNome"_s, u"PEDRO"_s);
        type(quick, u"cboMarca"_s, u"UNO"_s);
        click(quick, u"btnIncluir"_s);
    });
    type(form_, u"txtCodVeiculo"_s, u"NEW0A11"_s);

    QCOMPARE(program_->rows(u"SELECT Codigo, CodCliente, Placas FROM Veiculos WHERE Codigo = 3"_s),
             (Rows{{u"3"_s, u"3"_s, u"NEW0A11"_s}}));
    QCOMPARE(core::ModoChamada, qint16{8});
    QCOMPARE(form_->focusWidget(), at(u"txtCodVeiculo"_s));
    QCOMPARE(shown(u"txtCodVeiculo"_s), u"3"_s);
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    key(form_, u"txtCodVeiculo"_s, Qt::Key_Tab);
    QCOMPARE(shown(u"lblNome"_s), u"PEDRO"_s);
    QCOMPARE(shown(u"lblMarca"_s), u"UNO"_s);
}

void TstFrmOSAbre::anApostropheInThePlateIsARunTimeError()
{
    open();
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    QString error;
    try {
        workorders::ProcuraVeiculo(u"D'AGUA"_s);
    } catch (const runtime::RuntimeError &raised) {
        error = u"Erro em tempo de execução '%1':\n\n%2"_s.arg(raised.number()).arg(raised.description());
    }
    QVERIFY(error.contains(u"3075"));
    boxes_->critical(error);
    type(form_, u"txtCodVeiculo"_s, u"D'AGUA"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(orders(), Rows());
}

void TstFrmOSAbre::showsInformationOnCustomerAndVehicle()
{
    openWithVehicle();
    boxes_->title(u"Tarvelo"_s)
        .information(u"Código:\t0002\nNome Cliente:\tMARIA\nMarca/Modelo:\tGOL 1.6\nAno:\t\nCor:\t\nPlacas:\tABC1D23\n"
                     "Combustível:\t\nObservações:\t\n"_s)
        .information(u"Código Cliente:\t0002\nNome Cliente:\tMARIA\nEndereço:\t, \nComplemento:\t\nBairro:\t\n"
                     "Cidade:\t\nFone1:\t\nFone2:\t\nCelular:\t\nObservações:\t\n"_s);
    click(form_, u"btnInfoVeiculo"_s);
    click(form_, u"btnInfoCliente"_s);
}

void TstFrmOSAbre::refusesAnOrderWithoutVehicle_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("make");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("no code") << QString() << u"GOL"_s;
    QTest::newRow("no make") << u"0002"_s << QString();
}

void TstFrmOSAbre::refusesAnOrderWithoutVehicle()
{
    QFETCH(QString, code);
    QFETCH(QString, make);
    openWithVehicle();
    ui::setTextOf(at(u"txtCodVeiculo"_s), code);
    ui::setTextOf(at(u"lblMarca"_s), make);
    type(form_, u"txtKm"_s, u"1000"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código de Veículo Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QTRY_VERIFY(at(u"txtCodVeiculo"_s)->hasFocus());
    QCOMPARE(shown(u"txtKm"_s), u"1000"_s);
    QCOMPARE(orders(), Rows());
}

void TstFrmOSAbre::refusesAnUnknownVehicleBesideTheOneFoundBefore_data()
{
    QTest::addColumn<QString>("unknown");
    QTest::newRow("plate") << u"NEW0A11"_s;
    QTest::newRow("code") << u"1234"_s;
}

/// The quick register is left without a new vehicle.
void TstFrmOSAbre::refusesAnUnknownVehicleBesideTheOneFoundBefore()
{
    QFETCH(QString, unknown);
    openWithVehicle();
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    boxes_->question(notFound, true);
    support::whenShown(u"frmCadaFast"_s, [] { click(ui::Forms::instance().find(u"frmCadaFast"_s), u"btnVoltar"_s); });
    type(form_, u"txtCodVeiculo"_s, unknown);
    QVERIFY(!ui::Forms::instance().find(u"frmCadaFast"_s));
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    type(form_, u"txtKm"_s, u"1000"_s);
    QCOMPARE(shown(u"lblMarca"_s), u"GOL 1.6"_s);

    boxes_->title(u"Tarvelo"_s).exclamation(u"Código de Veículo Inválido"_s);
    click(form_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(!ui::Application::ended());
    QCOMPARE(orders(), Rows());
    QCOMPARE(count(u"Lista"_s), 1);
    QTRY_VERIFY(at(u"txtCodVeiculo"_s)->hasFocus());
}

void TstFrmOSAbre::refusesAnOrderWithoutCustomer()
{
    openWithVehicle();
    ui::setTextOf(at(u"lblCodCliente"_s), QString());
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Cliente Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QTRY_VERIFY(at(u"txtCodVeiculo"_s)->hasFocus());
    QCOMPARE(orders(), Rows());
}

void TstFrmOSAbre::nothingIsWrittenOnNo()
{
    openWithVehicle();
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    boxes_->question(question, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(orders(), Rows());
    QCOMPARE(items(), Rows());
    QCOMPARE(count(u"Lista"_s), 1);
    QCOMPARE(shown(u"lblTotal"_s), u"30,00"_s);
}

void TstFrmOSAbre::writesTheOrder()
{
    openWithVehicle();
    type(form_, u"txtKm"_s, u"98.500"_s);
    type(form_, u"txtObs"_s, u"barulho"_s);
    type(form_, u"txtServicos"_s, u"revisao"_s);
    type(form_, u"txtMecanico"_s, u"joao"_s);
    add(u"1"_s, u"LAVAGEM"_s, u"1234,5"_s);
    include();

    const Rows order{{u"1"_s, u"2"_s, u"2"_s, u"15/05/2024 10:30:00"_s, u"<Null>"_s, u"98.500"_s, u"BARULHO"_s,
                      u"1234.5"_s, u"True"_s, u"False"_s, u"<Null>"_s, u"<Null>"_s, u"REVISAO"_s, u"JOAO"_s}};
    QCOMPARE(orders(), order);
    QCOMPARE(items(), (Rows{{u"1"_s, u"0"_s, u"1"_s, u"LAVAGEM"_s, u"1234.5"_s, u"A"_s}}));
}

/// A kill or a power cut leaves the whole order or none.
void TstFrmOSAbre::openingIsOneWriteOfTheFile()
{
    openWithVehicle();
    for (const auto &name : {u"LAVAGEM"_s, u"ESTOPA"_s, u"REVISÃO"_s}) {
        add(u"1"_s, name, u"10"_s);
    }
    const quint32 before = support::writesOf(core::DBDados->path());
    include();
    QCOMPARE(support::writesOf(core::DBDados->path()) - before, 1U);
    QCOMPARE(items().size(), 3U);
}

void TstFrmOSAbre::anOrderWithoutItemsCanBeOpened()
{
    openWithVehicle();
    include();
    const QString null = u"<Null>"_s;
    const Rows order{{u"1"_s, u"2"_s, u"2"_s, u"15/05/2024 10:30:00"_s, null, null, null, u"0"_s, u"True"_s, u"False"_s,
                      null, null, null, null}};
    QCOMPARE(orders(), order);
    QCOMPARE(items(), Rows());
}

void TstFrmOSAbre::writesItemsByListInTheFullLayout()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s, false, 2);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"0,10"_s);
    openWithVehicle(full);
    goTo(3);
    addRegistered(part, u"2"_s);
    goTo(2);
    add(u"1"_s, u"GUINCHO"_s, u"200"_s);
    goTo(1);
    add(u"1"_s, u"SOLDA"_s, u"9,99"_s);
    addRegistered(service, u"2"_s);
    goTo(0);
    add(u"1"_s, u"AVULSA"_s, u"0,05"_s);
    addRegistered(part, u"2"_s);
    include();

    const Rows expected{{u"1"_s, u"0"_s, u"1"_s, u"AVULSA"_s, u"0.05"_s, u"A"_s},
                        {u"1"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"27.55"_s, u"P"_s},
                        {u"1"_s, u"0"_s, u"1"_s, u"SOLDA"_s, u"9.99"_s, u"Z"_s},
                        {u"1"_s, u"2"_s, u"2"_s, u"TROCA"_s, u"0.1"_s, u"S"_s},
                        {u"1"_s, u"0"_s, u"1"_s, u"GUINCHO"_s, u"200"_s, u"X"_s},
                        {u"1"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"0"_s, u"K"_s}};
    QCOMPARE(items(), expected);
    QCOMPARE(program_->value(u"SELECT Valor FROM OrdemServico"_s), runtime::Value(265.34F));
}

void TstFrmOSAbre::writesPartsAloneInTheCompactLayout()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    openWithVehicle(compact);
    addRegistered(service, u"2"_s);
    add(u"1"_s, u"GUINCHO"_s, u"200"_s);
    addRegistered(part, u"2"_s);
    goTo(3);
    addRegistered(part, u"2"_s);
    QCOMPARE(count(u"lstMaterial"_s), 1);
    include();

    const Rows expected{{u"1"_s, u"2"_s, u"2"_s, u"TROCA"_s, u"50"_s, u"S"_s},
                        {u"1"_s, u"0"_s, u"1"_s, u"GUINCHO"_s, u"200"_s, u"A"_s},
                        {u"1"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"27.55"_s, u"P"_s}};
    QCOMPARE(items(), expected);
}

void TstFrmOSAbre::writesTheTotalThatIsShown()
{
    openWithVehicle(full);
    add(u"1"_s, u"AVULSA"_s, u"10"_s);
    goTo(1);
    click(form_, u"btnLimpa"_s);
    include();
    QCOMPARE(program_->value(u"SELECT Valor FROM OrdemServico"_s), runtime::Value(0.0F));
    QCOMPARE(items().size(), 1U);
}

void TstFrmOSAbre::isReadyForTheNextOrder()
{
    const qint32 part = program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s);
    openWithVehicle(full);
    type(form_, u"txtKm"_s, u"1000"_s);
    add(u"1"_s, u"AVULSA"_s, u"10"_s);
    goTo(1);
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    goTo(2);
    add(u"1"_s, u"GUINCHO"_s, u"10"_s);
    goTo(3);
    addRegistered(part, u"2"_s);
    include();

    QVERIFY(form_->isVisible());
    for (const QString &list : {u"Lista"_s, u"lstServicos"_s, u"lstTercerizados"_s, u"lstMaterial"_s}) {
        QCOMPARE(count(list), 0);
    }
    for (const QString &name :
         {u"txtCodVeiculo"_s, u"lblCodVeiculo"_s, u"lblCodCliente"_s, u"lblMarca"_s, u"txtKm"_s}) {
        QCOMPARE(shown(name), QString());
    }
    for (const QString &name : {u"lblTotal"_s, u"lblTotalP"_s, u"lblTotalS"_s, u"lblTotalT"_s}) {
        QCOMPARE(shown(name), u"0,00"_s);
    }
    QTRY_VERIFY(at(u"txtCodVeiculo"_s)->hasFocus());
}

void TstFrmOSAbre::clearKeepsTheLists()
{
    openWithVehicle();
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    for (const QString &name : {u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s, u"txtMecanico"_s, u"txtDescricao"_s}) {
        type(form_, name, u"TEXTO"_s);
    }
    click(form_, u"btnCancelar"_s);

    QCOMPARE(count(u"Lista"_s), 1);
    for (const QString &name :
         {u"txtCodVeiculo"_s, u"lblMarca"_s, u"lblNome"_s, u"lblPlacas"_s, u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s,
          u"txtMecanico"_s, u"txtDescricao"_s, u"txtQuantidade"_s, u"txtValor"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(shown(u"Rotulos_1"_s), u"Código/P&laca Veículo:"_s);
    QVERIFY(at(u"txtCodVeiculo"_s)->hasFocus());

    add(u"1"_s, u"CERA"_s, u"5"_s);
    QCOMPARE(shown(u"lblTotal"_s), u"35,00"_s);
}

void TstFrmOSAbre::backClosesAndWritesNothing()
{
    openWithVehicle();
    add(u"1"_s, u"LAVAGEM"_s, u"30"_s);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!ui::Forms::instance().find(u"frmOSAbre"_s));
    QCOMPARE(orders(), Rows());
}

// From here on the windows that are opened from this one are known: what is made known stays known.

void TstFrmOSAbre::opensThePickersInTheirModes_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("pressed");
    QTest::addColumn<QString>("window");
    QTest::addColumn<int>("mode");
    const QString vehicles = u"frmCadaVeiculos"_s;
    const QString parts = u"frmCadaPecas"_s;
    QTest::newRow("find vehicle") << u"btnVeiculoFind"_s << 0 << vehicles << 3;
    QTest::newRow("add vehicle") << u"btnVeiculoAdd"_s << 0 << vehicles << 4;
    QTest::newRow("F1 in the vehicle") << u"txtCodVeiculo"_s << int(Qt::Key_F1) << vehicles << 3;
    QTest::newRow("F2 in the vehicle") << u"txtCodVeiculo"_s << int(Qt::Key_F2) << vehicles << 4;
    QTest::newRow("find part") << u"btnPecaFind"_s << 0 << parts << 5;
    QTest::newRow("add part") << u"btnPecaAdd"_s << 0 << parts << 6;
    QTest::newRow("F1 in the item") << u"txtCodPeca"_s << int(Qt::Key_F1) << parts << 5;
    QTest::newRow("F2 in the item") << u"txtCodPeca"_s << int(Qt::Key_F2) << parts << 6;
}

void TstFrmOSAbre::opensThePickersInTheirModes()
{
    QFETCH(QString, control);
    QFETCH(int, pressed);
    QFETCH(QString, window);
    QFETCH(int, mode);
    addStand(u"frmCadaVeiculos"_s);
    addStand(u"frmCadaPecas"_s);
    open();
    if (pressed != 0) {
        key(form_, control, Qt::Key(pressed));
    } else {
        click(form_, control);
    }
    QCOMPARE(int{Stand::modeAtLoad}, mode);
    QCOMPARE(int{core::ModoChamada}, mode);
    auto *opened = ui::Forms::instance().find(window);
    QVERIFY(opened && opened->isVisible());
}

void TstFrmOSAbre::handsTheNumberToTheAlteringWindow()
{
    addStand(u"frmOSAltera"_s);
    auto *altering = support::show(u"frmOSAltera"_s);
    program_->sql(u"INSERT INTO OrdemServico (Codigo, KM) VALUES (41, 'X')"_s);
    openWithVehicle(compact, 8);
    include();

    QVERIFY(!ui::Forms::instance().find(u"frmOSAbre"_s));
    auto *code = control<QLineEdit>(altering, u"txtCodOS"_s);
    QCOMPARE(code->text(), u"42"_s);
    QCOMPARE(code->selectedText(), u"42"_s);
    QCOMPARE(altering->focusWidget(), code);
}

TARVELO_TEST_MAIN(TstFrmOSAbre)
#include "tst_frmOSAbre.moc"
