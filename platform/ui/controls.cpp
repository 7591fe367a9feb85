#include "platform/ui/controls.h"

#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"
#include "platform/ui/fitting.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

/// What Qt keeps free beside a line that is typed, and the least height that it gives to one.
constexpr int lineMargin = 2;
constexpr int leastLine = 14;

bool isDigit(const QKeyEvent &event)
{
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return event.text().size() == 1 && event.text().at(0).isDigit() && (event.modifiers() & commands) == 0;
}

/// The last day or month that there is.
int lastOf(QDateTimeEdit::Section section)
{
    return section == QDateTimeEdit::DaySection ? 31 : 12;
}

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
        tens_.reset();
        setSelectedSection(currentSection());
    }
    return handled;
}

void DTPicker::focusInEvent(QFocusEvent *event)
{
    tens_.reset();
    QDateEdit::focusInEvent(event);
    setSelectedSection(currentSection());
}

void DTPicker::focusOutEvent(QFocusEvent *event)
{
    endTens();
    endYear();
    QDateEdit::focusOutEvent(event);
}

void DTPicker::keyPressEvent(QKeyEvent *event)
{
    if (isDigit(*event)) {
        typeDigit(event);
        return;
    }
    if (event->text() == u"/") { // by which the parent goes on to the next control
        endTens();
        return;
    }
    tens_.reset();
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

/// The parent takes a 31 over June for a 30, and over February for a 3 and the month 1.
void DTPicker::typeDigit(QKeyEvent *event)
{
    if (tens_ && tens_->text != lineEdit()->text()) {
        tens_.reset();
    }
    const Section section = tens_ ? tens_->section : currentSection();
    if (section != DaySection && section != MonthSection) {
        typeYear(event);
        return;
    }
    const int digit = event->text().at(0).digitValue();
    if (!tens_ && digit <= lastOf(section) / 10) {
        typeTens(event, section, digit);
        return;
    }
    const Tens tens = std::exchange(tens_, {}).value_or(Tens{section, 0, date(), {}});
    put(section, tens.digit * 10 + digit, tens.before);
}

void DTPicker::typeTens(QKeyEvent *event, Section section, int digit)
{
    const QDate before = date();
    QDateEdit::keyPressEvent(event); // which shows the digit
    tens_ = Tens{section, digit, before, lineEdit()->text()};
}

/// A first digit that stays alone is the whole number.
void DTPicker::endTens()
{
    const auto tens = std::exchange(tens_, {});
    if (tens && tens->digit > 0 && tens->text == lineEdit()->text()) {
        put(tens->section, tens->digit, tens->before);
    }
}

/// A year of two digits is the one that they mean in every date; the parent goes back to what stood there.
void DTPicker::endYear()
{
    constexpr int digits = 2;
    const QString typed = lineEdit()->text();
    if (typed.section(u'/', -1).size() == digits && runtime::IsDate(typed)) {
        showDay(runtime::toDateTime(runtime::CDate(typed)).date(), dayOf(date()));
    }
}

void DTPicker::typeYear(QKeyEvent *event)
{
    const QDate before = date();
    QDateEdit::keyPressEvent(event);
    if (date().year() != before.year() && date().day() != dayOf(before)) {
        showDay(date(), dayOf(before));
        setSelectedSection(YearSection);
    }
}

/// A number that no day or month has leaves the date, and its part selected.
void DTPicker::put(Section section, int number, const QDate &before)
{
    if (number < 1 || number > lastOf(section)) {
        setDate(before);
        setSelectedSection(section);
    } else if (section == DaySection) {
        showDay(before, number);
        setSelectedSection(MonthSection);
    } else {
        showDay(QDate(before.year(), number, 1), dayOf(before));
        setSelectedSection(YearSection);
    }
}

void DTPicker::showDay(const QDate &month, int day)
{
    typedDay_ = day;
    shown_ = QDate(month.year(), month.month(), std::min(day, month.daysInMonth()));
    setDate(shown_);
}

} // namespace ui
