#include "platform/ui/wait.h"

#include "platform/ui/application.h"
#include "platform/ui/heldback.h"
#include "platform/ui/units.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>

namespace ui
{

namespace
{

double waitFactor = 1;

} // namespace

void setWaitFactor(double factor)
{
    waitFactor = factor;
}

void Espera(double seconds)
{
    const std::chrono::duration<double> length(seconds * waitFactor);
    QEventLoop loop;
    QTimer::singleShot(std::chrono::duration_cast<std::chrono::milliseconds>(length), &loop, &QEventLoop::quit);
    {
        const UnitPause pause;
        loop.exec();
    }
    checkEnded();
}

void DoEvents()
{
    {
        const UnitPause pause;
        QCoreApplication::processEvents();
    }
    checkEnded();
}

bool EscapePressed()
{
    const UserHeldBack held;
    QCoreApplication::processEvents();
    checkEnded();
    return held.escape();
}

Hourglass::Hourglass()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

Hourglass::~Hourglass()
{
    QGuiApplication::restoreOverrideCursor();
}

} // namespace ui
