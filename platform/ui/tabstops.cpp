#include "platform/ui/tabstops.h"

#include <QRadioButton>

namespace ui
{

namespace
{

QWidget *deepestProxy(QWidget *widget)
{
    while (auto *proxy = widget->focusProxy()) {
        widget = proxy;
    }
    return widget;
}

/// The frame around it takes the focus for it, at the frame's own place.
bool standsInForAFrame(const QWidget *widget, const QWidget &form)
{
    for (const auto *frame = widget->parentWidget(); frame && frame != &form; frame = frame->parentWidget()) {
        if (frame->focusProxy() == widget) {
            return true;
        }
    }
    return false;
}

bool isUsable(const QWidget *widget, const QWidget &form)
{
    return widget->isEnabled() && widget->isVisibleTo(&form) && widget->window() == form.window();
}

/// Qt takes the focus policy of the others away once one option of a group had the focus.
QWidget *chosenOf(QRadioButton *option, const QWidget &form)
{
    QWidget *first = nullptr;
    for (auto *other : option->parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly)) {
        if (!other->autoExclusive() || !isUsable(other, form)) {
            continue;
        }
        if (other->isChecked()) {
            return other;
        }
        first = first ? first : other;
    }
    return first;
}

/// The control that takes the focus where this widget stands in the tab order, or nullptr.
QWidget *stopAt(QWidget *widget, const QWidget &form)
{
    if (auto *option = qobject_cast<QRadioButton *>(widget); option && option->autoExclusive()) {
        return chosenOf(option, form);
    }
    auto *target = deepestProxy(widget);
    const bool elsewhere = target != widget ? !widget->isAncestorOf(target) : standsInForAFrame(widget, form);
    const bool takes = (target->focusPolicy() & Qt::TabFocus) != 0;
    return !elsewhere && takes && isUsable(widget, form) && isUsable(target, form) ? target : nullptr;
}

QList<QWidget *> stopsOf(const QWidget &form)
{
    QList<QWidget *> stops;
    for (auto *widget = form.nextInFocusChain(); widget && widget != &form; widget = widget->nextInFocusChain()) {
        auto *stop = form.isAncestorOf(widget) ? stopAt(widget, form) : nullptr;
        if (stop && !stops.contains(stop)) {
            stops.append(stop);
        }
    }
    return stops;
}

/// The stop that a widget belongs to: itself, its group's, or the control that it is a part of.
qsizetype placeOf(QWidget *widget, const QList<QWidget *> &stops, const QWidget &form)
{
    for (; widget && widget != &form; widget = widget->parentWidget()) {
        auto *stop = stopAt(widget, form);
        if (const auto place = stops.indexOf(stop ? stop : widget); place >= 0) {
            return place;
        }
    }
    return -1;
}

} // namespace

QWidget *nextStop(const QWidget &form, bool forward)
{
    const auto stops = stopsOf(form);
    if (stops.isEmpty()) {
        return nullptr;
    }
    const auto place = placeOf(form.focusWidget(), stops, form);
    if (place < 0) {
        return forward ? stops.first() : stops.last();
    }
    return stops.at((place + (forward ? 1 : stops.size() - 1)) % stops.size());
}

QWidget *firstStop(const QWidget &form)
{
    return stopsOf(form).value(0);
}

} // namespace ui
