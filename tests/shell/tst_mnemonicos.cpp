#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/menus.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>

#include <memory>

using namespace Qt::StringLiterals;

using Letters = QMap<QChar, QString>;

/// Alt and a letter must lead to one place: among all that a window shows at a time (its labels, buttons, groups and
/// tabs), and between it and the menus above it.
class TstMnemonicos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init()
    {
        program_ = std::make_unique<support::Program>();
        program_->originBook();
    }
    void cleanup() { program_.reset(); }

    void everyLetterIsGivenOnce_data();
    void everyLetterIsGivenOnce();
    void fieldsHaveLetters();

private:
    static void giveLetters(const QWidget *form, Letters taken);

    std::unique_ptr<support::Program> program_;
};

namespace
{

/// The upper case letter behind the mark, or a null character.
QChar letterOf(const QString &caption)
{
    const qsizetype mark = caption.indexOf(u'&');
    return mark < 0 || mark + 1 == caption.size() ? QChar() : caption.at(mark + 1).toUpper();
}

Letters menuLetters()
{
    QMenuBar bar;
    shell::montaMenus(bar);
    Letters letters;
    for (const QAction *action : bar.actions()) {
        letters.insert(letterOf(action->text()), action->text());
    }
    return letters;
}

/// The captions of a control that Alt and a letter lead to: one, or those of all tabs.
QStringList captionsOf(const QWidget *control)
{
    if (const auto *label = qobject_cast<const QLabel *>(control)) {
        return label->buddy() != nullptr ? QStringList(label->text()) : QStringList();
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(control)) {
        return {group->title()};
    }
    if (const auto *tabs = qobject_cast<const QTabBar *>(control)) {
        QStringList captions;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            captions << tabs->tabText(tab);
        }
        return captions;
    }
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button != nullptr ? QStringList(button->text()) : QStringList();
}

/// Windows that hold the menus off while they are open, and the one whose load is the whole start.
const QStringList alone{u"frmSenha"_s, u"frmSenhaManut"_s, u"frmCadaFast"_s, u"frmOSFormaPagto"_s,
                        u"frmMoviContasPRBaixa"_s};
const QString itsLoadStartsTheProgram = u"frmSplash"_s;

/// Captions that are told with these very letters: the parts' unit shares its with a menu, the two stocks theirs.
const QStringList given{u"Unidade &Medida:"_s, u"&Estoque Atual:"_s};

} // namespace

void TstMnemonicos::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    workorders::registerForms();
    reports::registerForms();
}

void TstMnemonicos::everyLetterIsGivenOnce_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<bool>("alone");
    for (const auto &window : ui::Forms::instance().names()) {
        if (window != itsLoadStartsTheProgram) {
            QTest::newRow(qPrintable(window)) << window << alone.contains(window);
        }
    }
}

/// Gives each letter that is seen on the window to its caption; a second one fails.
void TstMnemonicos::giveLetters(const QWidget *form, Letters taken)
{
    for (const auto *control : form->findChildren<QWidget *>()) {
        for (const QString &caption : control->isVisible() ? captionsOf(control) : QStringList()) {
            const QChar letter = letterOf(caption);
            if (!letter.isNull() && !given.contains(caption)) {
                QVERIFY2(!taken.contains(letter), qPrintable(taken.value(letter) + u" and "_s + caption));
                taken.insert(letter, caption);
            }
        }
    }
}

void TstMnemonicos::everyLetterIsGivenOnce()
{
    QFETCH(QString, window);
    QFETCH(bool, alone);
    const Letters menus = menuLetters();
    QVERIFY(menus.contains(u'I')); // "&Info"
    const auto *form = support::show(window);
    QCoreApplication::processEvents();
    auto *pages = form->findChild<QTabWidget *>();
    for (int page = 0; page < (pages != nullptr ? pages->count() : 1); ++page) {
        if (pages != nullptr) {
            pages->setCurrentIndex(page);
        }
        giveLetters(form, alone ? Letters() : menus);
    }
}

/// The look above finds something to look at: the registers give a letter to most of their fields.
void TstMnemonicos::fieldsHaveLetters()
{
    int letters = 0;
    for (const auto *control : support::show(u"frmCadaCliente"_s)->findChildren<QWidget *>()) {
        for (const QString &caption : captionsOf(control)) {
            letters += letterOf(caption).isNull() ? 0 : 1;
        }
    }
    QVERIFY(letters > 10);
}

TARVELO_TEST_MAIN(TstMnemonicos)
#include "tst_mnemonicos.moc"
