#include "platform/ui/application.h"

#include "platform/runtime/error.h"
#include "platform/ui/boxes.h"
#include "platform/ui/focus.h"
#include "platform/ui/forms.h"
#include "platform/ui/heldback.h"
#include "platform/ui/icons.h"
#include "platform/ui/style.h"
#include "platform/ui/units.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>
#include <QTranslator>

#include <vector>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr qreal readablePointSize = 10;

bool programEnded = false;

/// More than 0 while the program's own code runs, up to the next event that is delivered inside of it.
int programDepth = 0;

/// A window that was closed, and the level of the event loop that may delete it.
struct Closed {
    QPointer<QWidget> window;
    int loopLevel;
};

std::vector<Closed> &closedWindows()
{
    static std::vector<Closed> windows;
    return windows;
}

void discardDue()
{
    auto &windows = closedWindows();
    if (windows.empty()) {
        return;
    }
    const int level = QThread::currentThread()->loopLevel();
    std::erase_if(windows, [level](const Closed &closed) {
        const bool due = closed.loopLevel >= level;
        if (due && closed.window) {
            closed.window->deleteLater();
        }
        return due;
    });
}

QString errorBoxText(const runtime::RuntimeError &error)
{
    return u"Erro em tempo de execução '%1':\n\n%2"_s.arg(error.number()).arg(error.description());
}

/// The pieces around the one that failed have written too. What they meet now is not told any more.
void confirmUntold()
{
    try {
        const UnitPause pause;
    } catch (const runtime::RuntimeError &) { // NOLINT(bugprone-empty-catch): the first error hides it
    }
}

void setReadableFont()
{
    auto font = QApplication::font();
    if (font.pointSizeF() < readablePointSize) {
        font.setPointSizeF(readablePointSize);
        QApplication::setFont(font);
    }
}

} // namespace

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    installTranslation(*this);
    setStyle(new Style);
    installIcons(*this);
    setReadableFont();
    // The program ends by its own command only: between two windows of the start none is open.
    setQuitOnLastWindowClosed(false);
}

Application::~Application()
{
    Forms::instance().unloadAll();
    for (const auto &closed : std::exchange(closedWindows(), {})) {
        delete closed.window;
    }
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
    programEnded = false;
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    if (UserHeldBack::takes(event)) {
        return true;
    }
    const QScopedValueRollback outside(programDepth, 0);
    bool taken = true;
    try {
        taken = deliver(receiver, event);
    } catch (...) {
        deal(std::current_exception());
    }
    discardDue();
    return taken;
}

/// What the focus is due to tell comes ahead of what the user does next, and behind what moved it; the receiver and the
/// event may be gone by then.
bool Application::deliver(QObject *receiver, QEvent *event)
{
    if (!FocusTracker::settlesAfter(receiver, event)) {
        return QApplication::notify(receiver, event);
    }
    auto &tracker = FocusTracker::instance();
    const bool lost = (event->type() == QEvent::MouseButtonPress && !tracker.settleForClick()) ||
                      (event->type() == QEvent::KeyPress && !tracker.settle());
    const bool taken = lost || QApplication::notify(receiver, event);
    tracker.settle();
    return taken;
}

void Application::run(const std::function<void()> &action)
{
    if (programDepth > 0) {
        checkEnded();
        action();
        return;
    }
    if (programEnded) {
        return;
    }
    const QScopedValueRollback inside(programDepth, 1);
    try {
        runUnit(action);
    } catch (...) {
        deal(std::current_exception());
    }
}

void Application::discard(QWidget *window, int loopLevel)
{
    closedWindows().push_back({window, loopLevel});
    discardDue();
}

void Application::deal(const std::exception_ptr &thrown)
{
    try {
        std::rethrow_exception(thrown);
    } catch (const ProgramEnded &) {
        leave(EXIT_SUCCESS);
    } catch (const runtime::RuntimeError &error) {
        fail(errorBoxText(error));
    } catch (const std::exception &error) {
        fail(QString::fromUtf8(error.what()));
    }
}

void Application::fail(const QString &text)
{
    if (programEnded) {
        return;
    }
    programEnded = true;
    confirmUntold();
    ClosingBox(text);
    leave(EXIT_FAILURE);
}

void Application::leave(int code)
{
    static int exitCode = EXIT_SUCCESS;
    // The exception passes one event loop after the other: the first one tells the code.
    if (!programEnded || code != EXIT_SUCCESS) {
        exitCode = code;
    }
    programEnded = true;
    exit(exitCode);
}

bool Application::ended()
{
    return programEnded;
}

void Application::resetEnd()
{
    programEnded = false;
    // The order to leave lasts until the main loop starts anew: without this, later modal windows would close at once.
    QTimer::singleShot(0, instance(), &QCoreApplication::quit);
    exec();
}

void End()
{
    throw ProgramEnded();
}

void checkEnded()
{
    if (Application::ended()) {
        throw ProgramEnded();
    }
}

void installTranslation(QCoreApplication &application)
{
    auto *translator = new QTranslator(&application);
    if (translator->load(u"qtbase_pt_BR"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(translator);
    }
}

} // namespace ui
