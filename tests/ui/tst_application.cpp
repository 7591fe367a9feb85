#include "platform/runtime/error.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"
#include "platform/ui/wait.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

using namespace Qt::StringLiterals;

namespace
{

using Action = std::function<void()>;

/// What the windows of this test do, and what of it was reached.
Action onLoad;
Action onClick;
Action onLeave;
QStringList reached;

class frmProva : public ui::Form
{
public:
    explicit frmProva(const QString &name) : Form(name)
    {
        auto *rows = new QVBoxLayout(this);
        auto *field = new QLineEdit;
        auto *button = new QPushButton(u"Fazer"_s);
        field->setObjectName(u"txtCampo"_s);
        button->setObjectName(u"btnFazer"_s);
        rows->addWidget(field);
        rows->addWidget(button);
        Form::onClick(button, &frmProva::btnFazer_Click);
        onLostFocus(field, &frmProva::txtCampo_LostFocus);
    }

    void Form_Load() override { run(::onLoad); }

private:
    static void run(const Action &action)
    {
        if (action) {
            action();
        }
    }
    void btnFazer_Click() { run(::onClick); }
    void txtCampo_LostFocus() { run(::onLeave); }
};

/// Runs the program from a queued call, as its main function does, and gives its exit code.
int runProgram(const Action &start)
{
    QTimer::singleShot(0, qApp, start);
    return QApplication::exec();
}

void press(const QString &form)
{
    auto *button = ui::Forms::instance().control(form, u"btnFazer"_s);
    QTest::mouseClick(button->window()->windowHandle(), Qt::LeftButton, {},
                      button->mapTo(button->window(), button->rect().center()));
}

void note(const QString &place)
{
    reached.append(place);
}

} // namespace

class tst_application : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void settingsAreBrazilian();
    void runtimeErrorShowsNumberAndTextAndEnds();
    void theBoxSaysThatTheProgramCloses();
    void anyExceptionEndsTheProgramWithItsText();
    void nothingRunsBehindAnError();
    void errorInALoadEnds();
    void errorInAFocusEventEnds();
    void errorInAnEventThatTheProgramCausedEndsItsCause();
    void errorOnActivationEnds();
    void noEventIsToldBehindTheEnd();
    void secondErrorShowsNoSecondBox();
    void endLeavesAllNestedLoops();
    void endBehindAWait_data();
    void endBehindAWait();
    void endIsTakenBackForTheNextCase();
};

void tst_application::initTestCase()
{
    for (const auto &name : {u"frmUm"_s, u"frmDois"_s}) {
        ui::Forms::instance().add(name, [name] { return new frmProva(name); });
    }
    ui::setBoxTitle(u"OFICINA DO ZÉ"_s);
}

void tst_application::init()
{
    onLoad = onClick = onLeave = {};
    reached.clear();
}

void tst_application::cleanup()
{
    ui::Forms::instance().unloadAll();
    ui::Application::resetEnd();
}

void tst_application::settingsAreBrazilian()
{
    QCOMPARE(QLocale().name(), u"pt_BR"_s);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancelar"_s);
    QVERIFY(QApplication::font().pointSizeF() >= 10);
    QVERIFY(!QApplication::quitOnLastWindowClosed());
}

void tst_application::runtimeErrorShowsNumberAndTextAndEnds()
{
    support::Boxes boxes;
    boxes.title(u"OFICINA DO ZÉ"_s)
        .critical(u"Erro em tempo de execução '3061':\n\nParâmetros insuficientes. Eram esperados 1."_s);
    const int code =
        runProgram([] { throw runtime::RuntimeError(3061, u"Parâmetros insuficientes. Eram esperados 1."_s); });
    QCOMPARE(code, 1);
    QVERIFY(ui::Application::ended());
}

/// Below the error's own text, which stays as it is.
void tst_application::theBoxSaysThatTheProgramCloses()
{
    QString text;
    QString note;
    QTimer looking;
    connect(&looking, &QTimer::timeout, qApp, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            text = box->text();
            note = box->informativeText();
            box->button(QMessageBox::Ok)->click();
        }
    });
    looking.start(5);
    QCOMPARE(runProgram([] { throw runtime::RuntimeError(53, u"x"_s); }), 1);
    QCOMPARE(text, u"Erro em tempo de execução '53':\n\nx"_s);
    QCOMPARE(note, u"O programa será fechado. O que já foi gravado continua gravado."_s);
}

void tst_application::anyExceptionEndsTheProgramWithItsText()
{
    support::Boxes boxes;
    boxes.critical(u"vector"_s);
    QCOMPARE(runProgram([] { throw std::runtime_error("vector"); }), 1);
}

void tst_application::nothingRunsBehindAnError()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '13':\n\nx"_s);
    onClick = [] {
        note(u"click"_s);
        throw runtime::RuntimeError(13, u"x"_s);
    };
    const int code = runProgram([] {
        QTimer::singleShot(0, qApp, [] { press(u"frmUm"_s); });
        ui::Forms::instance().ShowModal(u"frmUm"_s);
        note(u"behind"_s);
    });
    QCOMPARE(code, 1);
    QCOMPARE(reached, QStringList{u"click"_s});
}

void tst_application::errorInALoadEnds()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '53':\n\nx"_s);
    onLoad = [] { throw runtime::RuntimeError(53, u"x"_s); };
    QCOMPARE(runProgram([] {
                 ui::Forms::instance().Show(u"frmUm"_s);
                 note(u"behind"_s);
             }),
             1);
    QVERIFY(reached.isEmpty());
    QVERIFY(!ui::Forms::instance().find(u"frmUm"_s));
}

void tst_application::errorInAFocusEventEnds()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '3075':\n\nx"_s);
    onLeave = [] { throw runtime::RuntimeError(3075, u"x"_s); };
    onClick = [] { note(u"click"_s); };
    const int code = runProgram([] {
        auto *form = ui::Forms::instance().Show(u"frmUm"_s);
        QVERIFY(QTest::qWaitForWindowActive(form));
        ui::Forms::instance().control(u"frmUm"_s, u"txtCampo"_s)->setFocus();
        press(u"frmUm"_s);
        note(u"behind the events"_s);
    });
    QCOMPARE(code, 1);
    // The event itself ended; only the test's own line, which sent it from outside, goes on.
    QCOMPARE(reached, QStringList{u"behind the events"_s});
}

void tst_application::errorInAnEventThatTheProgramCausedEndsItsCause()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '3075':\n\nx"_s);
    onLeave = [] { throw runtime::RuntimeError(3075, u"x"_s); };
    onClick = [] {
        auto *field = ui::Forms::instance().control(u"frmUm"_s, u"txtCampo"_s);
        field->setFocus();
        ui::Forms::instance().control(u"frmUm"_s, u"btnFazer"_s)->setFocus();
        note(u"behind"_s);
    };
    const int code = runProgram([] {
        QTimer::singleShot(0, qApp, [] {
            auto *button = ui::Forms::instance().control(u"frmUm"_s, u"btnFazer"_s);
            QTRY_COMPARE(QApplication::activeWindow(), button->window());
            onLeave = {};
            button->setFocus();
            onLeave = [] { throw runtime::RuntimeError(3075, u"x"_s); };
            press(u"frmUm"_s);
        });
        ui::Forms::instance().ShowModal(u"frmUm"_s);
        note(u"behind the window"_s);
    });
    QCOMPARE(code, 1);
    QVERIFY(reached.isEmpty());
}

void tst_application::errorOnActivationEnds()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '13':\n\nx"_s);
    onLeave = [] { throw runtime::RuntimeError(13, u"x"_s); };
    const int code = runProgram([] {
        auto *one = ui::Forms::instance().Show(u"frmUm"_s);
        QTRY_COMPARE(QApplication::activeWindow(), one);
        // Shown from inside the program, active when the window system says so.
        ui::Forms::instance().Show(u"frmDois"_s);
        note(u"shown"_s);
    });
    QCOMPARE(code, 1);
    QCOMPARE(reached, QStringList{u"shown"_s});
}

void tst_application::noEventIsToldBehindTheEnd()
{
    onClick = [] { note(u"click"_s); };
    runProgram([] {
        ui::Forms::instance().Show(u"frmUm"_s);
        ui::End();
    });
    ui::Forms::instance().find(u"frmUm"_s)->findChild<QPushButton *>()->click();
    QVERIFY(reached.isEmpty());
}

void tst_application::secondErrorShowsNoSecondBox()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '13':\n\nx"_s);
    const int code = runProgram([] {
        QTimer::singleShot(0, qApp, [] { throw runtime::RuntimeError(6, u"y"_s); });
        throw runtime::RuntimeError(13, u"x"_s);
    });
    QCOMPARE(code, 1);
}

void tst_application::endLeavesAllNestedLoops()
{
    onClick = [] {
        ui::Forms::instance().ShowModal(u"frmDois"_s);
        note(u"behind the second window"_s);
    };
    QTimer ending;
    connect(&ending, &QTimer::timeout, qApp, [] {
        if (qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            ui::End();
        }
        if (ui::Forms::instance().find(u"frmDois"_s)) {
            QTimer::singleShot(0, qApp, [] {
                ui::MsgBox(u"x"_s, ui::Icon::Information);
                note(u"behind the box"_s);
            });
        }
    });
    ending.start(5);
    const int code = runProgram([] {
        QTimer::singleShot(0, qApp, [] { press(u"frmUm"_s); });
        ui::Forms::instance().ShowModal(u"frmUm"_s);
        note(u"behind the first window"_s);
    });
    QCOMPARE(code, 0);
    QVERIFY(reached.isEmpty());
}

void tst_application::endBehindAWait_data()
{
    QTest::addColumn<Action>("wait");
    QTest::newRow("Espera") << Action([] { ui::Espera(3600); });
    QTest::newRow("DoEvents") << Action([] {
        while (true) {
            ui::DoEvents();
        }
    });
    QTest::newRow("MsgBox") << Action([] { ui::MsgBox(u"x"_s, ui::Icon::None); });
    QTest::newRow("Confirm") << Action([] { ui::Confirm(u"x"_s); });
    QTest::newRow("ConfirmOk") << Action([] { ui::ConfirmOk(u"x"_s, ui::Icon::Critical); });
    QTest::newRow("InputBox") << Action([] { ui::InputBox(u"x"_s); });
    QTest::newRow("ShowModal") << Action([] { ui::Forms::instance().ShowModal(u"frmUm"_s); });
}

void tst_application::endBehindAWait()
{
    QFETCH(Action, wait);
    ui::setWaitFactor(1);
    const int code = runProgram([wait] {
        QTimer::singleShot(10, qApp, [] { ui::End(); });
        wait();
        note(u"behind"_s);
    });
    ui::setWaitFactor(0);
    QCOMPARE(code, 0);
    QVERIFY(reached.isEmpty());
}

void tst_application::endIsTakenBackForTheNextCase()
{
    runProgram([] { ui::End(); });
    QVERIFY(ui::Application::ended());
    ui::Application::resetEnd();
    QVERIFY(!ui::Application::ended());
    support::Boxes boxes;
    boxes.question(u"x"_s, true);
    QVERIFY(ui::Confirm(u"x"_s));
}

int main(int argc, char **argv)
{
    return support::runTest<tst_application>(argc, argv);
}

#include "tst_application.moc"
