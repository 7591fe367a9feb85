#include "platform/ui/controls.h"

#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"

#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace ui
{

void Label::setText(const QString &text)
{
    if (text == QLabel::text()) {
        return;
    }
    QLabel::setText(text);
    emit textChanged(text);
}

DTPicker::DTPicker(QWidget *parent) : QDateEdit(runtime::toDateTime(runtime::Today()).date(), parent)
{
    setLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
    setDisplayFormat(u"dd/MM/yyyy"_s);
    setCalendarPopup(true);
    lineEdit()->installEventFilter(this);
}

bool DTPicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call): the parent's walks its sections
}

bool DTPicker::eventFilter(QObject *object, QEvent *event)
{
    const bool handled = QDateEdit::eventFilter(object, event);
    if (object == lineEdit() && event->type() == QEvent::MouseButtonRelease) {
        setSelectedSection(currentSection());
    }
    return handled;
}

void DTPicker::focusInEvent(QFocusEvent *event)
{
    QDateEdit::focusInEvent(event);
    setSelectedSection(currentSection());
}

void DTPicker::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        setSelectedSection(DaySection);
        return;
    case Qt::Key_End:
        setSelectedSection(YearSection);
        return;
    default:
        QDateEdit::keyPressEvent(event);
    }
}

} // namespace ui
