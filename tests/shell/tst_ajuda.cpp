#include "manualdeteste.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "stock/stock.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QScopeGuard>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace manualdeteste;
using ui::Forms;

namespace
{

void pressF1(ui::Form *form, const QString &control)
{
    support::key(form, control, Qt::Key_F1);
    QCoreApplication::processEvents();
}

} // namespace

/// F1 opens the manual wherever a window has no use of its own for it.
class TstAjuda : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { cenario_ = std::make_unique<Cenario>(); }
    void cleanup() { cenario_.reset(); }

    void aWindowOpensItsSection_data();
    void aWindowOpensItsSection();
    void aBoxWithAUseForTheKeyKeepsIt_data();
    void aBoxWithAUseForTheKeyKeepsIt();
    void shiftedItIsNoQuestion();
    void theMainWindowHasItsSection();
    void theMainWindowAsksForTheChildInFront();
    void theLoginHasHelpAboveIt();
    void theSplashHasNone();
    void anOpenManualGoesToTheNewSection();
    void anOpenManualComesAboveAModalWindow();
    void theFieldIsLeftBeforeItOpens();
    void anUnknownSectionIsTheTop();
    void aMissingFileIsToldWithItsPath();
    void withoutHelpTheKeyDoesNothing();

private:
    std::unique_ptr<Cenario> cenario_;
};

void TstAjuda::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    stock::registerForms();
}

void TstAjuda::aWindowOpensItsSection_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("heading");
    QTest::newRow("text box") << u"frmCadaCliente"_s << u"txtNome"_s << u"Cadastro de clientes"_s;
    QTest::newRow("text of several lines") << u"frmCadaCliente"_s << u"txtObservacoes"_s << u"Cadastro de clientes"_s;
    QTest::newRow("combo") << u"frmCadaCliente"_s << u"cboPesquisa"_s << u"Cadastro de clientes"_s;
    QTest::newRow("combo to type into") << u"frmCadaCliente"_s << u"cboEstado"_s << u"Cadastro de clientes"_s;
    QTest::newRow("list") << u"frmInfoAviso"_s << u"Lista_0"_s << u"Vencimentos"_s;
    QTest::newRow("button") << u"frmInfoAviso"_s << u"Command1"_s << u"Vencimentos"_s;
    QTest::newRow("section by a name") << u"frmInfo"_s << u"cmdOK"_s << u"Sobre o programa"_s;
}

void TstAjuda::aWindowOpensItsSection()
{
    QFETCH(const QString, form);
    QFETCH(const QString, control);
    shell::principal().MDIForm_Load();
    auto *asked = support::show(form);
    pressF1(asked, control);
    QVERIFY(manual());
    QTEST(topmost(), "heading");
    QVERIFY(Forms::instance().area()->isAncestorOf(manual()));
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(cadastro::focusOf(manual()), u"txtManual"_s);
    QVERIFY(page()->hasFocus());
    QCOMPARE(Forms::instance().find(form), asked); // it stays open behind
}

void TstAjuda::aBoxWithAUseForTheKeyKeepsIt_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("opens");
    QTest::newRow("code") << u"frmCadaVeiculos"_s << u"txtCodCliente"_s << u"frmCadaCliente"_s;
    QTest::newRow("date") << u"frmMoviEstoque"_s << u"txtData"_s << QString();
}

void TstAjuda::aBoxWithAUseForTheKeyKeepsIt()
{
    QFETCH(const QString, form);
    QFETCH(const QString, control);
    QFETCH(const QString, opens);
    auto *asked = support::show(form);
    pressF1(asked, control);
    QVERIFY(!manual());
    if (opens.isEmpty()) {
        QCOMPARE(support::text(asked, control), u"15/05/2024"_s);
    } else {
        QVERIFY(Forms::instance().find(opens));
    }
}

void TstAjuda::shiftedItIsNoQuestion()
{
    auto *form = support::show(u"frmCadaCliente"_s);
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        support::key(form, u"txtNome"_s, Qt::Key_F1, modifier);
        QVERIFY(!manual());
    }
}

void TstAjuda::theMainWindowHasItsSection()
{
    shell::principal().MDIForm_Load();
    QVERIFY(QTest::qWaitForWindowActive(&shell::principal()));
    QTest::keyClick(shell::principal().windowHandle(), Qt::Key_F1);
    QVERIFY(manual());
    QCOMPARE(topmost(), u"Janela principal"_s);
}

/// The focus may rest on the main window while a child stands in front.
void TstAjuda::theMainWindowAsksForTheChildInFront()
{
    shell::principal().MDIForm_Load();
    support::show(u"frmInfoAviso"_s);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(&shell::principal(), &press);
    QVERIFY(manual());
    QCOMPARE(topmost(), u"Vencimentos"_s);
}

void TstAjuda::theLoginHasHelpAboveIt()
{
    bool modal = false;
    QString heading;
    support::whenShown(u"frmSenha"_s, [&] {
        const auto closed = qScopeGuard([] { Forms::instance().Unload(u"frmSenha"_s); });
        auto *login = Forms::instance().find(u"frmSenha"_s);
        pressF1(login, u"txtSenha"_s);
        QVERIFY(manual());
        QVERIFY(QTest::qWaitForWindowActive(manual()->window()));
        modal = manual()->isModal() && QApplication::activeModalWidget() == manual();
        heading = topmost();
        support::key(manual(), u"txtManual"_s, Qt::Key_Escape);
        QVERIFY(!manual());
        QTRY_COMPARE(QApplication::activeModalWidget(), login);
    });
    Forms::instance().ShowModal(u"frmSenha"_s);
    QVERIFY(modal);
    QCOMPARE(heading, u"Entrada"_s);
}

void TstAjuda::theSplashHasNone()
{
    shell::AbreManual(u"frmSplash"_s);
    QVERIFY(!manual());
}

void TstAjuda::anOpenManualGoesToTheNewSection()
{
    shell::principal().MDIForm_Load();
    shell::AbreManual(u"frmInfo"_s);
    const auto *first = manual();
    QCOMPARE(topmost(), u"Sobre o programa"_s);
    pressF1(support::show(u"frmCadaCliente"_s), u"txtNome"_s);
    QCOMPARE(manual(), first);
    QCOMPARE(topmost(), u"Cadastro de clientes"_s);
    QVERIFY(page()->hasFocus());
    QVERIFY(page()->isBackwardAvailable());
    pressF1(manual(), u"txtManual"_s); // it has no section of its own here
    QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
}

void TstAjuda::anOpenManualComesAboveAModalWindow()
{
    shell::principal().MDIForm_Load();
    shell::AbreManual(u"frmInfo"_s);
    QString heading;
    support::whenShown(u"frmSenhaManut"_s, [&] {
        const auto closed = qScopeGuard([] { Forms::instance().Unload(u"frmSenhaManut"_s); });
        pressF1(Forms::instance().find(u"frmSenhaManut"_s), u"txtNome"_s);
        QVERIFY(manual()->isModal());
        heading = topmost();
        Forms::instance().Unload(window);
    });
    Forms::instance().ShowModal(u"frmSenhaManut"_s);
    QCOMPARE(heading, u"Manual do Tarvelo"_s);
    QVERIFY(Forms::instance().area()->subWindowList().isEmpty());
}

/// What leaving it tells comes up while the field is still in sight.
void TstAjuda::theFieldIsLeftBeforeItOpens()
{
    class Asking : public ui::Form
    {
    public:
        Asking() : Form(u"frmPergunta"_s), box_(new QLineEdit(this))
        {
            box_->setObjectName(u"txtValor"_s);
            onLostFocus(box_, &Asking::txtValor_LostFocus);
            resize(200, 100);
        }
        int left = 0;
        bool manualWasUp = false;

    private:
        void txtValor_LostFocus()
        {
            ++left;
            manualWasUp = manualWasUp || manual() != nullptr;
        }
        QLineEdit *box_;
    };
    Forms::instance().add(u"frmPergunta"_s, [] { return new Asking; });
    shell::principal().MDIForm_Load();
    auto *form = static_cast<Asking *>(support::show(u"frmPergunta"_s));
    pressF1(form, u"txtValor"_s);
    QVERIFY(manual());
    QCOMPARE(form->left, 1);
    QVERIFY(!form->manualWasUp);
}

void TstAjuda::anUnknownSectionIsTheTop()
{
    shell::AbreManual(u"frmInfo"_s);
    shell::AbreManual(u"frmQueNaoHa"_s);
    QCOMPARE(topmost(), u"Manual do Tarvelo"_s);
    QCOMPARE(page()->verticalScrollBar()->value(), 0);
}

void TstAjuda::aMissingFileIsToldWithItsPath()
{
    QVERIFY(QFile::remove(manualFile()));
    cenario_->boxes->title(u"Tarvelo"_s)
        .exclamation(u"O manual não foi encontrado. Ele deveria estar no arquivo:\n"_s + manualFile());
    pressF1(support::show(u"frmCadaCliente"_s), u"txtNome"_s);
    cenario_->boxes->finish();
    QVERIFY(!manual());
}

void TstAjuda::withoutHelpTheKeyDoesNothing()
{
    ui::setHelp({});
    pressF1(support::show(u"frmCadaCliente"_s), u"txtNome"_s);
    QVERIFY(!manual());
}

TARVELO_TEST_MAIN(TstAjuda)
#include "tst_ajuda.moc"
