#include "core/andamento.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "shell/areafundo.h"
#include "shell/frmMDI.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QAction>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QTest>
#include <QWindow>

#include <array>
#include <stdexcept>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace
{

QAction *action(const QString &name)
{
    return shell::principal().findChild<QAction *>(name);
}

QLabel *panel(int number)
{
    return shell::principal().findChild<QLabel *>(u"StatusBar_%1"_s.arg(number));
}

QString captionOf(const QString &name)
{
    return action(name)->text();
}

void pressOnStatusBar(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, const QString &where = u"StatusBar"_s)
{
    const QWidget *bar = support::controlOf(&shell::principal(), where);
    const QPoint place = bar->mapTo(&shell::principal(), bar->rect().center());
    QTest::mouseClick(shell::principal().windowHandle(), button, modifiers, place);
    QCoreApplication::processEvents(); // returns behind the last box
}

/// The lamp of the key, where the system keeps it for the program: it switches with a press.
void turnLock([[maybe_unused]] int key, [[maybe_unused]] bool on)
{
#ifdef Q_OS_WIN
    std::array<BYTE, 256> states{};
    QVERIFY(GetKeyboardState(states.data()));
    states.at(key == Qt::Key_NumLock ? VK_NUMLOCK : VK_CAPITAL) = on ? 1 : 0;
    QVERIFY(SetKeyboardState(states.data()));
#endif
}

void pressLock(int key)
{
    QTest::keyClick(shell::principal().windowHandle(), Qt::Key(key));
    QCoreApplication::processEvents(); // a lamp of the system is read behind the press
}

QString errorOf(const QString &statement)
{
    try {
        core::DBDados->Execute(statement);
    } catch (const runtime::RuntimeError &error) {
        return error.description();
    }
    return {};
}

QColor middleOfArea()
{
    auto *area = shell::principal().findChild<shell::AreaFundo *>(u"MDIArea"_s);
    const QImage picture = area->viewport()->grab().toImage();
    return picture.pixelColor(picture.rect().center());
}

} // namespace

class TestMDI : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }

    void init() { program_ = std::make_unique<support::Program>(); }

    void cleanup()
    {
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

    void captionTellsWorkshopProgramAndVersion()
    {
        core::NomeEmpresa = u"OFICINA DO ZÉ"_s;
        shell::principal().MDIForm_Load();
        QCOMPARE(shell::principal().windowTitle(), u"OFICINA DO ZÉ - Tarvelo 2.1.34"_s);
        QCOMPARE(panel(2)->text(), u"Tarvelo 2.1.34"_s);
        QVERIFY(shell::principal().isVisible());
    }

    void operatorPanelTellsCodeNameAndTag()
    {
        shell::principal().mostraOperador(7, u"José da Silva"_s);
        QCOMPARE(panel(1)->text(), u"Operador: 7"_s);
        QCOMPARE(panel(1)->toolTip(), u"JOSÉ DA SILVA"_s);
        QCOMPARE(ui::tagOf(panel(1)), u"7"_s);
    }

    void panelsStandInTheirOrder()
    {
        shell::principal().MDIForm_Load();
        QCOMPARE(panel(3)->text(), u"NUM"_s);
        QCOMPARE(panel(4)->text(), u"CAPS"_s);
        for (int number = 2; number <= 6; ++number) {
            QVERIFY(panel(number - 1)->geometry().right() < panel(number)->geometry().left());
        }
    }

    void dateAndTimeGoOn()
    {
        shell::principal().MDIForm_Load();
        QCOMPARE(panel(5)->text(), u"15/05/2024"_s);
        QCOMPARE(panel(6)->text(), u"10:30:00"_s);

        runtime::setClock(runtime::CDate(u"16/05/2024 00:00:01"_s));

        QTRY_COMPARE(panel(6)->text(), u"00:00:01"_s);
        QCOMPARE(panel(5)->text(), u"16/05/2024"_s);
    }

    void lockPanelsFollowTheirKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("NUM") << int(Qt::Key_NumLock) << 3 << u"Num Lock"_s;
        QTest::newRow("CAPS") << int(Qt::Key_CapsLock) << 4 << u"Caps Lock"_s;
    }
    void lockPanelsFollowTheirKeys()
    {
        QFETCH(const int, key);
        QFETCH(const int, number);
        QFETCH(const QString, name);
        turnLock(key, false);
        shell::principal().MDIForm_Load();
        QVERIFY(!panel(number)->isEnabled());

        turnLock(key, true);
        pressLock(key);
        QVERIFY(panel(number)->isEnabled());
        QCOMPARE(panel(number)->toolTip(), QString(name + u" ligado"));

        turnLock(key, false);
        pressLock(key);
        QVERIFY(!panel(number)->isEnabled());
        QCOMPARE(panel(number)->toolTip(), QString(name + u" desligado"));
    }

    void printedFileIsToldOnTheStatusBar()
    {
        shell::principal().MDIForm_Load();
        printer::printer().Print(u"ORDEM"_s);
        printer::printer().EndDoc();
        QCOMPARE(support::text(&shell::principal(), u"lblMensagem"_s),
                 u"impresso em "_s + QDir::toNativeSeparators(u"impressos/0001.pdf"_s));
    }

    void longWorkShowsInThePlaceOfTheMessage()
    {
        shell::principal().MDIForm_Load();
        auto *bar = shell::principal().findChild<QProgressBar *>();
        auto *message = shell::principal().findChild<QLabel *>(u"lblMensagem"_s);
        QCoreApplication::processEvents(); // the window has its size only then
        const int height = bar->parentWidget()->height();
        const QRect place = message->geometry();
        {
            core::Andamento work(
                u"Recalculando os saldos"_s, [] { return 200; }, 1);
            work.avanca(10);
            QVERIFY(!bar->isVisible());
            QVERIFY(!QGuiApplication::overrideCursor());

            QTest::qSleep(1050);
            work.avanca(40);
            QVERIFY(bar->isVisible());
            QVERIFY(!message->isVisible());
            QCOMPARE(bar->text(), u"Recalculando os saldos: 25%"_s);
            QCOMPARE(bar->parentWidget()->height(), height);
            QCOMPARE(bar->geometry().left(), place.left());
            QCOMPARE(bar->geometry().width(), place.width());
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        QVERIFY(!bar->isVisible());
        QVERIFY(message->isVisible());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void longWorkThatFailsLeavesNothingOnTheStatusBar()
    {
        shell::principal().MDIForm_Load();
        const auto fails = [] {
            core::Andamento work(
                u"Imprimindo"_s, [] { return 0; }, 1);
            QTest::qSleep(1050);
            work.avanca();
            throw std::runtime_error("on the way");
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, fails());
        QVERIFY(!shell::principal().findChild<QProgressBar *>()->isVisible());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void everyConfigAndBackupItemStandsInItsMenu_data()
    {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("caption");
        const auto row = [](const char16_t *menu, const char16_t *item, const char16_t *caption) {
            QTest::newRow(qPrintable(QString::fromUtf16(item)))
                << QString::fromUtf16(menu) << QString::fromUtf16(item) << QString::fromUtf16(caption);
        };
        row(u"mnuConfig", u"itmConfigNome", u"&Nome Empresa...");
        row(u"mnuConfig", u"itmConfigEndereco", u"&Endereço...");
        row(u"mnuConfig", u"itmConfigBairro", u"Ba&irro - Cidade - UF");
        row(u"mnuConfig", u"itmConfigTelefone", u"Tele&fone...");
        row(u"mnuConfig", u"itmConfigLogo", u"&Logo...");
        row(u"mnuConfig", u"itmConfigTaxaJuros", u"&Taxa de Juros Mensal...");
        row(u"mnuConfig", u"itmConfigDesconto", u"&Desconto máximo permitido...");
        row(u"mnuConfig", u"itmConfigBloquearLC", u"&Bloquear Limite de Crédito...");
        row(u"mnuConfig", u"itmConfigCEP", u"B&uscar Endereço pelo CEP...");
        row(u"mnuConfig", u"itmConfigAutoComplete", u"Ativar Função &Autocompletar...");
        row(u"mnuConfig", u"itmConfigAvisaVencimentoContas", u"Avisar Vencimento de Contas...");
        row(u"mnuConfig", u"itmConfigAvisaBackup", u"Avisar Quando Fazer Backup...");
        row(u"mnuConfig", u"itmConfigLancarReg", u"Lançar Reg. Aut. C.R. no Livro Caixa...");
        row(u"mnuConfig", u"itmConfigCadastroAutomatico", u"Preenchimento Cadastro Automático...");
        row(u"mnuConfig", u"itmConfigLayoutOS", u"Cód. Layout Impressão O.S. ...");
        row(u"mnuConfig", u"itmConfigPrintFormaPagtoOs", u"Imprime Forma Pagto. O.S. ...");
        row(u"mnuConfig", u"itmConfigPersonalizacao", u"Código de &Personalização...");
        row(u"mnuConfig", u"itmConfigOrcamento", u"&Orçamento...");
        row(u"mnuConfig", u"itmConfigSenha", u"&Manutenção de Senha...");
        row(u"mnuBackup", u"itmBackBackBD", u"Fazer Backup Banco de Dados...");
        row(u"mnuBackup", u"itmBackBackFI", u"Fazer Backup Figuras...");
        row(u"mnuBackup", u"itmBackRestBD", u"Restaurar Banco de Dados...");
        row(u"mnuBackup", u"itmBackRestFI", u"Restaurar Figuras...");
        row(u"mnuBackup", u"itmBackUltimo", u"Último Backup Banco Dados em");
    }
    void everyConfigAndBackupItemStandsInItsMenu()
    {
        QFETCH(const QString, menu);
        QFETCH(const QString, item);
        QTEST(captionOf(item), "caption");
        QVERIFY(shell::principal().findChild<QMenu *>(menu)->actions().contains(action(item)));
    }

    void menusStandWithTheirCaptions_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("mnuCadastro") << u"&Cadastro"_s;
        QTest::newRow("mnuMovimentacoes") << u"&Movimentações"_s;
        QTest::newRow("mnuOS") << u"&Ordem de Serviço"_s;
        QTest::newRow("mnuOrcamento") << u"Or&çamentos"_s;
        QTest::newRow("mnuRelatorios") << u"&Relatórios"_s;
        QTest::newRow("mnuConfig") << u"Confi&gurações"_s;
        QTest::newRow("mnuBackup") << u"&Backup"_s;
        QTest::newRow("mnuInfo") << u"&Info"_s;
        QTest::newRow("mnuSair") << u"&Sair"_s;
    }
    void menusStandWithTheirCaptions() { QTEST(captionOf(QString::fromLatin1(QTest::currentDataTag())), "caption"); }

    void itemWithoutItsWindowIsUnavailable()
    {
        shell::principal().MDIForm_Load();
        QVERIFY(!ui::Forms::instance().exists(u"frmCadaCliente"_s));
        for (const auto &item : {u"itmCadaClie"_s, u"itmBackUltimo"_s, u"itmMoviOrigem"_s, u"Toolbar1_1"_s}) {
            QVERIFY2(!action(item)->isEnabled(), qPrintable(item));
        }
        QVERIFY(action(u"itmConfigSenha"_s)->isEnabled());
        QVERIFY(action(u"itmInfoSobre"_s)->isEnabled());
    }

    void customisedItemNeedsItsWindowToo_data()
    {
        QTest::addColumn<QString>("item");
        QTest::newRow("1-1") << u"itmMoviOrigem"_s;
        QTest::newRow("2-2") << u"itmOSImprimirNota"_s;
    }
    void customisedItemNeedsItsWindowToo()
    {
        QFETCH(const QString, item);
        program_->config(u"Personalizacao"_s, QString::fromLatin1(QTest::currentDataTag()));
        shell::principal().MDIForm_Load();
        QVERIFY(!action(item)->isEnabled());
    }

    void missingNumbersOfTheToolbarAreSeparators()
    {
        for (const int number : {5, 10, 13, 15}) {
            QVERIFY2(action(u"Toolbar1_%1"_s.arg(number))->isSeparator(), qPrintable(QString::number(number)));
        }
    }

    void buttonPopsUpItsMenu_data()
    {
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("menu");
        QTest::newRow("Toolbar1_16") << u"Relatórios"_s << u"mnuRelatorios"_s;
        QTest::newRow("Toolbar1_17") << u"Configurações"_s << u"mnuConfig"_s;
        QTest::newRow("Toolbar1_18") << u"Backup"_s << u"mnuBackup"_s;
    }
    void buttonPopsUpItsMenu()
    {
        QFETCH(const QString, menu);
        const QString button = QString::fromLatin1(QTest::currentDataTag());
        shell::principal().MDIForm_Load();
        QTEST(action(button)->toolTip(), "tip");

        support::click(&shell::principal(), button);

        auto *open = QApplication::activePopupWidget();
        QVERIFY(open);
        QCOMPARE(open->objectName(), menu);
        open->close();
    }

    void everyWayOutEndsTheProgram_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("mnuSair") << 0;
        QTest::newRow("Toolbar1_19") << 1;
        QTest::newRow("close") << 2;
    }
    void everyWayOutEndsTheProgram()
    {
        QFETCH(const int, way);
        shell::principal().MDIForm_Load();
        QCOMPARE(action(u"Toolbar1_19"_s)->toolTip(), u"Fechar Programa"_s);
        QVERIFY(!ui::Application::ended());

        if (way == 0) {
            action(u"mnuSair"_s)->trigger();
        } else if (way == 1) {
            support::click(&shell::principal(), u"Toolbar1_19"_s);
        } else {
            shell::principal().close();
        }
        QVERIFY(ui::Application::ended());
    }

    void loadBringsTheDatabaseUpToItsSchema()
    {
        program_->sql(u"DROP TABLE Fiados"_s);
        program_->sql(u"DROP TABLE Pecas"_s);
        program_->sql(u"CREATE TABLE Pecas (Codigo COUNTER, Nome TEXT(200))"_s);

        shell::principal().MDIForm_Load();

        QVERIFY(program_->rows(u"SELECT Codigo FROM Fiados"_s).empty());
        QVERIFY(program_->rows(u"SELECT CodExterno, ICMS, ClassFiscal FROM Pecas"_s).empty());
    }

    void bookOfOriginIsCreatedForItsCodeOnly()
    {
        shell::principal().MDIForm_Load();
        QVERIFY(!errorOf(u"DELETE * FROM LivroOrigem"_s).isEmpty());

        program_->config(u"Personalizacao"_s, u"1-1"_s);
        shell::principal().MDIForm_Load();
        QCOMPARE(errorOf(u"DELETE * FROM LivroOrigem"_s), QString());
    }

    void backgroundStandsInTheMiddleOfTheArea()
    {
        QImage picture(100, 80, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(program_->path(u"DADOS/bg1024.bmp"_s)));
        shell::principal().MDIForm_Load();
        QCOMPARE(middleOfArea(), QColor(Qt::red));
    }

    void backgroundIsLeftOutWhereItIsSwitchedOff()
    {
        QImage picture(100, 80, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(program_->path(u"DADOS/bg1024.bmp"_s)));
        program_->config(u"DesativarGraficos"_s, u"S"_s);
        shell::principal().MDIForm_Load();
        QCOMPARE_NE(middleOfArea(), QColor(Qt::red));
    }

    void missingBackgroundIsPassedOver()
    {
        shell::principal().MDIForm_Load();
        QVERIFY(!shell::principal().findChild<shell::AreaFundo *>(u"MDIArea"_s)->temFundo());
        QVERIFY(shell::principal().isVisible());
    }

    void backupReminderStandsBetweenSchemaAndDate()
    {
        program_->config(u"LastBackup"_s, u"08/05/2024 09:00:00"_s);
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s)
            .information(
                u"Por favor, realize um backup do sistema, última base de dados salva em\n08/05/2024 09:00:00 - 7 dias atrás."_s);
        shell::principal().MDIForm_Load();
        boxes.finish();
        QCOMPARE(captionOf(u"itmBackData"_s), u"08/05/2024 09:00:00"_s);
    }

    void commandRunsAtOnce()
    {
        program_->sql(u"INSERT INTO Senha (Codigo, Nome) VALUES (9, 'NOVO')"_s);
        shell::principal().MDIForm_Load();
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s)
            .input(u"Comando SQL"_s, u"DELETE * FROM Senha WHERE Codigo = 9"_s)
            .information(u"Comando Executado com sucesso"_s);
        pressOnStatusBar(Qt::RightButton, Qt::ShiftModifier);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha"_s), (std::vector<QStringList>{{u"1"_s}}));
    }

    /// One that shows a key as off is disabled.
    void commandIsReachedOnEveryPanel()
    {
        shell::principal().MDIForm_Load();
        for (int panel = 1; panel <= 6; ++panel) {
            support::Boxes boxes;
            boxes.input(u"Comando SQL"_s, u"UPDATE Senha SET Nome = 'P%1' WHERE Codigo = 1"_s.arg(panel))
                .information(u"Comando Executado com sucesso"_s);
            pressOnStatusBar(Qt::RightButton, Qt::ShiftModifier, u"StatusBar_%1"_s.arg(panel));
            boxes.finish();
            QCOMPARE(program_->rows(u"SELECT Nome FROM Senha"_s), (std::vector<QStringList>{{u"P%1"_s.arg(panel)}}));
        }
    }

    void commandIsOpenToEveryOperator()
    {
        program_->sql(u"UPDATE Senha SET Admin = False WHERE Codigo = 1"_s);
        shell::principal().MDIForm_Load();
        support::Boxes boxes;
        boxes.input(u"Comando SQL"_s, u"UPDATE Senha SET Nome = 'X' WHERE Codigo = 1"_s)
            .information(u"Comando Executado com sucesso"_s);
        pressOnStatusBar(Qt::RightButton, Qt::ShiftModifier);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Nome FROM Senha"_s), (std::vector<QStringList>{{u"X"_s}}));
    }

    void commandThatFailsTellsWhy()
    {
        shell::principal().MDIForm_Load();
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s)
            .input(u"Comando SQL"_s, u"DELETE * FROM NaoExiste"_s)
            .critical(errorOf(u"DELETE * FROM NaoExiste"_s));
        pressOnStatusBar(Qt::RightButton, Qt::ShiftModifier);
        boxes.finish();
        QVERIFY(!ui::Application::ended());
    }

    void cancelledCommandIsAnEmptyOne()
    {
        shell::principal().MDIForm_Load();
        const QString error = errorOf(QString());
        QVERIFY(!error.isEmpty());
        support::Boxes boxes;
        boxes.inputCancel(u"Comando SQL"_s).critical(error);
        pressOnStatusBar(Qt::RightButton, Qt::ShiftModifier);
        boxes.finish();
    }

    void otherPressesOnTheStatusBarDoNothing_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("left with Shift") << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ShiftModifier);
        QTest::newRow("right alone") << Qt::RightButton << Qt::KeyboardModifiers(Qt::NoModifier);
        QTest::newRow("right with Ctrl") << Qt::RightButton << Qt::KeyboardModifiers(Qt::ControlModifier);
    }
    void otherPressesOnTheStatusBarDoNothing()
    {
        QFETCH(const Qt::MouseButton, button);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        shell::principal().MDIForm_Load();
        support::Boxes boxes;
        pressOnStatusBar(button, modifiers);
        QVERIFY(!QApplication::activeModalWidget());
        boxes.finish();
    }

    void aboutTellsTitleAndVersion()
    {
        shell::principal().MDIForm_Load();
        action(u"itmInfoSobre"_s)->trigger();
        ui::Form *about = ui::Forms::instance().find(u"frmInfo"_s);
        QVERIFY(about);
        QCOMPARE(support::text(about, u"lblTitle"_s), u"Tarvelo"_s);
        QVERIFY(support::text(about, u"lblVersion"_s).endsWith(u"2.1.34"));
        support::click(about, u"cmdOK"_s);
        QVERIFY(!ui::Forms::instance().find(u"frmInfo"_s));
    }

    void systemInformationIsUnavailableWithoutItsTool()
    {
        shell::principal().MDIForm_Load();
        action(u"itmInfoSobre"_s)->trigger();
        support::Boxes boxes;
        boxes.exclamation(u"System Information Is Unavailable At This Time"_s);
        support::click(ui::Forms::instance().find(u"frmInfo"_s), u"cmdSysInfo"_s);
        boxes.finish();
    }

private:
    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestMDI)
#include "tst_frmMDI.moc"
