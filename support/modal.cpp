#include "support/modal.h"

#include "support/boxes.h"

#include "platform/ui/form.h"
#include "platform/ui/forms.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include <memory>
#include <set>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

constexpr int pollMilliseconds = 10;

std::set<QString> &awaited()
{
    static std::set<QString> names;
    return names;
}

} // namespace

void whenShown(const QString &form, std::function<void()> action)
{
    awaited().insert(form);
    auto *timer = new QTimer(QCoreApplication::instance());
    timer->setInterval(pollMilliseconds);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, form, action = std::move(action)] {
        const auto *shown = ui::Forms::instance().find(form);
        if (!shown || !shown->isVisible()) {
            return;
        }
        timer->stop();
        timer->deleteLater();
        awaited().erase(form);
        Boxes::checkWhileUp(form);
        action();
    });
    timer->start();
}

void failNotShown()
{
    for (const auto &form : std::exchange(awaited(), {})) {
        QTest::qFail(qPrintable(u"the window %1 never came"_s.arg(form)), __FILE__, __LINE__);
    }
}

} // namespace support
