#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/menus.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QMenuBar>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

const QStringList themes{u"tarvelo"_s, u"tarvelo-dark"_s};

QStringList names()
{
    QStringList found;
    const QDir folder(u":/icones/tarvelo/22x22"_s);
    for (const auto &file : folder.entryList(QDir::Files)) {
        found << file.chopped(4);
    }
    return found;
}

/// Ink that stands out from the ground.
bool isDrawn(const QPixmap &picture)
{
    const auto image = picture.toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 200) {
                return true;
            }
        }
    }
    return false;
}

/// Without the splash, which opens what comes behind it and has no picture on its button.
QStringList windows()
{
    auto found = ui::Forms::instance().names();
    found.removeAll(u"frmSplash"_s);
    return found;
}

/// The name of the picture on each button of a window that has one.
QMap<QString, QString> picturesOf(const QString &window)
{
    QMap<QString, QString> found;
    const auto *form = ui::Forms::instance().Load(window);
    for (const auto *button : form->findChildren<QAbstractButton *>()) {
        if (!button->icon().isNull()) {
            found.insert(window + u'.' + button->objectName(), button->icon().name());
        }
    }
    return found;
}

QMap<QString, QString> picturesOfTheCommands()
{
    QMenuBar menus;
    QToolBar bar;
    bar.setObjectName(u"Toolbar1"_s);
    shell::montaMenus(menus);
    shell::montaBarra(bar, menus);
    QMap<QString, QString> found;
    for (const auto *action : menus.findChildren<QAction *>() + bar.actions()) {
        if (!action->icon().isNull()) {
            found.insert(action->objectName(), action->icon().name());
        }
    }
    return found;
}

} // namespace

/// The pictures on buttons and commands are the program's own, whatever a system has installed.
class TstFiguras : public QObject
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

    void everyPictureIsThereInAllSizes_data();
    void everyPictureIsThereInAllSizes();
    void everyButtonOfAWindowShowsOneOfThem_data();
    void everyButtonOfAWindowShowsOneOfThem();
    void everyCommandShowsOneOfThem();
    void noneOfThemIsLeftOver();
    void theProgramItselfHasOne();

private:
    std::unique_ptr<support::Program> program_;
};

void TstFiguras::initTestCase()
{
    registers::registerForms();
    reports::registerForms();
    shell::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    workorders::registerForms();
}

void TstFiguras::everyPictureIsThereInAllSizes_data()
{
    QTest::addColumn<QString>("name");
    QVERIFY(names().size() > 40);
    for (const auto &name : names()) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TstFiguras::everyPictureIsThereInAllSizes()
{
    QFETCH(QString, name);
    const auto icon = ui::icon(name);
    QCOMPARE(icon.name(), name);
    for (const int size : {16, 22, 24, 32, 48}) {
        for (const qreal scale : {1.0, 2.0}) {
            const auto picture = icon.pixmap(QSize(size, size), scale);
            QCOMPARE(picture.size(), QSize(size, size) * scale);
            QVERIFY2(isDrawn(picture), qPrintable(QString::number(size)));
            for (const auto &theme : themes) {
                const QString folder = u"%1x%1"_s.arg(size) + (scale > 1 ? u"@2"_s : QString());
                QVERIFY(QFile::exists(u":/icones/%1/%2/%3.png"_s.arg(theme, folder, name)));
            }
        }
    }
}

void TstFiguras::everyButtonOfAWindowShowsOneOfThem_data()
{
    QTest::addColumn<QString>("window");
    for (const auto &window : windows()) {
        QTest::newRow(qPrintable(window)) << window;
    }
}

void TstFiguras::everyButtonOfAWindowShowsOneOfThem()
{
    QFETCH(QString, window);
    const auto shown = picturesOf(window);
    QVERIFY(!shown.isEmpty());
    for (auto it = shown.begin(); it != shown.end(); ++it) {
        QVERIFY2(names().contains(it.value()), qPrintable(it.key() + u": '"_s + it.value() + u'\''));
    }
}

void TstFiguras::everyCommandShowsOneOfThem()
{
    const auto shown = picturesOfTheCommands();
    for (const int number : {1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 14, 16, 17, 18, 19}) {
        QVERIFY(shown.contains(u"Toolbar1_%1"_s.arg(number)));
    }
    for (auto it = shown.begin(); it != shown.end(); ++it) {
        QVERIFY2(names().contains(it.value()), qPrintable(it.key() + u": '"_s + it.value() + u'\''));
    }
}

/// What no window shows is for the toolkit's own boxes and menus, or for lists.
void TstFiguras::noneOfThemIsLeftOver()
{
    QStringList seen = picturesOfTheCommands().values();
    for (const auto &window : windows()) {
        seen << picturesOf(window).values();
    }
    auto left = names();
    left.removeIf([&](const QString &name) { return seen.contains(name); });
    QCOMPARE(left, (QStringList{u"dialog-error"_s, u"dialog-information"_s, u"dialog-question"_s, u"dialog-warning"_s,
                                u"edit-copy"_s, u"edit-cut"_s, u"edit-paste"_s, u"edit-redo"_s, u"edit-select-all"_s,
                                u"edit-undo"_s, u"tarvelo"_s}));
}

void TstFiguras::theProgramItselfHasOne()
{
    QVERIFY(isDrawn(ui::icon(u"tarvelo"_s).pixmap(64, 64)));
}

TARVELO_TEST_MAIN(TstFiguras)
#include "tst_figuras.moc"
