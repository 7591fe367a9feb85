#include "core/modulo.h"
#include "platform/ui/form.h"
#include "shell/frmMDI.h"
#include "shell/operadores.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/modal.h"
#include "support/program.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

ui::Form *login()
{
    return ui::Forms::instance().find(u"frmSenha"_s);
}

QString tag(const QString &control)
{
    return ui::tagOf(support::controlOf(login(), control));
}

void typeCode(const QString &code, bool leave = false)
{
    support::type(login(), u"txtCodigo"_s, code, leave);
}

void typePassword(const QString &password)
{
    support::type(login(), u"txtSenha"_s, password, false);
}

bool hasFocus(const QString &control)
{
    return login()->window()->focusWidget() == support::controlOf(login(), control);
}

bool mainWindowIsUp()
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"frmMDI" && window->isVisible()) {
            return true;
        }
    }
    return false;
}

} // namespace

/// Operator 1 "ADMIN" (administrator, "123456"), 7 "JOSE" (user, "ABC"), 12 "LONGA" (user, "ABCDEFGHI").
class TestSenha : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }

    void init()
    {
        program_ = std::make_unique<support::Program>();
        core::CodOperador = 0;
        shell::incluiOperador({.codigo = u"7"_s, .nome = u"José"_s, .senha = u"ABC"_s});
        shell::incluiOperador({.codigo = u"12"_s, .nome = u"LONGA"_s, .senha = u"ABCDEFGHI"_s});
        support::show(u"frmSenha"_s);
    }

    void cleanup()
    {
        support::failNotShown();
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

    void titleAndVersionAreShown()
    {
        QCOMPARE(login()->windowTitle(), u"Senha"_s);
        QCOMPARE(support::text(login(), u"lblTitulo"_s), u"Tarvelo"_s);
        QCOMPARE(support::text(login(), u"lblVersao"_s), u"Versão: 2.1.34"_s);
    }

    void operatorsPresentKeepTheNoticeHiddenAndTheButtonShown()
    {
        QVERIFY(!login()->findChild<QTimer *>(u"tmrAnima"_s)->isActive());
        QVERIFY(support::controlOf(login(), u"btnManutencao"_s)->isVisible());
        QVERIFY(!support::controlOf(login(), u"Rotulos_2"_s)->isVisible());
        QVERIFY(!support::controlOf(login(), u"Rotulos_3"_s)->isVisible());
    }

    void codeTakesDigitsOnly()
    {
        typeCode(u"A1B-"_s);
        QCOMPARE(support::text(login(), u"txtCodigo"_s), u"1"_s);
    }

    void twoDigitsMoveOnToThePassword()
    {
        typeCode(u"01"_s);
        QVERIFY(hasFocus(u"txtSenha"_s));
        QCOMPARE(support::text(login(), u"lblOperador"_s), u"ADMIN"_s);
        QCOMPARE(tag(u"lblOperador"_s), u"True"_s);
        QCOMPARE(tag(u"txtSenha"_s), u"123456"_s);
    }

    void codeIsLookedUpAndShownWithTwoDigits()
    {
        typeCode(u"7"_s, true);
        QCOMPARE(support::text(login(), u"txtCodigo"_s), u"07"_s);
        QCOMPARE(support::text(login(), u"lblOperador"_s), u"José"_s);
        QCOMPARE(tag(u"lblOperador"_s), u"False"_s);
        QCOMPARE(tag(u"txtSenha"_s), u"ABC"_s);
        QVERIFY(hasFocus(u"txtSenha"_s));
    }

    void nameWithMarksIsShownAsItWasTyped()
    {
        program_->sql(u"UPDATE Senha SET Nome = '<I>ANA</I>' WHERE Codigo = 7"_s);
        typeCode(u"7"_s, true);
        const auto *name = support::control<QLabel>(login(), u"lblOperador"_s);
        QCOMPARE(name->text(), u"<I>ANA</I>"_s);
        QCOMPARE(name->textFormat(), Qt::PlainText);
    }

    void unknownCodeClearsAndStays()
    {
        typeCode(u"7"_s, true);
        support::Boxes boxes;
        boxes.exclamation(u"Código de Operador não localizado"_s);
        typeCode(u"99"_s);
        boxes.finish();
        QVERIFY(hasFocus(u"txtCodigo"_s));
        QCOMPARE(support::control<QLineEdit>(login(), u"txtCodigo"_s)->selectedText(), u"99"_s);
        QCOMPARE(support::text(login(), u"lblOperador"_s), QString());
        QCOMPARE(tag(u"lblOperador"_s), QString());
        QCOMPARE(tag(u"txtSenha"_s), QString());
    }

    void emptyCodeClearsInSilence()
    {
        typeCode(u"7"_s, true);
        support::Boxes boxes;
        typeCode(u""_s, true);
        boxes.finish();
        QCOMPARE(support::text(login(), u"lblOperador"_s), QString());
        QCOMPARE(tag(u"lblOperador"_s), QString());
        QCOMPARE(tag(u"txtSenha"_s), QString());
    }

    void sixthCharacterLogsIn()
    {
        typeCode(u"01"_s);
        typePassword(u"12345"_s);
        QVERIFY(!mainWindowIsUp());
        support::key(login(), u"txtSenha"_s, Qt::Key_End);
        QTest::keyClick(login()->window()->windowHandle(), Qt::Key_6);
        QVERIFY(mainWindowIsUp());
    }

    void goodLoginHandsOverToTheMainWindow()
    {
        ui::Forms::instance().Load(u"frmSenhaManut"_s);
        typeCode(u"7"_s, true);
        typePassword(u"abc"_s); // capitals by the key filter
        support::click(login(), u"btnOk"_s);

        QCOMPARE(core::CodOperador, 7);
        QVERIFY(mainWindowIsUp());
        auto *panel = shell::principal().findChild<QLabel *>(u"StatusBar_1"_s);
        QCOMPARE(panel->text(), u"Operador: 7"_s);
        QCOMPARE(ui::tagOf(panel), u"7"_s);
        QCOMPARE(panel->toolTip(), u"JOSÉ"_s);
        for (const auto &form : {u"frmSenha"_s, u"frmSenhaManut"_s, u"frmSplash"_s}) {
            QVERIFY(!ui::Forms::instance().find(form));
        }
    }

    void enterGoesFromFieldToFieldAndPresses()
    {
        typeCode(u"7"_s);
        support::key(login(), u"txtCodigo"_s, Qt::Key_Return);
        QVERIFY(hasFocus(u"txtSenha"_s));
        typePassword(u"ABC"_s);
        support::key(login(), u"txtSenha"_s, Qt::Key_Return);
        QVERIFY(hasFocus(u"btnOk"_s));
        support::key(login(), u"btnOk"_s, Qt::Key_Space);
        QCOMPARE(core::CodOperador, 7);
    }

    void codeIsRequired()
    {
        support::Boxes boxes;
        boxes.exclamation(u"Código do operador Inválido"_s);
        support::click(login(), u"btnOk"_s);
        boxes.finish();
        QVERIFY(hasFocus(u"txtCodigo"_s));
        QVERIFY(!mainWindowIsUp());
    }

    void wrongPasswordIsSelected()
    {
        typeCode(u"01"_s);
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).exclamation(u"Senha Incorreta"_s);
        typePassword(u"999999"_s);
        boxes.finish();
        QVERIFY(hasFocus(u"txtSenha"_s));
        QCOMPARE(support::control<QLineEdit>(login(), u"txtSenha"_s)->selectedText().size(), 6);
        QVERIFY(!ui::Application::ended());
    }

    void thirdFailureEndsTheProgram()
    {
        typeCode(u"01"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Senha Incorreta"_s).exclamation(u"Senha Incorreta"_s).exclamation(u"Senha Incorreta"_s);
        typePassword(u"111111"_s);
        typePassword(u"222222"_s);
        QVERIFY(!ui::Application::ended());
        typePassword(u"333333"_s);
        boxes.finish();
        QVERIFY(ui::Application::ended());
        QVERIFY(!mainWindowIsUp());
    }

    void failuresCountAcrossBothButtons()
    {
        typeCode(u"01"_s);
        typePassword(u"X"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Senha Incorreta"_s).exclamation(u"Senha Incorreta"_s).exclamation(u"Senha Incorreta"_s);
        support::click(login(), u"btnManutencao"_s);
        support::click(login(), u"btnOk"_s);
        QVERIFY(!ui::Application::ended());
        support::click(login(), u"btnManutencao"_s);
        boxes.finish();
        QVERIFY(ui::Application::ended());
    }

    void unknownOperatorNeverEnters()
    {
        support::Boxes boxes;
        boxes.exclamation(u"Código de Operador não localizado"_s).exclamation(u"Senha Incorreta"_s);
        typeCode(u"99"_s);
        support::control<QPushButton>(login(), u"btnOk"_s)->click(); // by its shortcut, the focus stays
        boxes.finish();
        QVERIFY(!mainWindowIsUp());
    }

    void codeChangedBehindThePasswordIsNotTheOldOperator()
    {
        typeCode(u"7"_s, true);
        typePassword(u"ABC"_s);
        typeCode(u"1"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Senha Incorreta"_s);
        support::control<QPushButton>(login(), u"btnOk"_s)->click();
        boxes.finish();
        QVERIFY(!mainWindowIsUp());
    }

    void passwordBoxTakesNineCharacters()
    {
        typeCode(u"12"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Senha Incorreta"_s); // at the sixth
        typePassword(u"ABCDEF"_s);
        boxes.finish();
        support::key(login(), u"txtSenha"_s, Qt::Key_End);
        for (const int key : {Qt::Key_G, Qt::Key_H, Qt::Key_I, Qt::Key_J}) {
            QTest::keyClick(login()->window()->windowHandle(), Qt::Key(key));
        }
        QCOMPARE(support::text(login(), u"txtSenha"_s), u"ABCDEFGHI"_s);
        support::click(login(), u"btnOk"_s);
        QCOMPARE(core::CodOperador, 12);
    }

    void cancelEndsTheProgram()
    {
        support::click(login(), u"btnCancelar"_s);
        QVERIFY(ui::Application::ended());
    }

    void closingTheLoginEndsTheProgram()
    {
        login()->close();
        QVERIFY(ui::Application::ended());
    }

    void maintenanceNeedsACode()
    {
        support::Boxes boxes;
        boxes.exclamation(u"Código do Operador Inválido"_s);
        support::click(login(), u"btnManutencao"_s);
        boxes.finish();
        QVERIFY(hasFocus(u"txtCodigo"_s));
    }

    void userCannotReachTheMaintenance()
    {
        typeCode(u"7"_s, true);
        typePassword(u"ABC"_s);
        support::Boxes boxes;
        boxes.information(u"Você não tem permissão para acessar Manuteção de Senhas"_s);
        support::click(login(), u"btnManutencao"_s);
        boxes.finish();
        QVERIFY(!ui::Forms::instance().find(u"frmSenhaManut"_s));
    }

    void administratorReachesTheMaintenance()
    {
        shell::incluiOperador({.codigo = u"20"_s, .nome = u"CHEFE"_s, .senha = u"XYZ"_s, .admin = true});
        typeCode(u"20"_s);
        typePassword(u"XYZ"_s);
        bool modal = false;
        support::whenShown(u"frmSenhaManut"_s, [&modal] {
            modal = ui::Forms::instance().find(u"frmSenhaManut"_s)->isModal();
            ui::Forms::instance().Unload(u"frmSenhaManut"_s);
        });
        support::click(login(), u"btnManutencao"_s);
        QVERIFY(modal);
        QVERIFY(login()->isVisible());
    }

    void noticeBlinksWhereThereAreNoOperators()
    {
        restartWithoutOperators();
        auto *notice = support::controlOf(login(), u"Rotulos_2"_s);
        auto *here = support::controlOf(login(), u"Rotulos_3"_s);
        auto *button = support::controlOf(login(), u"btnManutencao"_s);
        QVERIFY(login()->findChild<QTimer *>(u"tmrAnima"_s)->isActive());
        QCOMPARE(support::text(login(), u"Rotulos_2"_s),
                 u"Não Existe Operadores Cadastrados! Cadastre um operador agora."_s);
        QCOMPARE(support::text(login(), u"Rotulos_3"_s), u"Clique Aqui"_s);
        QTRY_VERIFY(!notice->isVisible() && !here->isVisible() && !button->isVisible());
        QTRY_VERIFY(notice->isVisible() && here->isVisible() && button->isVisible());
    }

    void backFromTheOperatorsTheFocusIsOnTheCode()
    {
        restartWithoutOperators();
        support::whenShown(u"frmSenhaManut"_s,
                           [] { support::click(ui::Forms::instance().find(u"frmSenhaManut"_s), u"btnCancelar"_s); });
        support::click(login(), u"btnManutencao"_s);
        QVERIFY(hasFocus(u"txtCodigo"_s));

        shell::incluiOperador({.codigo = u"20"_s, .nome = u"CHEFE"_s, .senha = u"XYZ"_s, .admin = true});
        typeCode(u"20"_s);
        typePassword(u"XYZ"_s);
        support::whenShown(u"frmSenhaManut"_s,
                           [] { support::click(ui::Forms::instance().find(u"frmSenhaManut"_s), u"btnCancelar"_s); });
        support::click(login(), u"btnManutencao"_s);
        QVERIFY(hasFocus(u"txtCodigo"_s));
        QCOMPARE(support::control<QLineEdit>(login(), u"txtCodigo"_s)->selectedText(), u"20"_s);
    }

    void blinkingButtonKeepsTheFocus()
    {
        restartWithoutOperators();
        auto *button = support::controlOf(login(), u"btnManutencao"_s);
        button->setFocus();
        QStringList wandered;
        const auto watch = connect(qApp, &QApplication::focusChanged, this, [&](QWidget *, const QWidget *now) {
            wandered << (now == nullptr ? u"nowhere"_s : now->objectName());
        });
        for (int beat = 0; beat < 2; ++beat) {
            QTRY_VERIFY(!button->isVisible());
            QVERIFY(hasFocus(u"btnManutencao"_s));
            QTRY_VERIFY(button->isVisible());
            QVERIFY(hasFocus(u"btnManutencao"_s));
        }
        disconnect(watch);
        QCOMPARE(wandered, QStringList());
    }

    void blinkingButtonIsPressedWhileItIsHidden()
    {
        restartWithoutOperators();
        auto *button = support::controlOf(login(), u"btnManutencao"_s);
        button->setFocus();
        QTRY_VERIFY(!button->isVisible());
        bool shown = false;
        support::whenShown(u"frmSenhaManut"_s, [&shown] {
            shown = true;
            ui::Forms::instance().Unload(u"frmSenhaManut"_s);
        });
        QTest::keyClick(login()->window()->windowHandle(), Qt::Key_Space);
        QVERIFY(shown);
    }

    void blinkingButtonIsLeftByTab()
    {
        restartWithoutOperators();
        auto *button = support::controlOf(login(), u"btnManutencao"_s);
        button->setFocus();
        QTRY_VERIFY(!button->isVisible());
        QTest::keyClick(login()->window()->windowHandle(), Qt::Key_Tab);
        QVERIFY(hasFocus(u"txtCodigo"_s));
    }

    void firstOperatorIsMadeWithoutAPassword()
    {
        restartWithoutOperators();
        support::whenShown(u"frmSenhaManut"_s, [] {
            ui::Form *operators = ui::Forms::instance().find(u"frmSenhaManut"_s);
            support::type(operators, u"txtCodigo"_s, u"3"_s);
            support::type(operators, u"txtNome"_s, u"ana"_s);
            support::type(operators, u"txtSenha"_s, u"abc"_s);
            support::type(operators, u"txtConfirma"_s, u"abc"_s);
            support::click(operators, u"btnIncluir"_s);
            support::click(operators, u"btnCancelar"_s);
        });

        support::click(login(), u"btnManutencao"_s);

        QVERIFY(!login()->findChild<QTimer *>(u"tmrAnima"_s)->isActive());
        QVERIFY(!support::controlOf(login(), u"Rotulos_2"_s)->isVisible());
        QVERIFY(support::controlOf(login(), u"btnManutencao"_s)->isVisible());
        QCOMPARE(program_->rows(u"SELECT Codigo, Nome, Admin FROM Senha"_s),
                 (std::vector<QStringList>{{u"3"_s, u"ANA"_s, u"True"_s}}));

        typeCode(u"3"_s, true);
        typePassword(u"ABC"_s);
        support::click(login(), u"btnOk"_s);
        QCOMPARE(core::CodOperador, 3);
    }

private:
    void restartWithoutOperators()
    {
        ui::Forms::instance().Unload(u"frmSenha"_s);
        program_->sql(u"DELETE * FROM Senha"_s);
        support::show(u"frmSenha"_s);
    }

    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestSenha)
#include "tst_frmSenha.moc"
