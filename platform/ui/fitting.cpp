#include "platform/ui/fitting.h"

#include "platform/ui/controls.h"

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleOptionComboBox>
#include <QTextDocument>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr auto sampleProperty = "amostra";
constexpr auto enlargedProperty = "ampliacao";
constexpr auto linesProperty = "linhas";
constexpr qreal wholeFont = 100;

/// What Qt keeps free on both sides of a line that is typed.
constexpr int lineMargin = 2;

QString cutLine(const QLineEdit &edit)
{
    QStyleOptionFrame option;
    option.initFrom(&edit);
    option.lineWidth = edit.hasFrame() ? edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit) : 0;
    const auto room = edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
    const int width = room.marginsRemoved(edit.textMargins()).width() - 2 * lineMargin;
    const bool cut = edit.fontMetrics().horizontalAdvance(edit.text()) > width;
    return cut && edit.echoMode() == QLineEdit::Normal ? edit.text() : QString();
}

QString cutEntry(const QComboBox &combo)
{
    if (combo.isEditable()) {
        return cutLine(*combo.lineEdit());
    }
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const auto room = combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    return combo.fontMetrics().horizontalAdvance(combo.currentText()) > room.width() ? combo.currentText() : QString();
}

bool isBox(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const Label *>(widget);
}

/// A list of lines that can only be read stands on the ground of the windows, like every value.
void giveGround(QPlainTextEdit &edit)
{
    const bool open = edit.isEnabled() && !edit.isReadOnly();
    edit.viewport()->setBackgroundRole(open ? QPalette::Base : QPalette::Window);
}

constexpr int moreLines = 2;

/// As high as its property "linhas" says in the present font, and some lines more where there is room.
void giveLines(QPlainTextEdit &edit)
{
    const int lines = edit.property(linesProperty).toInt();
    if (lines > 0) {
        const int border = 2 * (edit.frameWidth() + qRound(edit.document()->documentMargin()));
        edit.setMinimumHeight(lines * edit.fontMetrics().lineSpacing() + border);
        edit.setMaximumHeight((lines + moreLines) * edit.fontMetrics().lineSpacing() + border);
    }
}

QString tipOf(const QWidget *control)
{
    const auto *combo = qobject_cast<const QComboBox *>(control->parentWidget());
    return combo ? combo->toolTip() : control->toolTip();
}

} // namespace

int sampleWidth(const QWidget *box)
{
    if (!box) {
        return 0;
    }
    const auto sample = box->property(sampleProperty).toString();
    return sample.isEmpty() ? 0 : box->fontMetrics().horizontalAdvance(sample);
}

QString cutText(const QWidget *box)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(box)) {
        return cutLine(*edit);
    }
    if (const auto *combo = qobject_cast<const QComboBox *>(box)) {
        return cutEntry(*combo);
    }
    const auto *label = qobject_cast<const Label *>(box);
    return label && label->isCut() ? label->text() : QString();
}

void showWhole(const QPoint &place, const QString &text, QWidget *control)
{
    const auto own = tipOf(control);
    const auto whole = own.isEmpty() || own == text ? text : text + u'\n' + own;
    // Rich text is broken into lines, plain text would leave the screen.
    QToolTip::showText(place, Qt::convertFromPlainText(whole, Qt::WhiteSpaceNormal), control);
}

void enlarge(QWidget *control)
{
    const qreal percent = control->property(enlargedProperty).toDouble();
    if (percent > 0) {
        auto font = control->font();
        font.setPointSizeF(QApplication::font().pointSizeF() * percent / wholeFont);
        control->setFont(font);
    }
}

void Fitting::watch(QWidget *widget)
{
    auto *lines = qobject_cast<QPlainTextEdit *>(widget);
    const bool enlarged = widget->property(enlargedProperty).isValid();
    if (lines) {
        giveGround(*lines);
        giveLines(*lines);
    }
    if (enlarged) {
        enlarge(widget);
    }
    if (lines || enlarged || isBox(widget)) {
        widget->installEventFilter(this);
    }
}

bool Fitting::eventFilter(QObject *object, QEvent *event)
{
    auto *widget = static_cast<QWidget *>(object);
    switch (event->type()) {
    case QEvent::ToolTip:
        if (const auto text = cutText(widget); !text.isEmpty()) {
            showWhole(static_cast<QHelpEvent *>(event)->globalPos(), text, widget);
            return true;
        }
        return false;
    case QEvent::ReadOnlyChange:
    case QEvent::EnabledChange:
    case QEvent::FontChange:
        if (auto *lines = qobject_cast<QPlainTextEdit *>(widget)) {
            giveGround(*lines);
            giveLines(*lines);
        }
        return false;
    case QEvent::ApplicationFontChange:
        enlarge(widget);
        return false;
    default:
        return false;
    }
}

} // namespace ui
