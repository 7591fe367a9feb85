#include "core/caixacodigo.h"
#include "core/caixadata.h"

#include "core/banco.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/program.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;
using ui::Forms;

namespace
{

const QString sample = u"frmProva"_s;
const QString picker = u"frmCadaProva"_s;
constexpr qint16 modeOfTheKey = 51;
constexpr qint16 modeOfTheOtherKey = 52;

/// A window with a date box of each kind and a code box, and with buttons that an administrator alone may press.
class frmProva : public ui::Form
{
public:
    frmProva() : ui::Form(sample)
    {
        new QGridLayout(this);
        core::LigaData(*this, add<QLineEdit>(u"txtData"_s), {.saida = core::SaidaDaData::FormataDatas});
        core::LigaData(*this, add<QLineEdit>(u"txtVencimento"_s), {.mesesDoF1 = 1});
        core::LigaData(*this, add<QLineEdit>(u"txtLivre"_s), {.soDigitos = false});
        core::LigaData(*this, add<QLineEdit>(u"txtQualquer"_s), {.saida = core::SaidaDaData::Formata});
        code();
        add<QPushButton>(u"btnAlterar"_s);
        add<QPushButton>(u"btnExcluir"_s);
        add<QPushButton>(u"btnVoltar"_s);
    }

    void Form_Load() override
    {
        core::SoAdministrador(
            u"Somente o administrador altera registros"_s,
            {control<QPushButton>(this, u"btnAlterar"_s), control<QPushButton>(this, u"btnExcluir"_s)});
    }

private:
    template<class T>
    T *add(const QString &name)
    {
        auto *made = new T(this);
        made->setObjectName(name);
        layout()->addWidget(made);
        return made;
    }

    void code()
    {
        auto *box = add<QLineEdit>(u"txtCodCliente"_s);
        auto *name = add<ui::Label>(u"lblNome"_s);
        new core::CaixaDeCodigo(
            *this, box,
            {.consulta = [](const QString &typed) -> QString {
                 return u"SELECT * FROM Clientes WHERE Codigo = "_s + typed;
             },
             .naoLocalizado = u"Código não localizado",
             .recusa = [](const dao::Recordset &row) -> QStringView {
                 return core::NuloParaVazio(row.value(u"Nome")) == u"INATIVO" ? u"Cliente inativo" : u"";
             },
             .mostra = [name](const dao::Recordset &row) { name->setText(core::NuloParaVazio(row.value(u"Nome"))); },
             .esvazia = [name] { name->setText({}); },
             .vazioEsvazia = true,
             .cadastro = picker,
             .procura = add<QPushButton>(u"btnClienteFind"_s),
             .modoProcura = modeOfTheKey,
             .inclui = add<QPushButton>(u"btnClienteAdd"_s),
             .modoInclui = modeOfTheOtherKey});
    }
};

} // namespace

/// The boxes that several windows have: a window says in a table what its own one does.
class TstCaixas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aDateTakesItsBarsAsItIsTyped_data();
    void aDateTakesItsBarsAsItIsTyped();
    void aDateIsPastedWithTwoDigits();
    void lettersStayOutUnlessAskedFor();
    void leavingADateWritesItWhole_data();
    void leavingADateWritesItWhole();
    void aKeyPutsADateIn();

    void aCodeShowsItsRow();
    void anUnknownCodeIsTold();
    void aRowThatIsNotTakenIsTold();
    void anEmptyCodeEmpties();
    void aKeyOpensTheRegister_data();
    void aKeyOpensTheRegister();

    void theAdministratorMayPressAll();
    void anotherOperatorIsToldWhyNot();

private:
    void open() { form_ = support::show(sample); }

    std::unique_ptr<support::Program> program_;
    ui::Form *form_ = nullptr;
};

void TstCaixas::initTestCase()
{
    Forms::instance().add(sample, [] { return new frmProva; });
    cadastro::standIn(picker, {u"txtTexto"_s});
}

void TstCaixas::init()
{
    program_ = std::make_unique<support::Program>();
    program_->customer(u"MARIA"_s);
    program_->customer(u"INATIVO"_s);
}

void TstCaixas::cleanup()
{
    program_.reset();
}

void TstCaixas::aDateTakesItsBarsAsItIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("digits") << u"05012024"_s;
    QTest::newRow("with its bars") << u"05/01/2024"_s;
    QTest::newRow("numbers of one digit") << u"5/1/2024"_s;
    QTest::newRow("a bar too many") << u"5//1//2024"_s;
    QTest::newRow("bars where none belongs") << u"/05/01/20/24/"_s;
}

void TstCaixas::aDateTakesItsBarsAsItIsTyped()
{
    QFETCH(QString, typed);
    open();
    for (const QString &box : {u"txtData"_s, u"txtVencimento"_s, u"txtLivre"_s, u"txtQualquer"_s}) {
        type(form_, box, typed);
        QCOMPARE(text(form_, box), u"05/01/2024"_s);
    }
}

void TstCaixas::aDateIsPastedWithTwoDigits()
{
    open();
    cadastro::paste(form_, u"txtData"_s, u"1/2/2024"_s);
    QCOMPARE(text(form_, u"txtData"_s), u"01/02/2024"_s);
}

void TstCaixas::lettersStayOutUnlessAskedFor()
{
    open();
    type(form_, u"txtVencimento"_s, u"1A2"_s);
    QCOMPARE(text(form_, u"txtVencimento"_s), u"12/"_s);
    type(form_, u"txtLivre"_s, u"1A2"_s);
    QCOMPARE(text(form_, u"txtLivre"_s), u"1A/2"_s);
}

void TstCaixas::leavingADateWritesItWhole_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("left");
    QTest::newRow("two digits of the year") << u"txtData"_s << u"050124"_s << u"05/01/2024"_s;
    QTest::newRow("no date") << u"txtData"_s << u"999999"_s << u"99/99/99"_s;
    QTest::newRow("a number") << u"txtData"_s << u"5"_s << u"5"_s;
    QTest::newRow("a number, read as one") << u"txtQualquer"_s << u"5"_s << u"04/01/1900"_s;
    QTest::newRow("not asked for") << u"txtVencimento"_s << u"050124"_s << u"05/01/24"_s;
}

void TstCaixas::leavingADateWritesItWhole()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, left);
    open();
    type(form_, box, typed);
    QCOMPARE(text(form_, box), left);
}

void TstCaixas::aKeyPutsADateIn()
{
    open();
    key(form_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(form_, u"txtData"_s), u"15/05/2024"_s);
    key(form_, u"txtVencimento"_s, Qt::Key_F1);
    QCOMPARE(text(form_, u"txtVencimento"_s), u"15/06/2024"_s);
}

void TstCaixas::aCodeShowsItsRow()
{
    open();
    type(form_, u"txtCodCliente"_s, u"1"_s);
    QCOMPARE(text(form_, u"lblNome"_s), u"MARIA"_s);
    QCOMPARE(text(form_, u"txtCodCliente"_s), u"0001"_s);
}

void TstCaixas::anUnknownCodeIsTold()
{
    open();
    type(form_, u"txtCodCliente"_s, u"1"_s);
    support::Boxes boxes;
    boxes.exclamation(u"Código não localizado"_s);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    QCOMPARE(text(form_, u"lblNome"_s), QString());
    QTRY_COMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtCodCliente"_s)->selectedText(), u"99"_s);
}

void TstCaixas::aRowThatIsNotTakenIsTold()
{
    open();
    type(form_, u"txtCodCliente"_s, u"1"_s);
    support::Boxes boxes;
    boxes.exclamation(u"Cliente inativo"_s);
    type(form_, u"txtCodCliente"_s, u"2"_s);
    QCOMPARE(text(form_, u"lblNome"_s), QString());
    QCOMPARE(text(form_, u"txtCodCliente"_s), u"2"_s);
}

void TstCaixas::anEmptyCodeEmpties()
{
    open();
    type(form_, u"txtCodCliente"_s, u"1"_s);
    type(form_, u"txtCodCliente"_s, QString());
    QCOMPARE(text(form_, u"lblNome"_s), QString());
}

void TstCaixas::aKeyOpensTheRegister_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<QString>("button");
    QTest::addColumn<qint16>("mode");
    QTest::newRow("F1") << int(Qt::Key_F1) << QString() << modeOfTheKey;
    QTest::newRow("F2") << int(Qt::Key_F2) << QString() << modeOfTheOtherKey;
    QTest::newRow("find") << 0 << u"btnClienteFind"_s << modeOfTheKey;
    QTest::newRow("add") << 0 << u"btnClienteAdd"_s << modeOfTheOtherKey;
}

void TstCaixas::aKeyOpensTheRegister()
{
    QFETCH(int, pressed);
    QFETCH(QString, button);
    QFETCH(qint16, mode);
    open();
    button.isEmpty() ? key(form_, u"txtCodCliente"_s, Qt::Key(pressed)) : click(form_, button);
    QVERIFY(cadastro::isOpen(picker));
    QCOMPARE(core::ModoChamada, mode);
}

void TstCaixas::theAdministratorMayPressAll()
{
    open();
    QVERIFY(core::Administrador());
    for (const QString &button : {u"btnAlterar"_s, u"btnExcluir"_s, u"btnVoltar"_s}) {
        QVERIFY2(control<QPushButton>(form_, button)->isEnabled(), qPrintable(button));
    }
}

void TstCaixas::anotherOperatorIsToldWhyNot()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Admin) VALUES (2, 'JOSE', False)"_s);
    core::CodOperador = 2;
    open();
    QVERIFY(!core::Administrador());
    QVERIFY(core::Administrador(u"1"_s));
    for (const QString &button : {u"btnAlterar"_s, u"btnExcluir"_s}) {
        const auto *found = control<QPushButton>(form_, button);
        QVERIFY2(!found->isEnabled(), qPrintable(button));
        QVERIFY2(found->toolTip().contains(u"Somente o administrador altera registros"_s),
                 qPrintable(found->toolTip()));
    }
    QVERIFY(control<QPushButton>(form_, u"btnVoltar"_s)->isEnabled());
}

TARVELO_TEST_MAIN(TstCaixas)
#include "tst_caixas.moc"
