#include "core/modulo.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "shell/areafundo.h"
#include "support/program.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;
using ui::Forms;

namespace
{

const QStringList opened{u"frmCadaCliente"_s, u"frmCadaVeiculos"_s, u"frmCadaPecas"_s};

} // namespace

/// Several windows in the main window's area: to go from one to the other, to close them, to find them again.
class TstJanelas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registers::registerForms(); }
    void init();
    void cleanup();

    void theKeysGoRoundTheWindows_data();
    void theKeysGoRoundTheWindows();
    void theKeyClosesTheWindowInFront();
    void aMinimizedWindowShowsWhatTellsItApart();
    void theMenuListsTheWindows();
    void theMenuBringsAWindowBack();
    void anEmptyAreaHasNoMenu();

private:
    QString front() const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const;
    QMenu *menu() const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<QMainWindow> main_;
    shell::AreaFundo *area_ = nullptr;
};

void TstJanelas::init()
{
    program_ = std::make_unique<support::Program>();
    main_ = std::make_unique<QMainWindow>();
    area_ = new shell::AreaFundo;
    main_->setCentralWidget(area_);
    main_->resize(1366, 900);
    main_->show();
    main_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main_.get()));
    Forms::instance().setArea(area_);
    core::ModoChamada = 0;
    for (const auto &name : opened) {
        Forms::instance().Show(name);
    }
    QCOMPARE(front(), opened.last());
}

void TstJanelas::cleanup()
{
    Forms::instance().unloadAll();
    Forms::instance().setArea(nullptr);
    main_.reset();
    program_.reset();
}

QString TstJanelas::front() const
{
    QCoreApplication::processEvents();
    const auto *frame = area_->activeSubWindow();
    return frame ? frame->widget()->objectName() : QString();
}

void TstJanelas::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(main_->windowHandle(), key, modifiers);
}

/// The right button on the free ground in the lower right corner.
QMenu *TstJanelas::menu() const
{
    const QPoint free = area_->viewport()->rect().bottomRight() - QPoint(5, 5);
    const QPoint place = area_->viewport()->mapTo(main_.get(), free);
    QTest::mouseClick(main_->windowHandle(), Qt::RightButton, {}, place);
    return area_->findChild<QMenu *>(u"mnuJanelas"_s);
}

void TstJanelas::theKeysGoRoundTheWindows_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("on") << Qt::KeyboardModifiers(Qt::ControlModifier)
                        << QStringList{opened[0], opened[1], opened[2], opened[0]};
    QTest::newRow("back") << (Qt::ControlModifier | Qt::ShiftModifier)
                          << QStringList{opened[1], opened[0], opened[2], opened[1]};
}

void TstJanelas::theKeysGoRoundTheWindows()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QStringList, order);
    for (const auto &name : order) {
        press(Qt::Key_F6, modifiers);
        QCOMPARE(front(), name);
        QVERIFY(Forms::instance().find(name)->isAncestorOf(QApplication::focusWidget()));
    }
}

void TstJanelas::theKeyClosesTheWindowInFront()
{
    press(Qt::Key_F4, Qt::ControlModifier);
    QVERIFY(!Forms::instance().find(opened[2]));
    QCOMPARE(front(), opened[1]);
    press(Qt::Key_F4, Qt::ControlModifier);
    press(Qt::Key_F4, Qt::ControlModifier);
    QCOMPARE(front(), QString());
    press(Qt::Key_F4, Qt::ControlModifier); // nothing is left
    press(Qt::Key_F6, Qt::ControlModifier);
    QVERIFY(area_->subWindowList().isEmpty());
}

void TstJanelas::aMinimizedWindowShowsWhatTellsItApart()
{
    auto *form = Forms::instance().find(opened[0]);
    auto *frame = form->parentWidget();
    const QString caption = form->windowTitle();
    QVERIFY(caption.startsWith(u"Tarvelo"));
    frame->showMinimized();
    QCOMPARE(frame->windowTitle(), u"Cadastro de Clientes"_s);
    QCOMPARE(frame->toolTip(), caption);
    QCOMPARE(form->windowTitle(), caption);
    frame->showNormal();
    QCOMPARE(frame->windowTitle(), caption);
    QCOMPARE(frame->toolTip(), QString());
}

void TstJanelas::theMenuListsTheWindows()
{
    const auto *windows = menu();
    QVERIFY(windows && windows->isVisible());
    QStringList captions;
    QStringList checked;
    for (const auto *action : windows->actions()) {
        captions.append(action->text());
        checked.append(action->isChecked() ? action->text() : QString());
    }
    QCOMPARE(captions.size(), opened.size());
    for (qsizetype i = 0; i < opened.size(); ++i) {
        const QString caption = Forms::instance().find(opened[i])->windowTitle();
        QVERIFY2(caption.endsWith(u"["_s + captions[i].mid(3) + u"]"_s), qPrintable(captions[i]));
        QCOMPARE(captions[i].first(3), u"&%1 "_s.arg(i + 1));
    }
    QCOMPARE(checked, (QStringList{QString(), QString(), captions[2]}));
}

void TstJanelas::theMenuBringsAWindowBack()
{
    Forms::instance().find(opened[1])->parentWidget()->showMinimized();
    auto *windows = menu();
    QVERIFY(windows);
    QTest::keyClick(windows->windowHandle(), Qt::Key_2);
    QCOMPARE(front(), opened[1]);
    QVERIFY(!Forms::instance().find(opened[1])->parentWidget()->isMinimized());
    QTRY_VERIFY(!area_->findChild<QMenu *>(u"mnuJanelas"_s));
}

void TstJanelas::anEmptyAreaHasNoMenu()
{
    Forms::instance().unloadAll();
    QVERIFY(!menu());
}

TARVELO_TEST_MAIN(TstJanelas)
#include "tst_janelas.moc"
