#include "core/modulo.h"
#include "platform/ui/form.h"
#include "shell/frmMDI.h"
#include "support/modal.h"
#include "support/program.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{

constexpr int unchanged = -1;
constexpr qint16 modeBefore = 77;

struct Loaded {
    QString form;
    int mode = 0;
    int times = 0;
};

Loaded lastLoaded;

/// Stands for a window of another part of the program and notes the mode that it is loaded in.
class Stand : public ui::Form
{
public:
    explicit Stand(const QString &name) : Form(name) { resize(200, 100); }
    void Form_Load() override { lastLoaded = {objectName(), core::ModoChamada, lastLoaded.times + 1}; }
};

struct Row {
    const char16_t *menu;
    const char16_t *item;
    const char16_t *caption;
    const char16_t *form;
    int mode;
};

constexpr Row rows[] = {
    {u"mnuCadastro", u"itmCadaClie", u"Cadastro de &Clientes...", u"frmCadaCliente", 0},
    {u"mnuCadastro", u"itmCadaVeiculos", u"Cadastro de &Veiculos...", u"frmCadaVeiculos", 0},
    {u"mnuCadastro", u"itmCadaPecas", u"Cadastro de &Peças/Serviços...", u"frmCadaPecas", 0},
    {u"mnuCadastro", u"itmCadaFornecedores", u"Cadastro de &Fornecedores...", u"frmCadaFornecedor", 0},
    {u"mnuMovimentacoes", u"itmMoviEntradaPecas", u"&Entrada de Peças...", u"frmMoviEntradaPeca", 0},
    {u"mnuMovimentacoes", u"itmMoviEntradaPecasConsultar", u"Consulta &Entrada de Peças Geral...",
     u"frmMoviEntradaPecaConsulta", 0},
    {u"mnuMovimentacoes", u"itmMoviConsEntrPecaFornecedor", u"Consulta &Entrada de Peças Fornecedor...",
     u"frmRelaSelecaoNotasEntradas", 34},
    {u"mnuMovimentacoes", u"itmMoviEstoque", u"E&stoque...", u"frmMoviEstoque", 0},
    {u"mnuMovimentacoes", u"itmMoviCaixa", u"&Livro Caixa...", u"frmMoviCaixa", 0},
    {u"mnuMovimentacoes", u"itmMoviContasPR", u"&Contas a Pagar/Receber...", u"frmMoviContasPR", 0},
    {u"mnuMovimentacoes", u"itmMoviCheques", u"&Relação de Cheques...", u"frmMoviCheques", 0},
    {u"mnuMovimentacoes", u"itmMoviFiado", u"&Ordens de Serviços Pendentes...", u"frmMoviFiados", 0},
    {u"mnuMovimentacoes", u"itmMoviClientePendente", u"Clientes com &Pendências...", u"frmMoviFiadosConta", 11},
    {u"mnuMovimentacoes", u"itmMoviOrigem", u"Livro de Origem...", u"frmMoviLivroOrigem", 0},
    {u"mnuOS", u"itmOSAbrir", u"&Abrir O.S. ...", u"frmOSAbre", 0},
    {u"mnuOS", u"itmOSConsultar", u"&Consultar O.S. ...", u"frmOSConsulta", 0},
    {u"mnuOS", u"itmOSAltera", u"Alterar/&Excluir O.S. ...", u"frmOSAltera", 0},
    {u"mnuOS", u"itmOSFecha", u"&Fechar O.S. ...", u"frmOSConsulta", 9},
    {u"mnuOS", u"itmOSImprimirNota", u"Imprimir Nota...", u"frmNota", unchanged},
    {u"mnuOrcamento", u"itmOSOrcaNovo", u"&Novo Orçamento...", u"frmOSOrcaNovo", 0},
    {u"mnuOrcamento", u"itmOSOrcaConsulta", u"&Consultar Orçamento...", u"frmOSOrcaConsulta", 0},
    {u"mnuOrcamento", u"itmOSOrcaAltera", u"&Alterar/Excluir Orçamento...", u"frmOSOrcaAltera", 0},
    {u"mnuRelatorios", u"itmRelaNotaEntradaUmFornecedor", u"&Notas de Entrada de um Fornecedor...",
     u"frmRelaSelecaoNotasEntradas", 0},
    {u"mnuRelatorios", u"itmRelaEstoqueGeralPecas", u"&Estoque Geral de Peças...", u"frmRelatorio", 22},
    {u"mnuRelatorios", u"itmRelaListaCompras", u"Lis&ta de Compras...", u"frmRelatorio", 32},
    {u"mnuRelatorios", u"itmRelaListaPecas", u"Lista de Peças / Serviços...", u"frmRelatorio", 37},
    {u"mnuRelatorios", u"itmRelaPecaServVendidos", u"Peças/Serviços Vendidos...", u"frmRelaSelecaoPecas", unchanged},
    {u"mnuRelatorios", u"itmRelaVencimentosContas", u"&Vencimentos de Contas...", u"frmInfoAviso", 0},
    {u"mnuRelatorios", u"itmRelaOrdensServicos", u"&Ordens de Serviços...", u"frmRelaSelecaoOS", 0},
    {u"mnuRelatorios", u"itmRelaContasPagarReceber", u"&Contas à Pagar/Receber...", u"frmRelaSelecaoContasPR", 27},
    {u"mnuRelatorios", u"itmRelaListaDevedores", u"&Lista de Devedores...", u"frmRelatorio", 28},
    {u"mnuRelatorios", u"itmRelaCheques", u"C&heques...", u"frmRelaSelecaoCheques", 29},
    {u"mnuRelatorios", u"itmRelaLivroCaixa", u"Livro Cai&xa...", u"frmMoviCaixa", 30},
    {u"mnuRelatorios", u"itmRelaVisitas", u"V&isitas de Clientes...", u"frmRelatorio", 30},
    {u"mnuRelatorios", u"itmRelaVeiculos", u"Visitas de Veíc&ulos...", u"frmRelatorio", 31},
    {u"mnuRelatorios", u"itmRelaNiver", u"Aniversariantes do Mês...", u"frmRelatorio", 33},
    {u"mnuRelatorios", u"itmRelaBalanco", u"&Balanço Geral...", u"frmBalanco", 0},
    {u"mnuConfig", u"itmConfigLogo", u"&Logo...", u"frmConfigLogo", unchanged},
    {u"mnuConfig", u"itmConfigOrcamento", u"&Orçamento...", u"frmConfigOrcamento", unchanged},
    {u"mnuInfo", u"itmInfoSobre", u"Sobre...", u"frmInfo", unchanged},
};

struct Button {
    int number;
    const char16_t *tip;
    const char16_t *item;
};

constexpr Button buttons[] = {
    {1, u"Cadastro de Clientes", u"itmCadaClie"},        {2, u"Cadastro de Veículos", u"itmCadaVeiculos"},
    {3, u"Cadastro de Peças/Serviços", u"itmCadaPecas"}, {4, u"Cadastro de Fornecedores", u"itmCadaFornecedores"},
    {6, u"Entrada de Peças", u"itmMoviEntradaPecas"},    {7, u"Livro Caixa", u"itmMoviCaixa"},
    {8, u"Contas à Pagar/Receber", u"itmMoviContasPR"},  {9, u"Cheques", u"itmMoviCheques"},
    {11, u"Abrir Nova Ordem de Serviço", u"itmOSAbrir"}, {12, u"Fecha Ordem de Serviço", u"itmOSFecha"},
    {14, u"Novo Orçamento", u"itmOSOrcaNovo"},
};

QString text(const char16_t *of)
{
    return QString::fromUtf16(of);
}

const Row &rowOf(const QString &item)
{
    return *std::ranges::find_if(rows, [&](const Row &row) { return text(row.item) == item; });
}

QAction *action(const QString &name)
{
    return shell::principal().findChild<QAction *>(name);
}

QAction *button(int number)
{
    return action(u"Toolbar1_%1"_s.arg(number));
}

QString customisationFor(const QString &item)
{
    return item == u"itmMoviOrigem" ? u"1-1"_s : item == u"itmOSImprimirNota" ? u"2-2"_s : u"0"_s;
}

} // namespace

/// Every window of the menus exists here, as a stand: the commands are tried, not their windows.
class TestMenus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QStringList forms{u"frmSenhaManut"_s};
        for (const Row &row : rows) {
            forms << text(row.form);
        }
        for (const QString &form : forms) {
            ui::Forms::instance().add(form, [form] { return new Stand(form); });
        }
    }

    void init()
    {
        program_ = std::make_unique<support::Program>();
        lastLoaded = {};
    }

    void cleanup()
    {
        support::failNotShown();
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

    void itemStandsInItsMenuWithItsCaption_data() { itemRows(); }
    void itemStandsInItsMenuWithItsCaption()
    {
        QFETCH(const QString, item);
        const auto *menu = shell::principal().findChild<QMenu *>(text(rowOf(item).menu));
        QVERIFY(menu);
        QVERIFY(menu->actions().contains(action(item)));
        QCOMPARE(action(item)->text(), text(rowOf(item).caption));
    }

    void itemOpensItsWindowInItsMode_data() { itemRows(); }
    void itemOpensItsWindowInItsMode()
    {
        QFETCH(const QString, item);
        const Row &row = rowOf(item);
        program_->config(u"Personalizacao"_s, customisationFor(item));
        shell::principal().MDIForm_Load();
        core::ModoChamada = modeBefore;

        action(item)->trigger();

        QCOMPARE(lastLoaded.form, text(row.form));
        QCOMPARE(lastLoaded.mode, row.mode == unchanged ? modeBefore : row.mode);
        QCOMPARE(core::ModoChamada, row.mode == unchanged ? modeBefore : row.mode);
        QVERIFY(ui::Forms::instance().find(text(row.form))->isVisible());
    }

    void windowThatIsUpInTheCommandsModeComesToTheFront()
    {
        shell::principal().MDIForm_Load();
        action(u"itmOSConsultar"_s)->trigger();
        action(u"itmOSAbrir"_s)->trigger();
        const auto *query = ui::Forms::instance().find(u"frmOSConsulta"_s);
        core::ModoChamada = modeBefore; // a window opened in between leaves its own

        action(u"itmOSConsultar"_s)->trigger();

        QCOMPARE(ui::Forms::instance().find(u"frmOSConsulta"_s), query);
        QCOMPARE(lastLoaded.form, u"frmOSAbre"_s); // not loaded again
        QCOMPARE(frontWindow(), u"frmOSConsulta"_s);
        QCOMPARE(core::ModoChamada, 0);
    }

    void windowThatIsUpInAnotherModeIsOpenedAfresh_data() { itemRows(); }
    void windowThatIsUpInAnotherModeIsOpenedAfresh()
    {
        QFETCH(const QString, item);
        openInAnotherMode(item);
        pressTwice(item, [item] { action(item)->trigger(); });
    }

    void buttonOpensAWindowInAnotherModeAfresh_data() { buttonRows(); }
    void buttonOpensAWindowInAnotherModeAfresh()
    {
        QFETCH(const int, number);
        QFETCH(const QString, item);
        openInAnotherMode(item);
        pressTwice(item, [number] { support::click(&shell::principal(), u"Toolbar1_%1"_s.arg(number)); });
    }

    void minimisedWindowInTheCommandsModeComesBack()
    {
        shell::principal().MDIForm_Load();
        action(u"itmOSFecha"_s)->trigger();
        auto *query = ui::Forms::instance().find(u"frmOSConsulta"_s);
        query->parentWidget()->showMinimized();

        action(u"itmOSFecha"_s)->trigger();

        QCOMPARE(ui::Forms::instance().find(u"frmOSConsulta"_s), query);
        QVERIFY(!query->parentWidget()->isMinimized());
        QCOMPARE(lastLoaded.times, 1);
    }

    void operatorsAreMaintainedModally()
    {
        shell::principal().MDIForm_Load();
        core::ModoChamada = modeBefore;
        bool modal = false;
        support::whenShown(u"frmSenhaManut"_s, [&modal] {
            modal = ui::Forms::instance().find(u"frmSenhaManut"_s)->isModal();
            ui::Forms::instance().Unload(u"frmSenhaManut"_s);
        });

        QCOMPARE(action(u"itmConfigSenha"_s)->text(), u"&Manutenção de Senha..."_s);
        action(u"itmConfigSenha"_s)->trigger();

        QVERIFY(modal);
        QCOMPARE(lastLoaded.form, u"frmSenhaManut"_s);
        QCOMPARE(lastLoaded.mode, modeBefore);
    }

    void buttonActsAsItsItem_data() { buttonRows(); }
    void buttonActsAsItsItem()
    {
        QFETCH(const int, number);
        QFETCH(const QString, item);
        shell::principal().MDIForm_Load();
        core::ModoChamada = modeBefore;

        support::click(&shell::principal(), u"Toolbar1_%1"_s.arg(number));

        QCOMPARE(lastLoaded.form, text(rowOf(item).form));
        QCOMPARE(lastLoaded.mode, rowOf(item).mode);
    }

    void buttonTellsWhatItDoes_data() { buttonRows(); }
    void buttonTellsWhatItDoes()
    {
        QFETCH(const int, number);
        QFETCH(const QString, tip);
        QCOMPARE(button(number)->toolTip(), tip);
        QVERIFY(!button(number)->icon().isNull());
        QCOMPARE(shell::principal().findChild<QToolButton *>(u"Toolbar1_%1"_s.arg(number))->toolTip(), tip);
    }

    void customisationOpensItsItemOnly_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("origin");
        QTest::addColumn<bool>("note");
        QTest::newRow("1-1") << u"1-1"_s << true << false;
        QTest::newRow("2-2") << u"2-2"_s << false << true;
        QTest::newRow("0") << u"0"_s << false << false;
        QTest::newRow("1-2") << u"1-2"_s << false << false;
    }
    void customisationOpensItsItemOnly()
    {
        QFETCH(const QString, code);
        program_->config(u"Personalizacao"_s, code);
        shell::principal().MDIForm_Load();
        QTEST(action(u"itmMoviOrigem"_s)->isEnabled(), "origin");
        QTEST(action(u"itmOSImprimirNota"_s)->isEnabled(), "note");
    }

    void administratorReachesEveryMenuAndButton()
    {
        shell::principal().MDIForm_Load();
        for (const auto &menu : {u"mnuCadastro"_s, u"mnuMovimentacoes"_s, u"mnuOS"_s, u"mnuOrcamento"_s,
                                 u"mnuRelatorios"_s, u"mnuConfig"_s, u"mnuBackup"_s, u"mnuInfo"_s, u"mnuSair"_s}) {
            QVERIFY2(action(menu)->isEnabled(), qPrintable(menu));
        }
        for (int number = 1; number <= 19; ++number) {
            QVERIFY2(button(number)->isSeparator() || button(number)->isEnabled(), qPrintable(QString::number(number)));
        }
    }

    void userKeepsRegistersOrdersEstimatesAndBackup()
    {
        program_->sql(u"UPDATE Senha SET Admin = False WHERE Codigo = 1"_s);
        shell::principal().MDIForm_Load();
        for (const auto &menu :
             {u"mnuCadastro"_s, u"mnuOS"_s, u"mnuOrcamento"_s, u"mnuBackup"_s, u"mnuInfo"_s, u"mnuSair"_s}) {
            QVERIFY2(action(menu)->isEnabled(), qPrintable(menu));
        }
        for (const int number : {1, 2, 3, 4, 11, 12, 14, 18, 19}) {
            QVERIFY2(button(number)->isEnabled(), qPrintable(QString::number(number)));
        }
    }

    void userLosesMovementsSettingsAndReports()
    {
        program_->sql(u"UPDATE Senha SET Admin = False WHERE Codigo = 1"_s);
        shell::principal().MDIForm_Load();
        for (const auto &menu : {u"mnuMovimentacoes"_s, u"mnuConfig"_s, u"mnuRelatorios"_s}) {
            QVERIFY2(!action(menu)->isEnabled(), qPrintable(menu));
        }
        for (const int number : {6, 7, 8, 9, 15, 16, 17}) {
            QVERIFY2(!button(number)->isEnabled(), qPrintable(QString::number(number)));
        }
    }

    void operatorWithoutARowIsNoAdministrator()
    {
        core::CodOperador = 99;
        shell::principal().MDIForm_Load();
        QVERIFY(!action(u"mnuConfig"_s)->isEnabled());
    }

private:
    /// The item's window, open in a mode that no command has.
    void openInAnotherMode(const QString &item)
    {
        program_->config(u"Personalizacao"_s, customisationFor(item));
        shell::principal().MDIForm_Load();
        core::ModoChamada = modeBefore;
        ui::Forms::instance().Show(text(rowOf(item).form));
        QCOMPARE(lastLoaded.times, 1);
    }

    /// The first press gives the window in the item's mode, the second the same window. A command without a mode takes
    /// it as it is.
    static void pressTwice(const QString &item, const std::function<void()> &press)
    {
        const Row &row = rowOf(item);
        const QPointer<ui::Form> old = ui::Forms::instance().find(text(row.form));
        press();
        auto *form = ui::Forms::instance().find(text(row.form));
        QVERIFY(form);
        QCOMPARE(form == old, row.mode == unchanged);
        QCOMPARE(lastLoaded.times, row.mode == unchanged ? 1 : 2);
        QCOMPARE(lastLoaded.mode, row.mode == unchanged ? modeBefore : row.mode);
        QCOMPARE(frontWindow(), text(row.form));
        QVERIFY(form == old || !old || !old->isVisible());

        press();
        QCOMPARE(ui::Forms::instance().find(text(row.form)), form);
        QCOMPARE(lastLoaded.times, row.mode == unchanged ? 1 : 2);
        QCOMPARE(core::ModoChamada, row.mode == unchanged ? modeBefore : row.mode);
    }

    static QString frontWindow()
    {
        const auto *front = ui::Forms::instance().area()->activeSubWindow();
        return front ? front->widget()->objectName() : QString();
    }

    static void itemRows()
    {
        QTest::addColumn<QString>("item");
        for (const Row &row : rows) {
            QTest::newRow(qPrintable(text(row.item))) << text(row.item);
        }
    }

    static void buttonRows()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("item");
        for (const Button &row : buttons) {
            QTest::addRow("%d", row.number) << row.number << text(row.tip) << text(row.item);
        }
    }

    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestMenus)
#include "tst_menus.moc"
