#include "core/embaralha.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "shell/operadores.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

using Rows = std::vector<QStringList>;

ui::Form *operators()
{
    return ui::Forms::instance().find(u"frmSenhaManut"_s);
}

void fill(const QString &code, const QString &name, const QString &password, const QString &again)
{
    support::type(operators(), u"txtCodigo"_s, code);
    support::type(operators(), u"txtNome"_s, name);
    support::type(operators(), u"txtSenha"_s, password);
    support::type(operators(), u"txtConfirma"_s, again);
}

void click(const QString &button)
{
    support::click(operators(), button);
}

QString text(const QString &control)
{
    return support::text(operators(), control);
}

bool enabled(const QString &control)
{
    return support::controlOf(operators(), control)->isEnabled();
}

bool visible(const QString &control)
{
    return support::controlOf(operators(), control)->isVisible();
}

bool hasFocus(const QString &control)
{
    return operators()->window()->focusWidget() == support::controlOf(operators(), control);
}

ui::ListView *list()
{
    return support::control<ui::ListView>(operators(), u"Lista"_s);
}

/// Chooses a row of the list with the mouse.
void choose(int row)
{
    const QRect place = list()->visualRect(list()->model()->index(row, 0));
    const QPoint point = list()->viewport()->mapTo(operators()->window(), place.center());
    QTest::mouseClick(operators()->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
}

QStringList listed(int row)
{
    const auto item = list()->item(row);
    return {item.text(), item.subItem(1), item.subItem(2)};
}

bool admin()
{
    return support::control<QCheckBox>(operators(), u"chkAdmin"_s)->isChecked();
}

void setAdmin(bool on)
{
    if (admin() != on) {
        click(u"chkAdmin"_s);
    }
}

/// Chooses a row and gives the present password, which opens the fields for the new data.
void openForChange(int row, const QString &password)
{
    choose(row);
    support::Boxes boxes;
    boxes.information(u"Digite a senha atual"_s);
    click(u"btnAlterar"_s);
    boxes.finish();
    support::type(operators(), u"txtSenha"_s, password);
    click(u"btnOk"_s);
}

} // namespace

/// Operator 1 "ADMIN" (administrator, "123456") and 7 "JOSE" (user, "ABC") stand at the start.
class TestSenhaManut : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }

    void init()
    {
        program_ = std::make_unique<support::Program>();
        shell::incluiOperador({.codigo = u"7"_s, .nome = u"JOSE"_s, .senha = u"ABC"_s});
        support::show(u"frmSenhaManut"_s);
        QCOMPARE(list()->count(), 0);
        click(u"btnAtualiza"_s);
    }

    void cleanup() { program_.reset(); }

    void listShowsCodeNameAndLevelInOrder()
    {
        program_->sql(u"INSERT INTO Senha (Codigo, Nome, Admin) VALUES (3, 'ANA', True)"_s);
        QCOMPARE(operators()->windowTitle(), u"Manutenção de Senhas"_s);
        QCOMPARE(list()->count(), 2);

        click(u"btnAtualiza"_s);

        QCOMPARE(list()->count(), 3);
        QCOMPARE(listed(0), (QStringList{u"01"_s, u"ADMIN"_s, u"Administrador"_s}));
        QCOMPARE(listed(1), (QStringList{u"03"_s, u"ANA"_s, u"Administrador"_s}));
        QCOMPARE(listed(2), (QStringList{u"07"_s, u"JOSE"_s, u"Usuário"_s}));
        for (int column = 0; column < 3; ++column) {
            QCOMPARE(list()->model()->headerData(column, Qt::Horizontal).toString(),
                     (QStringList{u"Código"_s, u"Nome Operador"_s, u"Nível"_s}[column]));
        }
    }

    void captionsStandAsGiven_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("btnIncluir") << u"Incluir"_s;
        QTest::newRow("btnAlterar") << u"Alterar"_s;
        QTest::newRow("btnExcluir") << u"Excluir"_s;
        QTest::newRow("btnAtualiza") << u"Atualiza"_s;
        QTest::newRow("btnLimpar") << u"Limpar"_s;
        QTest::newRow("btnOk") << u"Ok"_s;
        QTest::newRow("btnCancelar") << u"Voltar"_s;
        QTest::newRow("chkAdmin") << u"Administrador"_s;
    }
    void captionsStandAsGiven()
    {
        auto *button = support::control<QAbstractButton>(operators(), QString::fromLatin1(QTest::currentDataTag()));
        QTEST(button->text(), "caption");
    }

    void newOperatorIsWrittenScrambled()
    {
        fill(u"9"_s, u"maria"_s, u"senha1"_s, u"senha1"_s);
        setAdmin(false);
        click(u"btnIncluir"_s);
        QCOMPARE(program_->rows(u"SELECT Codigo, Nome, Senha, Admin, Acessos FROM Senha WHERE Codigo = 9"_s),
                 (Rows{{u"9"_s, u"MARIA"_s, core::Embaralha(u"SENHA1"_s), u"False"_s, u"<Null>"_s}}));
        QCOMPARE(list()->count(), 3);
        for (const auto &field : {u"txtCodigo"_s, u"txtNome"_s, u"txtSenha"_s, u"txtConfirma"_s}) {
            QCOMPARE(text(field), QString());
        }
    }

    void newAdministratorIsWrittenAsOne()
    {
        fill(u"9"_s, u"MARIA"_s, u"AB"_s, u"AB"_s);
        setAdmin(true);
        click(u"btnIncluir"_s);
        QCOMPARE(program_->rows(u"SELECT Admin FROM Senha WHERE Codigo = 9"_s), (Rows{{u"True"_s}}));
    }

    void addingRefuses_data()
    {
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        QTest::newRow("no code") << QStringList{u""_s, u"ANA"_s, u"A"_s, u"A"_s} << u"Código do Operador Inválido"_s
                                 << u"txtCodigo"_s;
        QTest::newRow("code out of range")
            << QStringList{u"32768"_s, u"ANA"_s, u"A"_s, u"A"_s} << u"Código do Operador Inválido"_s << u"txtCodigo"_s;
        QTest::newRow("no name") << QStringList{u"9"_s, u""_s, u"A"_s, u"A"_s} << u"Nome do Operador Inválido"_s
                                 << u"txtNome"_s;
        QTest::newRow("no password") << QStringList{u"9"_s, u"ANA"_s, u""_s, u"A"_s} << u"Senha do Operador Inválida"_s
                                     << u"txtSenha"_s;
        QTest::newRow("code in use") << QStringList{u"7"_s, u"ANA"_s, u"A"_s, u"A"_s}
                                     << u"Código de Operador já cadastrado"_s << u"txtCodigo"_s;
        QTest::newRow("passwords differ")
            << QStringList{u"9"_s, u"ANA"_s, u"A"_s, u"B"_s}
            << u"As senhas não conferem, por favor, redigite os campos de senha"_s << u"txtSenha"_s;
    }
    void addingRefuses()
    {
        QFETCH(const QStringList, fields);
        QFETCH(const QString, message);
        QFETCH(const QString, focus);
        fill(fields[0], fields[1], fields[2], fields[3]);
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).exclamation(message);
        click(u"btnIncluir"_s);
        boxes.finish();
        QVERIFY(hasFocus(focus));
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha ORDER BY Codigo"_s), (Rows{{u"1"_s}, {u"7"_s}}));
    }

    void firstOperatorIsAnAdministratorInAnyCase()
    {
        ui::Forms::instance().Unload(u"frmSenhaManut"_s);
        program_->sql(u"DELETE * FROM Senha"_s);
        support::show(u"frmSenhaManut"_s);
        QVERIFY(admin());
        QVERIFY(!enabled(u"chkAdmin"_s));

        click(u"chkAdmin"_s);
        fill(u"5"_s, u"PRIMEIRO"_s, u"X"_s, u"X"_s);
        click(u"btnIncluir"_s);

        QCOMPARE(program_->rows(u"SELECT Codigo, Admin FROM Senha"_s), (Rows{{u"5"_s, u"True"_s}}));
        QVERIFY(enabled(u"chkAdmin"_s));
    }

    void choosingARowTakesItsData()
    {
        choose(1);
        QCOMPARE(text(u"txtCodigo"_s), u"07"_s);
        QCOMPARE(text(u"txtNome"_s), u"JOSE"_s);
        QCOMPARE(ui::tagOf(support::controlOf(operators(), u"txtSenha"_s)), u"ABC"_s);
        QVERIFY(!admin());
        choose(0);
        QCOMPARE(text(u"txtCodigo"_s), u"01"_s);
        QVERIFY(admin());
    }

    void changeNeedsACode()
    {
        support::Boxes boxes;
        boxes.exclamation(u"Código do Operador Inválido"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        QCOMPARE(text(u"btnAlterar"_s), u"Alterar"_s);
    }

    void changeNeedsAnOperatorOfTheList()
    {
        support::type(operators(), u"txtCodigo"_s, u"7"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Selecione um operador na lista"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        QCOMPARE(text(u"btnAlterar"_s), u"Alterar"_s);
    }

    void changeAsksForThePresentPassword()
    {
        QVERIFY(!visible(u"btnOk"_s));
        choose(1);
        support::Boxes boxes;
        boxes.information(u"Digite a senha atual"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        for (const auto &control : {u"txtCodigo"_s, u"txtNome"_s, u"txtConfirma"_s, u"btnIncluir"_s, u"btnExcluir"_s,
                                    u"btnAtualiza"_s, u"btnLimpar"_s, u"Lista"_s}) {
            QVERIFY2(!enabled(control), qPrintable(control));
        }
        QVERIFY(enabled(u"txtSenha"_s));
        QVERIFY(hasFocus(u"txtSenha"_s));
        QVERIFY(visible(u"btnOk"_s));
        QVERIFY(visible(u"chkAdmin"_s));
        QCOMPARE(text(u"btnAlterar"_s), u"Cancelar"_s);
    }

    void cancellingTheChangeOpensAllAgain()
    {
        choose(1);
        support::Boxes boxes;
        boxes.information(u"Digite a senha atual"_s);
        click(u"btnAlterar"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        for (const auto &control : {u"txtCodigo"_s, u"txtNome"_s, u"txtSenha"_s, u"txtConfirma"_s, u"btnIncluir"_s,
                                    u"btnExcluir"_s, u"btnAtualiza"_s, u"btnLimpar"_s, u"Lista"_s}) {
            QVERIFY2(enabled(control), qPrintable(control));
        }
        QVERIFY(!visible(u"btnOk"_s));
        QVERIFY(!visible(u"chkAdmin"_s));
        QCOMPARE(text(u"btnAlterar"_s), u"Alterar"_s);
    }

    void wrongPresentPasswordStops()
    {
        choose(1);
        support::Boxes boxes;
        boxes.information(u"Digite a senha atual"_s).exclamation(u"Senha incorreta"_s);
        click(u"btnAlterar"_s);
        support::type(operators(), u"txtSenha"_s, u"ABD"_s);
        click(u"btnOk"_s);
        boxes.finish();
        QCOMPARE(text(u"btnAlterar"_s), u"Cancelar"_s);
        QVERIFY(!enabled(u"txtNome"_s));
        QVERIFY(hasFocus(u"txtSenha"_s));
    }

    void rightPresentPasswordOpensTheFields()
    {
        openForChange(1, u"ABC"_s);
        QCOMPARE(text(u"btnAlterar"_s), u"Salvar"_s);
        for (const auto &control : {u"txtCodigo"_s, u"txtNome"_s, u"txtSenha"_s, u"txtConfirma"_s}) {
            QVERIFY2(enabled(control), qPrintable(control));
        }
    }

    void changeIsSavedWithoutTouchingTheLevel()
    {
        openForChange(1, u"ABC"_s);
        support::type(operators(), u"txtNome"_s, u"JOSE NETO"_s);
        support::type(operators(), u"txtSenha"_s, u"NOVA"_s);
        support::type(operators(), u"txtConfirma"_s, u"NOVA"_s);
        setAdmin(true);
        click(u"btnAlterar"_s);
        QCOMPARE(program_->rows(u"SELECT Codigo, Nome, Senha, Admin FROM Senha ORDER BY Codigo"_s),
                 (Rows{{u"1"_s, u"ADMIN"_s, core::Embaralha(u"123456"_s), u"True"_s},
                       {u"7"_s, u"JOSE NETO"_s, core::Embaralha(u"NOVA"_s), u"False"_s}}));
        QCOMPARE(text(u"btnAlterar"_s), u"Alterar"_s);
        QCOMPARE(listed(1), (QStringList{u"07"_s, u"JOSE NETO"_s, u"Usuário"_s}));
        for (const auto &control :
             {u"txtCodigo"_s, u"btnIncluir"_s, u"btnExcluir"_s, u"btnAtualiza"_s, u"btnLimpar"_s, u"Lista"_s}) {
            QVERIFY2(enabled(control), qPrintable(control));
        }
        QVERIFY(!visible(u"btnOk"_s));
        QVERIFY(visible(u"chkAdmin"_s));
        QCOMPARE(text(u"txtCodigo"_s), QString());
    }

    void changeNeedsEqualPasswords()
    {
        openForChange(1, u"ABC"_s);
        support::type(operators(), u"txtSenha"_s, u"NOVA"_s);
        support::type(operators(), u"txtConfirma"_s, u"NOVO"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Senhas não conferem"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        QCOMPARE(text(u"btnAlterar"_s), u"Salvar"_s);
        QCOMPARE(program_->rows(u"SELECT Senha FROM Senha WHERE Codigo = 7"_s), (Rows{{core::Embaralha(u"ABC"_s)}}));
    }

    void changeOfAnUnknownCodeIsRefused()
    {
        openForChange(1, u"ABC"_s);
        support::type(operators(), u"txtCodigo"_s, u"8"_s);
        support::Boxes boxes;
        boxes.exclamation(u"Código Não Localizado"_s);
        click(u"btnAlterar"_s);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha ORDER BY Codigo"_s), (Rows{{u"1"_s}, {u"7"_s}}));
    }

    void userCanBeRemoved()
    {
        choose(1);
        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).question(u"Excluir o operador JOSE"_s, true);
        click(u"btnExcluir"_s);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha"_s), (Rows{{u"1"_s}}));
        QCOMPARE(list()->count(), 1);
        QCOMPARE(text(u"txtCodigo"_s), QString());
    }

    void refusedQuestionRemovesNobody()
    {
        choose(1);
        support::Boxes boxes;
        boxes.question(u"Excluir o operador JOSE"_s, false);
        click(u"btnExcluir"_s);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha ORDER BY Codigo"_s), (Rows{{u"1"_s}, {u"7"_s}}));
    }

    void lastAdministratorCannotBeRemoved()
    {
        choose(0);
        support::Boxes boxes;
        boxes.question(u"Excluir o operador ADMIN"_s, true)
            .exclamation(u"Você não pode excluir o único administrador do sistema"_s);
        click(u"btnExcluir"_s);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha ORDER BY Codigo"_s), (Rows{{u"1"_s}, {u"7"_s}}));
    }

    void oneOfTwoAdministratorsCanBeRemoved()
    {
        program_->sql(u"UPDATE Senha SET Admin = True WHERE Codigo = 7"_s);
        choose(0);
        support::Boxes boxes;
        boxes.question(u"Excluir o operador ADMIN"_s, true);
        click(u"btnExcluir"_s);
        boxes.finish();
        QCOMPARE(program_->rows(u"SELECT Codigo FROM Senha"_s), (Rows{{u"7"_s}}));
    }

    void removingNeedsACodeThatExists()
    {
        support::Boxes boxes;
        boxes.exclamation(u"Código do Operador Inválido"_s);
        click(u"btnExcluir"_s);
        boxes.finish();

        boxes.exclamation(u"Código Não Localizado"_s);
        support::type(operators(), u"txtCodigo"_s, u"8"_s);
        click(u"btnExcluir"_s);
        boxes.finish();
    }

    void codeShowsTwoDigitsWhenLeft()
    {
        support::type(operators(), u"txtCodigo"_s, u"8"_s);
        QCOMPARE(text(u"txtCodigo"_s), u"08"_s);
    }

    void sixthCharacterOfTheConfirmationMovesOn()
    {
        support::type(operators(), u"txtConfirma"_s, u"12345"_s, false);
        QVERIFY(hasFocus(u"txtConfirma"_s));
        QTest::keyClick(operators()->window()->windowHandle(), Qt::Key_6);
        QVERIFY(hasFocus(u"chkAdmin"_s));
    }

    void confirmationStaysWhereTheLevelIsLocked()
    {
        ui::Forms::instance().Unload(u"frmSenhaManut"_s);
        program_->sql(u"DELETE * FROM Senha"_s);
        support::show(u"frmSenhaManut"_s);
        support::type(operators(), u"txtConfirma"_s, u"123456"_s, false);
        QVERIFY(hasFocus(u"txtConfirma"_s));
    }

    void clearEmptiesTheFieldsAndKeepsTheList()
    {
        choose(1);
        click(u"btnLimpar"_s);
        for (const auto &field : {u"txtCodigo"_s, u"txtNome"_s, u"txtSenha"_s, u"txtConfirma"_s}) {
            QCOMPARE(text(field), QString());
        }
        QCOMPARE(list()->count(), 2);
    }

    void passwordsTakeNineCharacters()
    {
        QCOMPARE(support::control<QLineEdit>(operators(), u"txtSenha"_s)->maxLength(), 9);
        QCOMPARE(support::control<QLineEdit>(operators(), u"txtConfirma"_s)->maxLength(), 9);
        fill(u"9"_s, u"MARIA"_s, u"ABCDEFGHI"_s, u"ABCDEF"_s);
        support::key(operators(), u"txtConfirma"_s, Qt::Key_End); // the sixth character had moved on
        for (const int key : {Qt::Key_G, Qt::Key_H, Qt::Key_I, Qt::Key_J}) {
            QTest::keyClick(operators()->window()->windowHandle(), Qt::Key(key));
        }
        click(u"btnIncluir"_s);
        QCOMPARE(program_->rows(u"SELECT Senha FROM Senha WHERE Codigo = 9"_s),
                 (Rows{{core::Embaralha(u"ABCDEFGHI"_s)}}));
    }

    void backClosesTheWindow()
    {
        click(u"btnCancelar"_s);
        QVERIFY(!operators());
    }

private:
    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestSenhaManut)
#include "tst_frmSenhaManut.moc"
