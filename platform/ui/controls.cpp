#include "platform/ui/controls.h"

#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"
#include "platform/ui/fitting.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

/// What Qt keeps free beside a line that is typed, and the least height that it gives to one.
constexpr int lineMargin = 2;
constexpr int leastLine = 14;

} // namespace

void Label::setText(const QString &text)
{
    if (text == QLabel::text()) {
        return;
    }
    QLabel::setText(text);
    emit textChanged(text);
}

QStyleOptionFrame Label::panel() const
{
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
    return option;
}

/// Where the text stands: in line with the texts of the boxes that are typed in.
QRect Label::room() const
{
    const auto option = panel();
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(lineMargin, 0, -lineMargin, 0);
}

bool Label::isCut() const
{
    if (!isValue()) {
        return false;
    }
    const auto needed = fontMetrics().boundingRect(room(), wrapping(), text());
    return needed.width() > room().width() || needed.height() > room().height();
}

/// As high as a box that is typed in, so that a line of both stands even.
QSize Label::valueSize() const
{
    ensurePolished();
    const auto option = panel();
    const int height = std::max(fontMetrics().height(), leastLine) + lineMargin;
    const int width = std::max(sampleWidth(this), fontMetrics().averageCharWidth()) + 2 * lineMargin + 1;
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(width, height), this);
}

QSize Label::sizeHint() const
{
    return isValue() ? valueSize() : QLabel::sizeHint();
}

QSize Label::minimumSizeHint() const
{
    return isValue() ? valueSize() : QLabel::minimumSizeHint();
}

void Label::paintEvent(QPaintEvent *event)
{
    if (!isValue()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const auto option = panel();
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const auto shown = wordWrap() ? text() : fontMetrics().elidedText(text(), Qt::ElideRight, room().width());
    painter.setClipRect(room());
    style()->drawItemText(&painter, room(), int(alignment()) | wrapping(), palette(), isEnabled(), shown,
                          foregroundRole());
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
