#pragma once

#include <QString>

class QWidget;

namespace ui
{

/// A button that would do nothing at present is disabled, and its tool tip says why; enabled, it has its own tip again.
/// The focus of a button that is disabled goes to `instead`, never on to a button that the next Enter would press.
void enableIf(bool enabled, QWidget *button, const QString &reason, QWidget *instead = nullptr);

} // namespace ui
