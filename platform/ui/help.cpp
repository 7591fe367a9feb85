#include "platform/ui/help.h"

#include "platform/ui/application.h"
#include "platform/ui/form.h"

#include <utility>

namespace ui
{

namespace
{

std::function<void(const QString &)> &shownHelp()
{
    static std::function<void(const QString &)> help;
    return help;
}

} // namespace

void setHelp(std::function<void(const QString &window)> help)
{
    shownHelp() = std::move(help);
}

void askHelp(const QString &window)
{
    if (!shownHelp()) {
        return;
    }
    Application::run([&window] {
        leaveField();
        shownHelp()(window);
    });
}

} // namespace ui
