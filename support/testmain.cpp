#include "support/testmain.h"

#include "platform/ui/wait.h"

#include <QStandardPaths>

namespace support
{

void prepareApplication()
{
    // The application object itself sets style, texts and regional settings. Tests wait for conditions, never by the
    // clock.
    QStandardPaths::setTestModeEnabled(true);
    ui::setWaitFactor(0);
}

} // namespace support
