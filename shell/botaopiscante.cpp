#include "shell/botaopiscante.h"

#include <QScopedValueRollback>

namespace shell
{

void BotaoPiscante::setVisible(bool visivel)
{
    const QScopedValueRollback escondendo(escondendo_, !visivel);
    QPushButton::setVisible(visivel);
}

/// Called by Tab, and by Qt where a control with the focus is hidden.
bool BotaoPiscante::focusNextPrevChild(bool next)
{
    return escondendo_ || QPushButton::focusNextPrevChild(next);
}

} // namespace shell
