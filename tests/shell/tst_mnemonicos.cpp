#include "platform/ui/form.h"
#include "registers/registers.h"
#include "shell/menus.h"
#include "stock/stock.h"
#include "tests/support/program.h"
#include "workorders/workorders.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMap>
#include <QMenuBar>

#include <memory>

using namespace Qt::StringLiterals;

/// Alt and a letter must lead to one place: in a window, and between it and the menus above it.
class TstMnemonicos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void everyLetterIsGivenOnce_data();
    void everyLetterIsGivenOnce();

private:
    std::unique_ptr<support::Program> program_;
};

namespace
{

using Letters = QMap<QChar, QString>;

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

QString captionOf(const QWidget *control)
{
    if (const auto *label = qobject_cast<const QLabel *>(control)) {
        return label->buddy() != nullptr ? label->text() : QString();
    }
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button != nullptr ? button->text() : QString();
}

/// Captions that are told with these very letters: the parts' unit shares its with a menu, the two stocks theirs.
const QStringList given{u"Unidade &Medida:"_s, u"&Estoque Atual:"_s};

} // namespace

void TstMnemonicos::initTestCase()
{
    registers::registerForms();
    stock::registerForms();
    workorders::registerForms();
}

void TstMnemonicos::everyLetterIsGivenOnce_data()
{
    QTest::addColumn<QString>("window");
    for (const auto *window : {"frmCadaCliente", "frmCadaVeiculos", "frmCadaPecas", "frmCadaFornecedor",
                               "frmMoviEstoque", "frmOSAbre", "frmOSConsulta"}) {
        QTest::newRow(window) << QString::fromLatin1(window);
    }
}

void TstMnemonicos::everyLetterIsGivenOnce()
{
    QFETCH(QString, window);
    Letters taken = menuLetters();
    QVERIFY(taken.contains(u'I')); // "&Info"
    const auto menus = taken.size();
    const auto *form = support::show(window);
    for (const auto *control : form->findChildren<QWidget *>()) {
        const QString caption = captionOf(control);
        const QChar letter = letterOf(caption);
        if (letter.isNull() || given.contains(caption)) {
            continue;
        }
        QVERIFY2(!taken.contains(letter), qPrintable(taken.value(letter) + u" and "_s + caption));
        taken.insert(letter, caption);
    }
    QVERIFY(taken.size() > menus);
}

TARVELO_TEST_MAIN(TstMnemonicos)
#include "tst_mnemonicos.moc"
