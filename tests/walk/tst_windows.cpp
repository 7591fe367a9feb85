// Every window of the program by name: opened by its command, closed in each way and opened again, minimised,
// maximised, taken above a modal window, and with its record deleted by somebody else.
#include "core/caminhos.h"
#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/configuracoes.h"
#include "shell/frmMDI.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/modal.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;
using ui::Forms;

namespace
{

struct Command {
    QStringView item;
    QStringView window;
    QStringView close; ///< the button that closes it
};

/// The commands that open a window in the main window's area.
constexpr auto commands = std::to_array<Command>({
    {u"itmCadaClie", u"frmCadaCliente", u"btnVoltar"},
    {u"itmCadaVeiculos", u"frmCadaVeiculos", u"btnVoltar"},
    {u"itmCadaPecas", u"frmCadaPecas", u"btnVoltar"},
    {u"itmCadaFornecedores", u"frmCadaFornecedor", u"btnVoltar"},
    {u"itmMoviEntradaPecas", u"frmMoviEntradaPeca", u"btnVoltar"},
    {u"itmMoviEntradaPecasConsultar", u"frmMoviEntradaPecaConsulta", u"btnVoltar"},
    {u"itmMoviConsEntrPecaFornecedor", u"frmRelaSelecaoNotasEntradas", u"btnVoltar"},
    {u"itmMoviEstoque", u"frmMoviEstoque", u"btnVoltar"},
    {u"itmMoviCaixa", u"frmMoviCaixa", u"btnVoltar"},
    {u"itmMoviContasPR", u"frmMoviContasPR", u"btnVoltar"},
    {u"itmMoviCheques", u"frmMoviCheques", u"btnVoltar"},
    {u"itmMoviFiado", u"frmMoviFiados", u"btnVoltar"},
    {u"itmMoviClientePendente", u"frmMoviFiadosConta", u"btnVoltar"},
    {u"itmMoviOrigem", u"frmMoviLivroOrigem", u"btnVoltar"},
    {u"itmRelaNotaEntradaUmFornecedor", u"frmRelaSelecaoNotasEntradas", u"btnVoltar"},
    {u"itmRelaEstoqueGeralPecas", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaListaCompras", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaListaPecas", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaPecaServVendidos", u"frmRelaSelecaoPecas", u"btnVoltar"},
    {u"itmRelaOrdensServicos", u"frmRelaSelecaoOS", u"btnVoltar"},
    {u"itmRelaContasPagarReceber", u"frmRelaSelecaoContasPR", u"btnVoltar"},
    {u"itmRelaListaDevedores", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaCheques", u"frmRelaSelecaoCheques", u"btnVoltar"},
    {u"itmRelaLivroCaixa", u"frmMoviCaixa", u"btnBack"},
    {u"itmRelaVisitas", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaVeiculos", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaNiver", u"frmRelatorio", u"btnVoltar"},
    {u"itmRelaVencimentosContas", u"frmInfoAviso", u"btnVoltar"},
    {u"itmRelaBalanco", u"frmBalanco", u"btnVoltar"},
    {u"itmOSAbrir", u"frmOSAbre", u"btnVoltar"},
    {u"itmOSConsultar", u"frmOSConsulta", u"btnVoltar"},
    {u"itmOSAltera", u"frmOSAltera", u"btnVoltar"},
    {u"itmOSImprimirNota", u"frmNota", u"btnVoltar"},
    {u"itmOSOrcaNovo", u"frmOSOrcaNovo", u"btnVoltar"},
    {u"itmOSOrcaConsulta", u"frmOSOrcaConsulta", u"btnVoltar"},
    {u"itmOSOrcaAltera", u"frmOSOrcaAltera", u"btnVoltar"},
    {u"itmOSFecha", u"frmOSConsulta", u"btnVoltar"},
    {u"itmConfigLogo", u"frmConfigLogo", u"btnVoltar"},
    {u"itmConfigOrcamento", u"frmConfigOrcamento", u"btnCancelar"},
    {u"itmInfoSobre", u"frmInfo", u"cmdOK"},
});

const QString operators = u"frmSenhaManut"_s; ///< the one that its command opens modally

QAction *action(const QString &item)
{
    return shell::principal().findChild<QAction *>(item);
}

QMdiArea *area()
{
    return Forms::instance().area();
}

ui::Form *choose(const QString &item, const QString &window)
{
    action(item)->trigger();
    return Forms::instance().find(window);
}

/// The window system hands the keyboard over in its own time.
bool hasKeyboard(const QString &window)
{
    return QTest::qWaitFor([&] {
        const auto *form = Forms::instance().find(window);
        const auto *focus = QApplication::focusWidget();
        return form != nullptr && focus != nullptr && form->isVisible() && form->isAncestorOf(focus);
    });
}

/// Closed for the user: the object may live on until what runs in it has come to its end.
bool isClosed(const QPointer<ui::Form> &form, const QString &window)
{
    return QTest::qWaitFor([&] { return !Forms::instance().find(window) && (!form || !form->isVisible()); });
}

} // namespace

class TstWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyCommandIsWalked();
    void aWindowClosesAndOpensAgain_data();
    void aWindowClosesAndOpensAgain();
    void aCommandBringsItsWindowBack_data();
    void aCommandBringsItsWindowBack();
    void aWindowGoesAboveAModalOne_data();
    void aWindowGoesAboveAModalOne();
    void aRecordThatIsGone_data();
    void aRecordThatIsGone();
    void aRecordThatGoesUnderTheQuestion_data();
    void aRecordThatGoesUnderTheQuestion();
    void anOrderThatIsGone();
    void aPartThatIsGoneFromTheStockWindow();
    void anOperatorWhoIsGone();
    void aCustomerWhoIsGoneIsHandedBack();

private:
    static void addCommands();
    ui::Form *openRegister(const QString &window);
    void elsewhere(const QString &statement) const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
};

void TstWindows::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    shell::liga();
}

void TstWindows::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    program_->config(u"PreencheCadastroAutomatico"_s, u"S"_s);
    // Two commands are for one workshop each.
    const bool origins = QString::fromLatin1(QTest::currentDataTag()) == u"itmMoviOrigem"_s;
    program_->config(u"Personalizacao"_s, origins ? u"1-1"_s : u"2-2"_s);
    program_->sql(u"INSERT INTO Clientes (Nome, Endereco, Numero, Estado) VALUES ('MARIA', 'RUA A', 1, 'SP')"_s);
    program_->sql(u"INSERT INTO Fornecedores (Nome, Endereco, Numero, Estado) VALUES ('CASA', 'RUA B', 2, 'SP')"_s);
    program_->vehicle(1, u"ABC1234"_s);
    program_->sql(
        u"INSERT INTO Pecas (Nome, MarcaModelo, PS, UM, ValorCusto, ValorVenda, ControlaEstoque, EstoqueMinimo) "
        "VALUES ('FILTRO', 'GOL', 'P', 0, 10, 20, -1, 1)"_s);
    program_->sql(u"INSERT INTO Estoque (CodPeca, Descricao, Entrada, Estoque) VALUES (1, 'INÍCIO', 0, 0)"_s);
    program_->sql(
        u"INSERT INTO OrdemServico (CodCliente, CodVeiculo, EmAberto, Pago, Valor) VALUES (1, 1, True, False, 20)"_s);
    program_->sql(u"INSERT INTO OSPecas (CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA) "
                  "VALUES (1, 1, 1, 'FILTRO', 20, 'P')"_s);
    shell::principal().MDIForm_Load();
    shell::principal().showNormal();
    shell::principal().resize(1366, 768);
    QVERIFY(QTest::qWaitForWindowActive(&shell::principal()));
}

void TstWindows::cleanup()
{
    boxes_.reset();
    support::failNotShown();
    Forms::instance().unloadAll();
    shell::fechaPrincipal();
    program_.reset();
}

/// What another workstation does.
void TstWindows::elsewhere(const QString &statement) const
{
    const auto other = dao::DBEngine::OpenDatabase(core::caminho(core::ArquivoDB));
    QCOMPARE(other->Execute(statement), 1);
}

void TstWindows::addCommands()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("close");
    for (const auto &command : commands) {
        QTest::newRow(qPrintable(command.item.toString()))
            << command.item.toString() << command.window.toString() << command.close.toString();
    }
}

/// A command that becomes available has to be walked too.
void TstWindows::everyCommandIsWalked()
{
    QSet<QString> walked{u"itmConfigSenha"_s};
    const QString ofAnotherWorkshop = u"itmMoviOrigem"_s;
    for (const auto &command : commands) {
        walked << command.item.toString();
    }
    QSet<QString> available;
    for (const auto *item : shell::principal().findChildren<QAction *>()) {
        const QString name = item->objectName();
        // Settings and copies ask in boxes, and have no window of their own.
        const bool asks = shell::ajusteDe(name) != nullptr || name.startsWith(u"itmBack"_s);
        if (item->isEnabled() && name.startsWith(u"itm"_s) && !asks) {
            available << name;
        }
    }
    QVERIFY(walked.remove(ofAnotherWorkshop));
    QCOMPARE(available, walked);
}

void TstWindows::aWindowClosesAndOpensAgain_data()
{
    addCommands();
}

void TstWindows::aWindowClosesAndOpensAgain()
{
    QFETCH(QString, item);
    QFETCH(QString, window);
    QFETCH(QString, close);
    const std::vector<std::function<void(ui::Form *)>> ways{
        [&](ui::Form *form) { support::click(form, close); },
        [](ui::Form *form) { form->parentWidget()->close(); },
        [](ui::Form *form) { QTest::keyClick(form->window()->windowHandle(), Qt::Key_F4, Qt::ControlModifier); },
        [&](ui::Form *) { Forms::instance().Unload(window); },
    };
    for (const auto &way : ways) {
        const QPointer<ui::Form> form = choose(item, window);
        QVERIFY(form);
        QVERIFY(hasKeyboard(window));
        QCOMPARE(area()->subWindowList().size(), 1);
        way(form);
        QVERIFY2(isClosed(form, window), qPrintable(u"way %1"_s.arg(&way - ways.data())));
        QCOMPARE(area()->subWindowList().size(), 0);
    }
}

void TstWindows::aCommandBringsItsWindowBack_data()
{
    addCommands();
}

void TstWindows::aCommandBringsItsWindowBack()
{
    QFETCH(QString, item);
    QFETCH(QString, window);
    const QPointer<ui::Form> form = choose(item, window);
    auto *frame = qobject_cast<QMdiSubWindow *>(form->parentWidget());
    QVERIFY(frame);

    frame->showMinimized();
    QCOMPARE(choose(item, window), form.data());
    QVERIFY(!frame->isMinimized());
    QVERIFY(hasKeyboard(window));

    frame->showMaximized();
    QVERIFY(hasKeyboard(window));
    choose(window == u"frmInfo"_s ? u"itmCadaClie"_s : u"itmInfoSobre"_s,
           window == u"frmInfo"_s ? u"frmCadaCliente"_s : u"frmInfo"_s);
    QCOMPARE(choose(item, window), form.data());
    QVERIFY(hasKeyboard(window));

    frame->showNormal();
    QVERIFY(hasKeyboard(window));
    QCOMPARE(area()->subWindowList().size(), 2);
}

void TstWindows::aWindowGoesAboveAModalOne_data()
{
    addCommands();
}

void TstWindows::aWindowGoesAboveAModalOne()
{
    QFETCH(QString, item);
    QFETCH(QString, window);
    QFETCH(QString, close);
    const QPointer<ui::Form> form = choose(item, window);
    QVERIFY(hasKeyboard(window));

    support::whenShown(operators, [&] {
        const auto closed = qScopeGuard([] { Forms::instance().Unload(operators); }); // after a failure too
        QCOMPARE(Forms::instance().Show(window), form.data());
        QVERIFY(form->isModal());
        QVERIFY(hasKeyboard(window));
        support::click(form, close);
        QVERIFY(isClosed(form, window));
        Forms::instance().find(operators)->activateWindow(); // as a window manager does
        QVERIFY(hasKeyboard(operators));
    });
    action(u"itmConfigSenha"_s)->trigger();

    QVERIFY(!Forms::instance().find(operators));
    QCOMPARE(area()->subWindowList().size(), 0);
    QVERIFY(choose(item, window));
    QVERIFY(hasKeyboard(window));
    QCOMPARE(area()->subWindowList().size(), 1);
}

// --- records that others delete

ui::Form *TstWindows::openRegister(const QString &window)
{
    auto *form = cadastro::open(window);
    if (cadastro::list(form)->count() != 1) {
        QTest::qFail("the register does not show its one row", __FILE__, __LINE__);
    }
    cadastro::clickRow(form, 0);
    return form;
}

void TstWindows::aRecordThatIsGone_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("table");
    QTest::addColumn<bool>("asksFirst");
    QTest::addColumn<QString>("message");
    QTest::newRow("customers") << u"frmCadaCliente"_s << u"Clientes"_s << false << u"Código não localizado"_s;
    QTest::newRow("vehicles") << u"frmCadaVeiculos"_s << u"Veiculos"_s << true << u"Código Não Localizado"_s;
    QTest::newRow("parts") << u"frmCadaPecas"_s << u"Pecas"_s << true << u"Código não localizado"_s;
    QTest::newRow("suppliers") << u"frmCadaFornecedor"_s << u"Fornecedores"_s << false << u"Código não localizado"_s;
}

void TstWindows::aRecordThatIsGone()
{
    QFETCH(QString, window);
    QFETCH(QString, table);
    QFETCH(bool, asksFirst);
    QFETCH(QString, message);
    auto *form = openRegister(window);
    QCOMPARE(support::text(form, u"lblCodigo"_s), u"0001"_s);
    elsewhere(u"DELETE * FROM "_s + table + u" WHERE Codigo = 1"_s);

    // Neither a click nor a double click finds anything to show, and both say nothing.
    cadastro::clickRow(form, 0);
    cadastro::doubleClickRow(form, 0);
    QCOMPARE(support::text(form, u"lblCodigo"_s), u"0001"_s);

    if (asksFirst) {
        boxes_->question(u"Confirma a Alteração"_s, true);
    }
    if (window == u"frmCadaPecas"_s) {
        boxes_->information(u"O Campo Estoque Atual Não Pode ser Alterado Pelo Cadastro de Peças/Serviços"_s);
    }
    boxes_->exclamation(message);
    support::click(form, u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(program_->rows(u"SELECT Codigo FROM "_s + table).size(), 0);

    boxes_->question(u"Deseja excluir o registro atual"_s, true);
    support::click(form, u"btnExcluir"_s);
    boxes_->finish();
    QCOMPARE(cadastro::list(form)->count(), 0);
}

void TstWindows::aRecordThatGoesUnderTheQuestion_data()
{
    aRecordThatIsGone_data();
}

/// The question is asked of a row that stands; the answer finds none.
void TstWindows::aRecordThatGoesUnderTheQuestion()
{
    QFETCH(QString, window);
    QFETCH(QString, table);
    QFETCH(QString, message);
    auto *form = openRegister(window);
    // A part is told in a box of its own, between the question and the writing, that its stock stays.
    const bool told = window == u"frmCadaPecas"_s;
    boxes_.reset();
    int boxes = 0;
    QStringList texts;
    QTimer hand;
    connect(&hand, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) {
            return;
        }
        texts << box->text();
        if (++boxes == 1) {
            elsewhere(u"DELETE * FROM "_s + table + u" WHERE Codigo = 1"_s);
        }
        box->buttons().constFirst()->click();
    });
    hand.start(5);
    support::click(form, u"btnAlterar"_s);
    hand.stop();

    QCOMPARE(texts.size(), told ? 3 : 2);
    QCOMPARE(texts.constFirst(), u"Confirma a Alteração"_s);
    QCOMPARE(texts.constLast(), message);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM "_s + table).size(), 0);
}

void TstWindows::anOrderThatIsGone()
{
    auto *form = choose(u"itmOSFecha"_s, u"frmOSConsulta"_s);
    QVERIFY(hasKeyboard(u"frmOSConsulta"_s));
    cadastro::clickRow(form, 0);
    QCOMPARE(support::text(form, u"lblCodigo"_s), u"0001"_s);
    elsewhere(u"DELETE * FROM OrdemServico WHERE Codigo = 1"_s);

    cadastro::clickRow(form, 0);
    QCOMPARE(support::text(form, u"lblCodigo"_s), QString());
    boxes_->exclamation(u"Você não pode Fechar uma Ordem de Serviço sem registros Cadastrados"_s);
    support::click(form, u"btnFechar"_s);
    boxes_->finish();
    support::click(form, u"btnOSPrint"_s); // with no order shown it does nothing
    QVERIFY(!QApplication::activeModalWidget());
}

void TstWindows::aPartThatIsGoneFromTheStockWindow()
{
    auto *form = choose(u"itmMoviEstoque"_s, u"frmMoviEstoque"_s);
    QVERIFY(hasKeyboard(u"frmMoviEstoque"_s));
    support::type(form, u"txtCodPeca"_s, u"1"_s);
    QCOMPARE(support::text(form, u"lblNome"_s), u"FILTRO"_s);
    elsewhere(u"DELETE * FROM Pecas WHERE Codigo = 1"_s);

    boxes_->exclamation(u"Código não localizado"_s);
    support::type(form, u"txtCodPeca"_s, u"1"_s);
    boxes_->finish();
    QCOMPARE(support::text(form, u"lblNome"_s), QString());
    boxes_->exclamation(u"Código da Peça/Serviço Inválido"_s);
    support::click(form, u"btnIncluir"_s);
    boxes_->finish();
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Estoque"_s).size(), 1);
}

void TstWindows::anOperatorWhoIsGone()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'ANA', 'X', False)"_s);
    support::whenShown(operators, [this] {
        const auto closed = qScopeGuard([] { Forms::instance().Unload(operators); }); // after a failure too
        auto *form = Forms::instance().find(operators);
        support::click(form, u"btnAtualiza"_s);
        QCOMPARE(cadastro::list(form)->count(), 2);
        cadastro::clickRow(form, 1);
        elsewhere(u"DELETE * FROM Senha WHERE Codigo = 2"_s);
        boxes_->exclamation(u"Código Não Localizado"_s);
        support::click(form, u"btnExcluir"_s);
        boxes_->finish();
    });
    action(u"itmConfigSenha"_s)->trigger();
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha"_s).size(), 1);
}

/// The list still shows him, so he is handed back; the caller looks him up and says so.
void TstWindows::aCustomerWhoIsGoneIsHandedBack()
{
    auto *vehicles = choose(u"itmCadaVeiculos"_s, u"frmCadaVeiculos"_s);
    QVERIFY(hasKeyboard(u"frmCadaVeiculos"_s));
    support::click(vehicles, u"btnClienteFind"_s);
    auto *customers = Forms::instance().find(u"frmCadaCliente"_s);
    QVERIFY(customers);
    QCOMPARE(cadastro::list(customers)->count(), 1);
    elsewhere(u"DELETE * FROM Clientes WHERE Codigo = 1"_s);

    const QPointer<ui::Form> picker = customers;
    cadastro::doubleClickRow(customers, 0);
    QVERIFY(isClosed(picker, u"frmCadaCliente"_s));
    QVERIFY(hasKeyboard(u"frmCadaVeiculos"_s));
    QCOMPARE(support::text(vehicles, u"txtCodCliente"_s), u"0001"_s);

    boxes_->exclamation(u"Código do Cliente não Localizado ou não Cadastrado"_s);
    support::key(vehicles, u"txtCodCliente"_s, Qt::Key_Tab);
    boxes_->finish();
    QCOMPARE(support::text(vehicles, u"lblNomeCliente"_s), QString());
}

TARVELO_TEST_MAIN(TstWindows)
#include "tst_windows.moc"
