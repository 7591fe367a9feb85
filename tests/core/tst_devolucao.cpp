#include "core/devolucao.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "support/cadastro.h"
#include "support/program.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using core::Devolucao;
using core::Ocasiao;
using support::control;
using support::text;
using ui::Forms;

namespace
{

const QString picker = u"frmCadaProva"_s;
const QString caller = u"frmChamador"_s;
constexpr qint16 modeOfTheCaller = 51;
constexpr qint16 modeWithAFocus = 52;
constexpr qint16 modeOfNobody = 53;

constexpr std::array choice{
    Devolucao{modeOfTheCaller, u"frmChamador", u"txtCodigo"},
    Devolucao{modeOfTheCaller, u"frmChamador", u"txtNome", u"txtNome"},
    Devolucao{modeWithAFocus, u"frmChamador", u"lblCodigo", {}, u"txtNome"},
    Devolucao{modeOfNobody, u"frmQueNaoHa", u"txtCodigo"},
};
constexpr std::array inclusion{Devolucao{core::modoNormal, u"frmChamador", u"txtCodigo"}};
constexpr std::array filling{
    Devolucao{.modo = core::modoNormal,
              .janela = u"frmChamador",
              .controle = u"txtNome",
              .origem = u"txtNome",
              .comTag = true},
    Devolucao{core::modoNormal, u"frmChamador", u"txtCodigo"},
    Devolucao{core::modoNormal, u"frmQueNaoHa", u"txtCodigo"},
};

class frmCadaProva : public ui::Form
{
public:
    frmCadaProva() : Form(picker)
    {
        auto *grid = new QGridLayout(this);
        add(grid, new QLineEdit(this), u"txtNome"_s);
        for (const QString &name : {u"btnVoltar"_s, u"btnFechar_3"_s, u"btnPecaFind"_s, u"btnQualquer"_s}) {
            add(grid, new QPushButton(this), name);
        }
        add(grid, new QPushButton(this), u"btnIncluir"_s)->setProperty("icone", u"list-add"_s);
        add(grid, new QPushButton(this), u"btnExcluir"_s)->setProperty("icone", QString());
    }

private:
    static QWidget *add(QGridLayout *grid, QWidget *made, const QString &name)
    {
        made->setObjectName(name);
        grid->addWidget(made);
        return made;
    }
};

} // namespace

/// Windows write into each other by the rows that they are made known with.
class TstDevolucao : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theRowsOfAWindowAreKnown();
    void aChoiceGoesToTheCaller();
    void theCallerMayNameItsFocus();
    void anotherModeHandsNothingBack();
    void theNormalModeStandsForAll();
    void aCallerThatIsNotThereIsPassedOver();
    void anotherWindowIsFilled();
    void aFillingMayComeFromWhatNoControlHolds();
    void theButtonsGetTheirIcons_data();
    void theButtonsGetTheirIcons();

private:
    void begin(qint16 mode);

    std::unique_ptr<support::Program> program_;
    ui::Form *caller_ = nullptr;
    ui::Form *picker_ = nullptr;
};

void TstDevolucao::initTestCase()
{
    core::RegistraJanela(
        picker, [] { return new frmCadaProva; },
        {{Ocasiao::Escolha, choice}, {Ocasiao::Inclusao, inclusion}, {Ocasiao::Preenchimento, filling}});
    cadastro::standIn(caller, {u"txtOutro"_s, u"txtCodigo"_s, u"txtNome"_s, u"lblCodigo"_s});
}

void TstDevolucao::init()
{
    program_ = std::make_unique<support::Program>();
}

void TstDevolucao::cleanup()
{
    program_.reset();
}

void TstDevolucao::begin(qint16 mode)
{
    caller_ = cadastro::open(caller);
    picker_ = cadastro::open(picker, mode);
    support::type(picker_, u"txtNome"_s, u"MARIA"_s);
}

void TstDevolucao::theRowsOfAWindowAreKnown()
{
    const auto &tables = core::DevolucoesDe(picker);
    QCOMPARE(tables.size(), 3U);
    QCOMPARE(tables[0].linhas.size(), choice.size());
    QVERIFY(tables[1].ocasiao == Ocasiao::Inclusao);
    QVERIFY(core::DevolucoesDe(caller).empty());
}

void TstDevolucao::aChoiceGoesToTheCaller()
{
    begin(modeOfTheCaller);
    QVERIFY(core::Devolve(*picker_, Ocasiao::Escolha, u"0007"_s));
    QCOMPARE(text(caller_, u"txtCodigo"_s), u"0007"_s);
    QCOMPARE(text(caller_, u"txtNome"_s), u"MARIA"_s);
    QVERIFY(!cadastro::isOpen(picker));
    QCOMPARE(cadastro::focusOf(caller_), u"txtNome"_s);
    QCOMPARE(control<QLineEdit>(caller_, u"txtNome"_s)->selectedText(), u"MARIA"_s);
}

void TstDevolucao::theCallerMayNameItsFocus()
{
    begin(modeWithAFocus);
    QVERIFY(core::Devolve(*picker_, Ocasiao::Escolha, u"0007"_s));
    QCOMPARE(text(caller_, u"lblCodigo"_s), u"0007"_s);
    QVERIFY(!cadastro::isOpen(picker));
    QCOMPARE(cadastro::focusOf(caller_), u"txtNome"_s);
}

void TstDevolucao::anotherModeHandsNothingBack()
{
    begin(core::modoNormal);
    QVERIFY(!core::Devolve(*picker_, Ocasiao::Escolha, u"0007"_s));
    QVERIFY(!core::Devolve(*picker_, Ocasiao::Botao, u"0007"_s));
    QCOMPARE(text(caller_, u"txtCodigo"_s), QString());
    QVERIFY(cadastro::isOpen(picker));
}

void TstDevolucao::theNormalModeStandsForAll()
{
    begin(modeOfTheCaller);
    QVERIFY(core::Devolve(*picker_, Ocasiao::Inclusao, u"8"_s));
    QCOMPARE(text(caller_, u"txtCodigo"_s), u"8"_s);
    QCOMPARE(cadastro::focusOf(caller_), u"txtCodigo"_s);
}

void TstDevolucao::aCallerThatIsNotThereIsPassedOver()
{
    begin(modeOfNobody);
    QVERIFY(core::Devolve(*picker_, Ocasiao::Escolha, u"0007"_s));
    QVERIFY(!cadastro::isOpen(picker));
}

void TstDevolucao::anotherWindowIsFilled()
{
    begin(modeOfNobody);
    ui::setTagOf(control<QLineEdit>(picker_, u"txtNome"_s), u"12"_s);
    cadastro::focus(caller_, u"txtOutro"_s);
    core::Preenche(*picker_, caller, u"0009"_s);
    QCOMPARE(text(caller_, u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(ui::tagOf(control<QLineEdit>(caller_, u"txtNome"_s)), u"12"_s);
    QCOMPARE(text(caller_, u"txtCodigo"_s), u"0009"_s);
    QVERIFY(cadastro::isOpen(picker));
    QCOMPARE(cadastro::focusOf(caller_), u"txtOutro"_s);
}

void TstDevolucao::aFillingMayComeFromWhatNoControlHolds()
{
    begin(modeOfNobody);
    core::Preenche(*picker_, caller, [](QStringView control) -> QString { return u"of "_s + control; });
    QCOMPARE(text(caller_, u"txtNome"_s), u"MARIA"_s); // has a control of its own
    QCOMPARE(text(caller_, u"txtCodigo"_s), u"of txtCodigo"_s);
}

void TstDevolucao::theButtonsGetTheirIcons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("icon");
    QTest::newRow("by its name") << u"btnVoltar"_s << u"go-previous"_s;
    QTest::newRow("by the end of its name") << u"btnPecaFind"_s << u"edit-find"_s;
    QTest::newRow("of an array") << u"btnFechar_3"_s << u"dialog-ok-apply"_s;
    QTest::newRow("by the layout file") << u"btnIncluir"_s << u"list-add"_s;
    QTest::newRow("none by the layout file") << u"btnExcluir"_s << QString();
    QTest::newRow("not in the table") << u"btnQualquer"_s << QString();
}

void TstDevolucao::theButtonsGetTheirIcons()
{
    QFETCH(QString, button);
    QFETCH(QString, icon);
    const auto *form = Forms::instance().Load(picker);
    QCOMPARE(form->findChild<QPushButton *>(button)->icon().name(), icon);
}

TARVELO_TEST_MAIN(TstDevolucao)
#include "tst_devolucao.moc"
