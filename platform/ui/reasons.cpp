#include "platform/ui/reasons.h"

#include <QVariant>
#include <QWidget>

namespace ui
{

namespace
{

constexpr auto ownTipProperty = "ownTip";

} // namespace

void enableIf(bool enabled, QWidget *button, const QString &reason, QWidget *instead)
{
    const auto kept = button->property(ownTipProperty);
    const QString ownTip = kept.isValid() ? kept.toString() : button->toolTip();
    button->setProperty(ownTipProperty, enabled ? QVariant() : QVariant(ownTip));
    button->setToolTip(enabled ? ownTip : (ownTip.isEmpty() ? reason : QString(ownTip + u'\n' + reason)));
    if (!enabled && instead && button->hasFocus()) {
        instead->setFocus();
    }
    button->setEnabled(enabled);
}

} // namespace ui
