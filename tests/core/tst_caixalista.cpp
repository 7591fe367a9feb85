#include "core/caixalista.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "support/program.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

using Rows = std::vector<QStringList>;

const QString sample = u"frmProva"_s;

/// A window with a combo of banks and its two buttons.
class frmProva : public ui::Form
{
public:
    frmProva() : ui::Form(sample)
    {
        new QVBoxLayout(this);
        auto *combo = add<QComboBox>(u"txtBanco"_s);
        combo->setEditable(true);
        auto *adder = add<QPushButton>(u"btnBancoAdd"_s);
        auto *remover = add<QPushButton>(u"btnBancoRemove"_s);
        box = new core::CaixaDeLista(*this, combo, core::ListaCombo::Bancos, adder, remover);
        add<QLineEdit>(u"txtOutro"_s);
    }

    void Form_Load() override { box->carrega(); }

    core::CaixaDeLista *box;

private:
    template<class T>
    T *add(const QString &name)
    {
        auto *made = new T(this);
        made->setObjectName(name);
        layout()->addWidget(made);
        return made;
    }
};

} // namespace

/// A combo with the list that the user keeps for it.
class TstCaixaLista : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loadsTheEntriesOfItsOwnList();
    void completesWhatIsTyped();
    void showsAsItIsWhatTheProgramWrites();
    void aWrittenTextShowsItsBeginning();
    void aLetterTakenFromAWrittenTextStaysAway();
    void itsButtonsKeepTheList();
    void itsButtonsNeedAText();

private:
    Rows stored() const { return program_->rows(u"SELECT Codigo, Texto FROM Combos ORDER BY Texto"_s); }

    std::unique_ptr<support::Program> program_;
    frmProva *form_ = nullptr;
};

void TstCaixaLista::initTestCase()
{
    ui::Forms::instance().add(sample, [] { return new frmProva; });
}

void TstCaixaLista::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (2, 'BRADESCO')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (5, 'BRUNO')"_s);
    core::AutoCompletar = true;
    form_ = static_cast<frmProva *>(support::show(sample));
}

void TstCaixaLista::cleanup()
{
    core::AutoCompletar = false;
    program_.reset();
}

void TstCaixaLista::loadsTheEntriesOfItsOwnList()
{
    const auto *combo = control<QComboBox>(form_, u"txtBanco"_s);
    QCOMPARE(combo->count(), 1);
    QCOMPARE(combo->itemText(0), u"BRADESCO"_s);
    QCOMPARE(combo->currentText(), QString());
}

void TstCaixaLista::completesWhatIsTyped()
{
    type(form_, u"txtBanco"_s, u"br"_s, false);
    QTRY_COMPARE(text(form_, u"txtBanco"_s), u"BRADESCO"_s);
    QCOMPARE(control<QComboBox>(form_, u"txtBanco"_s)->lineEdit()->selectedText(), u"ADESCO"_s);
}

void TstCaixaLista::showsAsItIsWhatTheProgramWrites()
{
    form_->box->escreve(u"BRA"_s);
    QCoreApplication::processEvents();
    QCOMPARE(text(form_, u"txtBanco"_s), u"BRA"_s);
}

void TstCaixaLista::aWrittenTextShowsItsBeginning()
{
    form_->box->escreve(QString(100, u'W'));
    QCOMPARE(control<QComboBox>(form_, u"txtBanco"_s)->lineEdit()->cursorPosition(), 0);
}

void TstCaixaLista::aLetterTakenFromAWrittenTextStaysAway()
{
    form_->box->escreve(u"BRADE"_s);
    key(form_, u"txtBanco"_s, Qt::Key_End);
    key(form_, u"txtBanco"_s, Qt::Key_Backspace);
    QCoreApplication::processEvents();
    QCOMPARE(text(form_, u"txtBanco"_s), u"BRAD"_s);
}

void TstCaixaLista::itsButtonsKeepTheList()
{
    type(form_, u"txtBanco"_s, u"itaú"_s);
    click(form_, u"btnBancoAdd"_s);
    QCOMPARE(stored(), (Rows{{u"2"_s, u"BRADESCO"_s}, {u"5"_s, u"BRUNO"_s}, {u"2"_s, u"ITAÚ"_s}}));
    QCOMPARE(text(form_, u"txtBanco"_s), u"ITAÚ"_s);

    click(form_, u"btnBancoRemove"_s);
    QCOMPARE(stored(), (Rows{{u"2"_s, u"BRADESCO"_s}, {u"5"_s, u"BRUNO"_s}}));
    QCOMPARE(text(form_, u"txtBanco"_s), QString());
}

void TstCaixaLista::itsButtonsNeedAText()
{
    const auto *adder = support::controlOf(form_, u"btnBancoAdd"_s);
    const auto *remover = support::controlOf(form_, u"btnBancoRemove"_s);
    QVERIFY(!adder->isEnabled() && !remover->isEnabled());
    form_->box->escreve(u"ITAÚ"_s);
    QVERIFY(adder->isEnabled() && remover->isEnabled());
}

TARVELO_TEST_MAIN(TstCaixaLista)
#include "tst_caixalista.moc"
