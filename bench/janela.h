#pragma once

#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QCoreApplication>

namespace medidas
{

/// A list of a window.
inline ui::ListView *listOf(const ui::Form *form, const QString &name = QStringLiteral("Lista"))
{
    return form->findChild<ui::ListView *>(name);
}

/// Closes a window and has it deleted at once. What it has left to be done would delay the next turn.
inline void close(ui::Form *form)
{
    form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace medidas
