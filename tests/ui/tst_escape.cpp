#include "platform/ui/application.h"
#include "platform/ui/boxes.h"
#include "platform/ui/wait.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/// Esc in the middle of a long work: nothing else that the user does then has an effect.
class TestEscape : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window_.reset(); }

    void isToldWhereItWasPressed();
    void otherKeysAndTheMouseReachNothing();
    void aShortcutIsNotTaken();
    void theWindowIsNotClosed();
    void whatWasDueIsDoneMeanwhile();
    void aBoxThatComesUpIsAnswered();
    void afterwardsKeysArriveAgain();

private:
    void press(Qt::Key key) const;

    std::unique_ptr<QWidget> window_;
    QLineEdit *edit_ = nullptr;
};

void TestEscape::init()
{
    window_ = std::make_unique<QWidget>();
    edit_ = new QLineEdit(window_.get());
    window_->show();
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    edit_->setFocus();
}

/// As the system does, once events run: shortcuts see a key ahead of the control with the focus.
void TestEscape::press(Qt::Key key) const
{
    QTimer::singleShot(0, window_.get(), [this, key] { QTest::keyClick(window_->windowHandle(), key); });
}

void TestEscape::isToldWhereItWasPressed()
{
    QVERIFY(!ui::EscapePressed());
    press(Qt::Key_Escape);
    QVERIFY(ui::EscapePressed());
    QVERIFY(!ui::EscapePressed());
}

void TestEscape::otherKeysAndTheMouseReachNothing()
{
    press(Qt::Key_A);
    const QPointF place = edit_->geometry().center();
    QCoreApplication::postEvent(
        window_->windowHandle(),
        new QMouseEvent(QEvent::MouseButtonDblClick, place, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    QVERIFY(!ui::EscapePressed());
    QCoreApplication::processEvents();
    QCOMPARE(edit_->text(), QString());
    press(Qt::Key_A); // and does where nothing is held back
    QCoreApplication::processEvents();
    QCOMPARE(edit_->text(), u"a"_s);
}

void TestEscape::aShortcutIsNotTaken()
{
    bool taken = false;
    const QShortcut shortcut(Qt::Key_Escape, window_.get(), [&] { taken = true; });
    press(Qt::Key_Escape);
    QVERIFY(ui::EscapePressed());
    QVERIFY(!taken);
    press(Qt::Key_Escape); // and is where nothing is held back
    QCoreApplication::processEvents();
    QVERIFY(taken);
}

void TestEscape::theWindowIsNotClosed()
{
    QCoreApplication::postEvent(window_->windowHandle(), new QCloseEvent);
    QVERIFY(!ui::EscapePressed());
    QVERIFY(window_->isVisible());
}

void TestEscape::whatWasDueIsDoneMeanwhile()
{
    bool done = false;
    QTimer::singleShot(0, [&] { done = true; });
    QVERIFY(!ui::EscapePressed());
    QVERIFY(done);
}

void TestEscape::aBoxThatComesUpIsAnswered()
{
    support::Boxes boxes;
    boxes.exclamation(u"FALHA"_s);
    QTimer::singleShot(0, [] { ui::MsgBox(u"FALHA"_s, ui::Icon::Exclamation); });
    QVERIFY(!ui::EscapePressed());
    boxes.finish();
}

void TestEscape::afterwardsKeysArriveAgain()
{
    QVERIFY(!ui::EscapePressed());
    QTest::keyClicks(edit_, u"abc"_s);
    QCOMPARE(edit_->text(), u"abc"_s);
}

int main(int argc, char **argv)
{
    return support::runTest<TestEscape>(argc, argv);
}

#include "tst_escape.moc"
