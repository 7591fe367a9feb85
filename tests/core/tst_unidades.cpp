// What one answer of the user sets off is in the file together, in front of the next box; no box and no modal window
// keeps anything of the file.
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/error.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"
#include "platform/ui/wait.h"
#include "support/boxes.h"
#include "support/modal.h"
#include "support/otherprogram.h"
#include "support/program.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

#include <optional>

using namespace Qt::StringLiterals;
using support::OtherProgram;

namespace
{

using Action = std::function<void()>;

/// What the windows of this test do.
Action onClick;
Action onChange;
Action onGotFocus;
Action onModalClick;

void run(const Action &action)
{
    if (action) {
        action();
    }
}

class frmProva : public ui::Form
{
public:
    frmProva() : ui::Form(u"frmProva"_s)
    {
        auto *coluna = new QVBoxLayout(this);
        auto *botao = new QPushButton(u"Gravar"_s);
        auto *campo = new QLineEdit;
        botao->setObjectName(u"btnGravar"_s);
        campo->setObjectName(u"txtCampo"_s);
        coluna->addWidget(botao);
        coluna->addWidget(campo);
        Form::onClick(botao, &frmProva::btnGravar_Click);
        Form::onChange(campo, &frmProva::txtCampo_Change);
        Form::onGotFocus(campo, &frmProva::txtCampo_GotFocus);
    }

private:
    void btnGravar_Click() { run(::onClick); }
    void txtCampo_Change() { run(::onChange); }
    void txtCampo_GotFocus() { run(::onGotFocus); }
};

class frmModal : public ui::Form
{
public:
    frmModal() : ui::Form(u"frmModal"_s)
    {
        auto *coluna = new QVBoxLayout(this);
        auto *botao = new QPushButton(u"Gravar"_s);
        botao->setObjectName(u"btnGravar"_s);
        coluna->addWidget(botao);
        Form::onClick(botao, &frmModal::btnGravar_Click);
    }

private:
    void btnGravar_Click() { run(::onModalClick); }
};

void add(const QString &name)
{
    auto row = core::DBDados->OpenRecordset(u"Combos"_s);
    row.AddNew();
    row[u"Codigo"] = qint16{1};
    row[u"Texto"] = name;
    row.Update();
}

/// The rows that another workstation sees.
int seen()
{
    return OtherProgram(core::DBDados->path()).count("SELECT count(*) FROM Combos");
}

/// A wait of the program for the user, by the name of its call.
using Wait = void (*)();

} // namespace

class TestUnidades : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void whatAnEventWritesIsThereAtItsEnd();
    void anEventThatAnEventCausesBelongsToIt();
    void aFocusThatAnEventSetsBelongsToIt();
    void eachWaitForTheUserConfirmsAndLocksNothing_data();
    void eachWaitForTheUserConfirmsAndLocksNothing();
    void aSetThatIsHeldOverABoxReadsOn();
    void aModalWindowWritesUnitsOfItsOwn();
    void anErrorKeepsWhatWasWrittenBeforeIt();
    void theEndOfTheProgramKeepsWhatWasWritten();
    void aRefusedWriteIsToldInsteadOfItsSuccess();
    void aRefusedWriteIsToldAtTheEndOfItsEvent();
    void aRefusedWriteIsToldAtTheEndOfTheProgram();
    void anErrorIsToldAndNotTheRefusalBehindIt();
    void aLongWaitForAnotherProgramShowsThePointer();

private:
    void press();

    std::optional<support::Program> program_;
    std::optional<support::Boxes> boxes_;
};

void TestUnidades::initTestCase()
{
    ui::Forms::instance().add(u"frmProva"_s, [] { return new frmProva; });
    ui::Forms::instance().add(u"frmModal"_s, [] { return new frmModal; });
}

void TestUnidades::init()
{
    onClick = onChange = onGotFocus = onModalClick = {};
    program_.emplace();
    boxes_.emplace();
    support::show(u"frmProva"_s);
}

void TestUnidades::cleanup()
{
    boxes_.reset();
    support::failNotShown();
    program_.reset();
    QVERIFY(!dao::Unit::isOpen());
}

void TestUnidades::press()
{
    support::click(ui::Forms::instance().find(u"frmProva"_s), u"btnGravar"_s);
}

void TestUnidades::whatAnEventWritesIsThereAtItsEnd()
{
    int before = -1;
    onClick = [&] {
        add(u"UM"_s);
        add(u"DOIS"_s);
        before = seen();
    };
    press();
    QCOMPARE(before, 0);
    QCOMPARE(seen(), 2);
}

void TestUnidades::anEventThatAnEventCausesBelongsToIt()
{
    int between = -1;
    onChange = [] { add(u"UM"_s); };
    onClick = [&] {
        ui::Forms::instance().write(u"frmProva"_s, u"txtCampo"_s, u"A"_s);
        between = seen();
        add(u"DOIS"_s);
    };
    press();
    QCOMPARE(between, 0);
    QCOMPARE(seen(), 2);
}

void TestUnidades::aFocusThatAnEventSetsBelongsToIt()
{
    int told = 0;
    int between = -1;
    onGotFocus = [&] {
        ++told;
        add(u"UM"_s);
    };
    onClick = [&] {
        add(u"DOIS"_s);
        support::control<QLineEdit>(ui::Forms::instance().find(u"frmProva"_s), u"txtCampo"_s)->setFocus();
        between = seen();
    };
    press();
    QTRY_COMPARE(told, 1);
    QCOMPARE(between, 0);
    QCOMPARE(seen(), 2);
}

void TestUnidades::eachWaitForTheUserConfirmsAndLocksNothing_data()
{
    QTest::addColumn<Wait>("wait");
    QTest::newRow("MsgBox") << Wait([] { ui::MsgBox(u"Feito"_s, ui::Icon::Information); });
    QTest::newRow("Confirm") << Wait([] { ui::Confirm(u"Feito"_s); });
    QTest::newRow("ConfirmOk") << Wait([] { ui::ConfirmOk(u"Feito"_s, ui::Icon::Exclamation); });
    QTest::newRow("InputBox") << Wait([] { ui::InputBox(u"Feito"_s); });
    QTest::newRow("ShowModal") << Wait([] { ui::Forms::instance().ShowModal(u"frmModal"_s); });
    QTest::newRow("Espera") << Wait([] { ui::Espera(1); });
    QTest::newRow("DoEvents") << Wait([] { ui::DoEvents(); });
}

void TestUnidades::eachWaitForTheUserConfirmsAndLocksNothing()
{
    QFETCH(const Wait, wait);
    boxes_->reportTo([](const QString &) {}); // the answer is no matter here: Esc to whatever comes
    add(u"ANTES"_s);
    int during = -1;
    int behind = -1;
    QString held = u"the wait never was"_s;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        look.stop();
        during = seen();
        held = support::whatHolds(core::DBDados->path());
        if (auto *modal = ui::Forms::instance().find(u"frmModal"_s)) {
            modal->Unload();
        }
    });
    onClick = [&] {
        auto set = core::DBDados->OpenRecordset(u"Combos"_s);
        add(u"UM"_s);
        look.start(0);
        wait();
        add(u"DOIS"_s);
        behind = seen();
    };
    press();
    QCOMPARE(during, 2);
    QCOMPARE(held, QString());
    QCOMPARE(behind, 2);
    QCOMPARE(seen(), 3);
}

void TestUnidades::aSetThatIsHeldOverABoxReadsOn()
{
    for (const auto &name : {u"A"_s, u"B"_s, u"C"_s}) {
        add(name);
    }
    boxes_->information(u"Um momento"_s);
    QStringList read;
    onClick = [&] {
        auto set = core::DBDados->OpenRecordset(u"SELECT * FROM Combos ORDER BY Texto"_s);
        ui::MsgBox(u"Um momento"_s, ui::Icon::Information);
        QVERIFY(OtherProgram(core::DBDados->path()).run("DELETE FROM Combos WHERE Codigo = 2"));
        for (; !set.Eof(); set.MoveNext()) {
            read << std::get<QString>(set.value(u"Texto"));
        }
    };
    press();
    QCOMPARE(read, (QStringList{u"A"_s, u"B"_s, u"C"_s}));
}

void TestUnidades::aModalWindowWritesUnitsOfItsOwn()
{
    QList<int> steps;
    onClick = [&] {
        add(u"UM"_s);
        ui::Forms::instance().ShowModal(u"frmModal"_s);
        steps << seen();
        add(u"QUATRO"_s);
        steps << seen();
    };
    onModalClick = [&] {
        add(u"DOIS"_s);
        add(u"TRÊS"_s);
        steps << seen();
    };
    support::whenShown(u"frmModal"_s, [&] {
        auto *modal = ui::Forms::instance().find(u"frmModal"_s);
        support::click(modal, u"btnGravar"_s);
        steps << seen();
        modal->Unload();
    });
    press();
    QCOMPARE(steps, (QList<int>{1, 3, 3, 3}));
    QCOMPARE(seen(), 4);
}

void TestUnidades::anErrorKeepsWhatWasWrittenBeforeIt()
{
    boxes_->critical(u"Erro em tempo de execução '3163':\n\nO campo 'Texto' é pequeno demais para os dados que você "
                     "tentou gravar."_s);
    onClick = [] {
        add(u"UM"_s);
        add(QString(251, u'X'));
    };
    press();
    QVERIFY(ui::Application::ended());
    QCOMPARE(seen(), 1);
}

void TestUnidades::theEndOfTheProgramKeepsWhatWasWritten()
{
    onClick = [] {
        add(u"UM"_s);
        ui::End();
    };
    press();
    QVERIFY(ui::Application::ended());
    QCOMPARE(seen(), 1);
}

namespace
{

QString refusal()
{
    return u"Erro em tempo de execução '3051':\n\n"_s +
           runtime::errorText(3051, {QDir::toNativeSeparators(core::DBDados->path())});
}

} // namespace

void TestUnidades::aRefusedWriteIsToldInsteadOfItsSuccess()
{
    OtherProgram other(core::DBDados->path());
    bool told = false;
    onClick = [&] {
        add(u"UM"_s);
        ui::MsgBox(u"Gravado com sucesso"_s, ui::Icon::Information);
        told = true;
    };
    QVERIFY(other.read());
    support::Boxes::whileUp({}); // the lock is the test's own
    boxes_->critical(refusal());
    press();
    other.giveBack();
    QVERIFY(!told);
    QVERIFY(ui::Application::ended());
    QCOMPARE(seen(), 0);
}

void TestUnidades::aRefusedWriteIsToldAtTheEndOfItsEvent()
{
    OtherProgram other(core::DBDados->path());
    onClick = [&] { add(u"UM"_s); };
    QVERIFY(other.read());
    support::Boxes::whileUp({});
    boxes_->critical(refusal());
    press();
    other.giveBack();
    QVERIFY(ui::Application::ended());
    QCOMPARE(seen(), 0);
}

void TestUnidades::aRefusedWriteIsToldAtTheEndOfTheProgram()
{
    OtherProgram other(core::DBDados->path());
    onClick = [&] {
        add(u"UM"_s);
        ui::End();
    };
    QVERIFY(other.read());
    support::Boxes::whileUp({});
    boxes_->critical(refusal());
    press();
    other.giveBack();
    QVERIFY(ui::Application::ended());
}

void TestUnidades::anErrorIsToldAndNotTheRefusalBehindIt()
{
    OtherProgram other(core::DBDados->path());
    onClick = [] {
        add(u"UM"_s);
        runtime::raise(13);
    };
    QVERIFY(other.read());
    support::Boxes::whileUp({});
    boxes_->critical(u"Erro em tempo de execução '13':\n\nTipos incompatíveis"_s);
    press();
    other.giveBack();
    QVERIFY(ui::Application::ended());
}

void TestUnidades::aLongWaitForAnotherProgramShowsThePointer()
{
    dao::DBEngine::SetLockWait(std::chrono::seconds(30));
    std::optional<Qt::CursorShape> shown;
    // The program itself is the one that waits: a thread looks over its shoulder, and ends the wait when it has seen
    // the pointer.
    OtherProgram other(core::DBDados->path());
    QVERIFY(other.reserve());
    std::unique_ptr<QThread> watcher(QThread::create([&] {
        for (int look = 0; look < 40 && !shown; ++look) {
            QThread::msleep(500);
            if (const auto *cursor = QGuiApplication::overrideCursor()) {
                shown = cursor->shape();
            }
        }
        other.giveBack();
    }));
    onClick = [&] {
        watcher->start();
        add(u"UM"_s);
    };
    press();
    QVERIFY(watcher->wait());
    QCOMPARE(shown, std::optional(Qt::WaitCursor));
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(seen(), 1);
}

TARVELO_TEST_MAIN(TestUnidades)
#include "tst_unidades.moc"
