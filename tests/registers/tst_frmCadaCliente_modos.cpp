#include "registers/registers.h"
#include "support/modal.h"
#include "tests/registers/clientes.h"
#include "workorders/workorders.h"

#include "platform/ui/boxes.h"

#include <QAbstractButton>
#include <QScopeGuard>
#include <QTabWidget>

using namespace clientes;
using support::click;
using support::control;
using support::type;

namespace
{

const QString plain = u"Tarvelo - [Cadastro de Clientes]"_s;
const QString picker = u"Tarvelo - [Consulta Código de Clientes]"_s;
const QString adding = u"Tarvelo - [Incluir Cliente]"_s;

} // namespace

/// How the register opens in its modes, what it hands back in them, and how it looks.
class TstFrmCadaClienteModos : public QObject, private clientes::Case
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { begin(); }
    void cleanup();

    void opensWithTheCaptionOfItsMode_data();
    void opensWithTheCaptionOfItsMode();
    void theCaptionBeginsWithTheWorkshopsName();
    void opensWithTheFocusOfItsMode_data();
    void opensWithTheFocusOfItsMode();
    void opensWithItsDefaults();
    void theListIsFilledOnlyIfTheSettingSaysSo_data();
    void theListIsFilledOnlyIfTheSettingSaysSo();
    void anOpenRegisterIsNotLoadedAgain();

    void handsAChosenRowBack_data();
    void handsAChosenRowBack();
    void handsCodeNameAndPhoneToTheAccount_data() { waysToChoose(); }
    void handsCodeNameAndPhoneToTheAccount();
    void otherModesOnlyLoadTheRow_data();
    void otherModesOnlyLoadTheRow();
    void theLastModeSetWins();
    void aCallerThatIsNotOpenIsOpened();
    void theCallerReactsByItsOwnEvents_data();
    void theCallerReactsByItsOwnEvents();
    void thePaymentWindowPicksModally_data() { waysToChoose(); }
    void thePaymentWindowPicksModally();
    void enterWithoutARowDoesNothing();

    void handsANewCustomerBack_data();
    void handsANewCustomerBack();
    void aRefusedInclusionHandsNothingBack();
    void inOtherModesANewCustomerStays_data();
    void inOtherModesANewCustomerStays();

    void backClosesAndNothingElse();
    void nothingIsLockedOrDisabled();
    void buttonsHaveTheirCaptionsAndTips_data();
    void buttonsHaveTheirCaptionsAndTips();
    void fieldsHaveTheirLabels();
    void tabGoesAsItIsRead();
    void fitsASmallScreen();

private:
    static void waysToChoose();
    static void choose(ui::Form *form, int row, bool byMouse);
};

void TstFrmCadaClienteModos::initTestCase()
{
    registers::registerForms();
    workorders::registerForms();
    cadastro::standIn(u"frmOSOrcaNovo"_s, {u"txtData"_s, u"txtCodCliente"_s});
    cadastro::standIn(u"frmMoviFiadosConta"_s,
                      {u"txtDescricao"_s, u"txtData"_s, u"lblCodigo"_s, u"lblNome"_s, u"lblFone"_s});
}

void TstFrmCadaClienteModos::cleanup()
{
    support::failNotShown();
    end();
}

void TstFrmCadaClienteModos::choose(ui::Form *form, int row, bool byMouse)
{
    if (byMouse) {
        cadastro::doubleClickRow(form, row);
        return;
    }
    cadastro::clickRow(form, row);
    support::key(form, u"Lista"_s, Qt::Key_Return);
}

// --- opening

void TstFrmCadaClienteModos::opensWithTheCaptionOfItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::newRow("menu") << 0 << plain;
    QTest::newRow("picker of vehicles") << 1 << picker;
    QTest::newRow("adding for vehicles") << 2 << adding;
    QTest::newRow("adding for vehicles, from an order") << 4 << plain;
    QTest::newRow("picker of estimates") << 12 << picker;
    QTest::newRow("adding for estimates") << 13 << adding;
    QTest::newRow("picker of accounts") << 19 << picker;
    QTest::newRow("picker of the quick register") << 38 << plain;
    QTest::newRow("picker of the payment") << 39 << plain;
}

void TstFrmCadaClienteModos::opensWithTheCaptionOfItsMode()
{
    QFETCH(int, mode);
    open(mode);
    QTEST(form_->windowTitle(), "caption");
    QVERIFY(form_->isVisible());
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaClienteModos::theCaptionBeginsWithTheWorkshopsName()
{
    core::NomeEmpresa = u"OFICINA DO ZÉ"_s;
    ui::setBoxTitle(core::NomeEmpresa);
    open(12);
    QCOMPARE(form_->windowTitle(), u"OFICINA DO ZÉ - [Consulta Código de Clientes]"_s);
    boxes_->title(core::NomeEmpresa).exclamation(u"Nome Inválido"_s);
    click(form_, u"btnIncluir"_s);
    boxes_->finish();
}

void TstFrmCadaClienteModos::opensWithTheFocusOfItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("field");
    QTest::newRow("menu") << 0 << u"txtNome"_s;
    QTest::newRow("picker of vehicles") << 1 << u"txtTexto"_s;
    QTest::newRow("adding for vehicles") << 2 << u"txtNome"_s;
    QTest::newRow("picker of estimates") << 12 << u"txtTexto"_s;
    QTest::newRow("adding for estimates") << 13 << u"txtNome"_s;
    QTest::newRow("picker of accounts") << 19 << u"txtTexto"_s;
}

void TstFrmCadaClienteModos::opensWithTheFocusOfItsMode()
{
    QFETCH(int, mode);
    QFETCH(QString, field);
    open(mode);
    QCOMPARE(focus(), field);
    QVERIFY(support::controlOf(form_, field)->hasFocus());
}

void TstFrmCadaClienteModos::opensWithItsDefaults()
{
    open();
    QCOMPARE(text(u"cboPessoa"_s), u"Física"_s);
    QCOMPARE(person(), 0);
    QCOMPARE(control<QComboBox>(form_, u"cboEstado"_s)->currentIndex(), 24);
    QCOMPARE(text(u"cboEstado"_s), u"SP"_s);
    QCOMPARE(control<QComboBox>(form_, u"cboPesquisa"_s)->currentIndex(), 2);
    QCOMPARE(text(u"cboPesquisa"_s), u"Nome"_s);
    for (const auto &[name, value] : mariaShown) {
        QVERIFY2(name.startsWith(u"cbo") || text(name).isEmpty(), qPrintable(name));
    }
    QCOMPARE(text(u"txtTexto"_s), QString());
}

void TstFrmCadaClienteModos::theListIsFilledOnlyIfTheSettingSaysSo_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("listed");
    const QStringList both{u"0002"_s, u"0001"_s};
    QTest::newRow("S") << u"S"_s << 0 << both;
    QTest::newRow("S, picker") << u"S"_s << 12 << both;
    QTest::newRow("N") << u"N"_s << 0 << QStringList();
    QTest::newRow("N, picker") << u"N"_s << 1 << QStringList();
    QTest::newRow("small s") << u"s"_s << 0 << QStringList();
    QTest::newRow("empty") << QString() << 0 << QStringList();
}

void TstFrmCadaClienteModos::theListIsFilledOnlyIfTheSettingSaysSo()
{
    QFETCH(QString, setting);
    QFETCH(int, mode);
    maria();
    program_->customer(u"ANA"_s);
    program_->config(u"PreencheCadastroAutomatico"_s, setting);
    open(mode);
    QTEST(codes(), "listed");
    QCOMPARE(text(u"lblCodigo"_s), QString());
}

void TstFrmCadaClienteModos::anOpenRegisterIsNotLoadedAgain()
{
    open();
    type(form_, u"txtEndereco"_s, u"RUA A"_s);
    auto *first = form_;
    open(1);
    QCOMPARE(form_, first);
    QCOMPARE(form_->windowTitle(), plain);
    QCOMPARE(text(u"txtEndereco"_s), u"RUA A"_s);
}

// --- handing a row back

void TstFrmCadaClienteModos::handsAChosenRowBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("callerName");
    QTest::addColumn<bool>("byMouse");
    const QList<std::pair<int, QString>> callers{
        {1, u"frmCadaVeiculos"_s}, {12, u"frmOSOrcaNovo"_s}, {38, u"frmCadaFast"_s}};
    for (const auto &[mode, name] : callers) {
        QTest::addRow("%s, double click", qPrintable(name)) << mode << name << true;
        QTest::addRow("%s, Enter", qPrintable(name)) << mode << name << false;
    }
}

void TstFrmCadaClienteModos::handsAChosenRowBack()
{
    QFETCH(int, mode);
    QFETCH(QString, callerName);
    QFETCH(bool, byMouse);
    maria();
    program_->customer(u"ZECA"_s);
    auto *caller = support::show(callerName);
    open(mode);
    choose(form_, 1, byMouse);

    QTRY_COMPARE(support::text(caller, u"txtCodCliente"_s), u"0002"_s);
    QVERIFY(!cadastro::isOpen(window));
    QCOMPARE(cadastro::focusOf(caller), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(caller, u"txtCodCliente"_s)->selectedText(), u"0002"_s);
}

void TstFrmCadaClienteModos::waysToChoose()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("double click") << true;
    QTest::newRow("Enter") << false;
}

void TstFrmCadaClienteModos::handsCodeNameAndPhoneToTheAccount()
{
    QFETCH(bool, byMouse);
    maria();
    auto *caller = support::show(u"frmMoviFiadosConta"_s);
    type(caller, u"txtData"_s, u"15/05/2024"_s);
    open(19);
    choose(form_, 0, byMouse);

    QTRY_VERIFY(!cadastro::isOpen(window));
    const Fields wanted{{u"lblCodigo"_s, u"0001"_s}, {u"lblNome"_s, u"Maria"_s}, {u"lblFone"_s, u"(19) 3232-1111"_s}};
    QCOMPARE(cadastro::shown(caller, wanted), wanted);
    QCOMPARE(cadastro::focusOf(caller), u"txtData"_s);
    QCOMPARE(control<QLineEdit>(caller, u"txtData"_s)->selectedText(), u"15/05/2024"_s);
}

void TstFrmCadaClienteModos::otherModesOnlyLoadTheRow_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 2, 4, 13, 7, 40}) {
        QTest::addRow("%d", mode) << mode;
    }
}

void TstFrmCadaClienteModos::otherModesOnlyLoadTheRow()
{
    QFETCH(int, mode);
    maria();
    open(mode);
    cadastro::doubleClickRow(form_, 0);
    support::key(form_, u"Lista"_s, Qt::Key_Return);
    QCoreApplication::processEvents();

    QCOMPARE(ui::Forms::instance().find(window), form_);
    QVERIFY(form_->isVisible());
    QCOMPARE(shown(mariaShown), mariaShown);
    for (const auto &caller : {u"frmCadaVeiculos"_s, u"frmOSOrcaNovo"_s, u"frmCadaFast"_s, u"frmMoviFiadosConta"_s}) {
        QVERIFY2(!cadastro::isOpen(caller), qPrintable(caller));
    }
}

void TstFrmCadaClienteModos::theLastModeSetWins()
{
    maria();
    auto *estimate = support::show(u"frmOSOrcaNovo"_s);
    auto *quick = support::show(u"frmCadaFast"_s);
    open(38);
    core::ModoChamada = 12;
    cadastro::doubleClickRow(form_, 0);
    QTRY_COMPARE(support::text(estimate, u"txtCodCliente"_s), u"0001"_s);
    QCOMPARE(support::text(quick, u"txtCodCliente"_s), QString());
}

void TstFrmCadaClienteModos::aCallerThatIsNotOpenIsOpened()
{
    maria();
    open(12);
    cadastro::doubleClickRow(form_, 0);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSOrcaNovo"_s));
    auto *caller = ui::Forms::instance().find(u"frmOSOrcaNovo"_s);
    QVERIFY(caller->isVisible());
    QCOMPARE(support::text(caller, u"txtCodCliente"_s), u"0001"_s);
}

void TstFrmCadaClienteModos::theCallerReactsByItsOwnEvents_data()
{
    QTest::addColumn<QString>("callerName");
    QTest::addColumn<QString>("nameField");
    QTest::newRow("quick register") << u"frmCadaFast"_s << u"txtNome"_s;
    QTest::newRow("vehicles") << u"frmCadaVeiculos"_s << u"lblNomeCliente"_s;
}

void TstFrmCadaClienteModos::theCallerReactsByItsOwnEvents()
{
    QFETCH(QString, callerName);
    QFETCH(QString, nameField);
    maria();
    auto *caller = cadastro::open(callerName);
    click(caller, u"btnClienteFind"_s);
    QTRY_VERIFY(cadastro::isOpen(window));
    form_ = ui::Forms::instance().find(window);
    QTRY_VERIFY(form_->isActiveWindow());
    cadastro::doubleClickRow(form_, 0);
    QTRY_VERIFY(!cadastro::isOpen(window));

    caller->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(caller));
    QCOMPARE(support::text(caller, u"txtCodCliente"_s), u"0001"_s);
    support::key(caller, u"txtCodCliente"_s, Qt::Key_Tab);
    QCOMPARE(support::text(caller, nameField), u"Maria"_s);
}

void TstFrmCadaClienteModos::thePaymentWindowPicksModally()
{
    QFETCH(bool, byMouse);
    maria();
    const QString payment = u"frmOSFormaPagto"_s;
    QString name;
    support::whenShown(payment, [&] {
        auto *caller = ui::Forms::instance().find(payment);
        const auto close = qScopeGuard([caller] { caller->Unload(); }); // or a failed case would wait for ever
        // The customer is asked for on a tab of its own.
        auto *field = control<QLineEdit>(caller, u"txtCodCliente"_s);
        auto *tabs = control<QTabWidget>(caller, u"tabPagto"_s);
        for (int tab = 0; !field->isVisible() && tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
        }
        click(caller, u"btnClienteFind"_s);
        QVERIFY(cadastro::isOpen(window));
        QCOMPARE(core::ModoChamada, qint16{39});
        form_ = ui::Forms::instance().find(window);
        QVERIFY(QTest::qWaitForWindowActive(form_));
        QCOMPARE(form_->windowTitle(), plain);
        choose(form_, 0, byMouse);
        QTRY_COMPARE(field->text(), u"0001"_s);
        QVERIFY(!cadastro::isOpen(window));
        QCOMPARE(field->selectedText(), u"0001"_s);
        QCOMPARE(cadastro::focusOf(caller), u"txtCodCliente"_s);

        caller->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(caller));
        support::key(caller, u"txtCodCliente"_s, Qt::Key_Tab);
        name = support::text(caller, u"lblNomeCliente"_s);
    });
    ui::Forms::instance().ShowModal(payment);
    QCOMPARE(name, u"Maria"_s);
}

void TstFrmCadaClienteModos::enterWithoutARowDoesNothing()
{
    auto *caller = support::show(u"frmOSOrcaNovo"_s);
    open(12);
    support::key(form_, u"Lista"_s, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(ui::Forms::instance().find(window), form_);
    QCOMPARE(support::text(caller, u"txtCodCliente"_s), QString());
}

// --- handing a new customer back

void TstFrmCadaClienteModos::handsANewCustomerBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("callerName");
    QTest::newRow("vehicles") << 2 << u"frmCadaVeiculos"_s;
    QTest::newRow("vehicles, from an order") << 4 << u"frmCadaVeiculos"_s;
    QTest::newRow("estimates") << 13 << u"frmOSOrcaNovo"_s;
}

void TstFrmCadaClienteModos::handsANewCustomerBack()
{
    QFETCH(int, mode);
    QFETCH(QString, callerName);
    maria();
    auto *caller = support::show(callerName);
    open(mode);
    cadastro::fill(form_, typed);
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);

    QTRY_COMPARE(support::text(caller, u"txtCodCliente"_s), u"2"_s);
    QVERIFY(!cadastro::isOpen(window));
    QCOMPARE(cadastro::focusOf(caller), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(caller, u"txtCodCliente"_s)->selectedText(), u"2"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Nome FROM Clientes"_s),
             (Rows{{u"1"_s, u"Maria"_s}, {u"2"_s, u"JOANA"_s}}));
}

void TstFrmCadaClienteModos::aRefusedInclusionHandsNothingBack()
{
    auto *caller = support::show(u"frmOSOrcaNovo"_s);
    open(13);
    cadastro::fill(form_, typed);
    boxes_->question(askInclude, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(support::text(caller, u"txtCodCliente"_s), QString());
    QVERIFY(cadastro::isOpen(window));
    QCOMPARE(stored(), Rows());
}

void TstFrmCadaClienteModos::inOtherModesANewCustomerStays_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 1, 12, 19, 38, 39}) {
        QTest::addRow("%d", mode) << mode;
    }
}

void TstFrmCadaClienteModos::inOtherModesANewCustomerStays()
{
    QFETCH(int, mode);
    open(mode);
    cadastro::fill(form_, typed);
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(ui::Forms::instance().find(window), form_);
    QCOMPARE(codes(), QStringList{u"0001"_s});
    QCOMPARE(focus(), u"txtNome"_s);
}

// --- the window

void TstFrmCadaClienteModos::backClosesAndNothingElse()
{
    open(12);
    cadastro::fill(form_, typed);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(window));
    QCOMPARE(core::ModoChamada, qint16{12});
    QCOMPARE(stored(), Rows());
    QVERIFY(!cadastro::isOpen(u"frmOSOrcaNovo"_s));
}

void TstFrmCadaClienteModos::nothingIsLockedOrDisabled()
{
    open();
    for (const auto *control : form_->findChildren<QWidget *>()) {
        QVERIFY2(control->isEnabled(), qPrintable(control->objectName()));
    }
    for (const auto *field : form_->findChildren<QLineEdit *>()) {
        QVERIFY2(!field->isReadOnly(), qPrintable(field->objectName()));
    }
}

void TstFrmCadaClienteModos::buttonsHaveTheirCaptionsAndTips_data()
{
    cadastro::addButtons(u"Clique aqui para Localizar um Registro na Lista Acima Somente pelo campo NOME"_s);
}

void TstFrmCadaClienteModos::buttonsHaveTheirCaptionsAndTips()
{
    open();
    cadastro::compareButton(form_);
}

void TstFrmCadaClienteModos::fieldsHaveTheirLabels()
{
    open();
    QStringList labels;
    for (const auto *label : form_->findChildren<QLabel *>()) {
        if (label->objectName().startsWith(u"Rotulos_")) {
            labels << label->text().remove(u'&');
        }
    }
    QStringList wanted{u"Código:"_s,      u"Data Cadastro:"_s, u"Nome Cliente:"_s,    u"Endereço:"_s,
                       u"Número:"_s,      u"Complemento:"_s,   u"Bairro:"_s,          u"Cidade:"_s,
                       u"Estado:"_s,      u"CEP:"_s,           u"Pto. Referência:"_s, u"Fone1:"_s,
                       u"Fone2:"_s,       u"Celular:"_s,       u"RG / Inscr.:"_s,     u"Tipo Pessoa:"_s,
                       u"CPF/CNPJ:"_s,    u"Data Nasc.:"_s,    u"E-mail:"_s,          u"Limite Crédito:"_s,
                       u"Observações:"_s, u"Pesquisar em:"_s};
    labels.sort();
    wanted.sort();
    QCOMPARE(labels, wanted);
}

void TstFrmCadaClienteModos::tabGoesAsItIsRead()
{
    open();
    const QStringList order{
        u"txtNome"_s,           u"txtEndereco"_s,  u"txtNumero"_s,    u"txtComplemento"_s,     u"txtBairro"_s,
        u"txtCidade"_s,         u"cboEstado"_s,    u"txtCEP"_s,       u"txtPontoReferencia"_s, u"txtFone1"_s,
        u"txtFone2"_s,          u"txtCelular"_s,   u"txtRG"_s,        u"cboPessoa"_s,          u"txtCPF"_s,
        u"txtDataNascimento"_s, u"txtEmail"_s,     u"txtLimite"_s,    u"txtObservacoes"_s,     u"btnIncluir"_s,
        u"btnAlterar"_s,        u"btnExcluir"_s,   u"btnCancelar"_s,  u"btnVoltar"_s,          u"cboPesquisa"_s,
        u"txtTexto"_s,          u"btnPesquisar"_s, u"btnLocalizar"_s, u"btnTodos"_s,           u"Lista"_s};
    QCOMPARE(cadastro::tabOrder(form_, order.front(), order.size() + 1), order + QStringList{order.front()});
}

void TstFrmCadaClienteModos::fitsASmallScreen()
{
    open();
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
    form_->resize(1000, 600);
    QTRY_COMPARE(form_->size(), QSize(1000, 600));
    QVERIFY(cadastro::list(form_)->viewport()->height() >= 4 * cadastro::list(form_)->fontMetrics().height());
}

TARVELO_TEST_MAIN(TstFrmCadaClienteModos)
#include "tst_frmCadaCliente_modos.moc"
