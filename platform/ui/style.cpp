#include "platform/ui/style.h"

#include "platform/ui/listview.h"

#include <QDateEdit>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr int darkLightness = 128;
constexpr int outlineAlpha = 140;

/// What Qt keeps free beside a line that is typed, and the place of the caret.
constexpr int lineMargins = 5;
constexpr int leastCellMargin = 4;

bool isMark(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorItemViewItemCheck ||
           element == QStyle::PE_IndicatorRadioButton;
}

void drawOutline(QPainter &painter, const QRect &mark, QColor color, bool round)
{
    color.setAlpha(outlineAlpha);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color);
    painter.setBrush(Qt::NoBrush);
    const auto frame = QRectF(mark).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal corner = round ? frame.height() / 2 : 1;
    painter.drawRoundedRect(frame, corner, corner);
    painter.restore();
}

/// The colour of a tone on light and on dark windows.
struct Shades {
    QRgb onLight;
    QRgb onDark;
};

const Shades &shadesOf(Tone tone)
{
    static constexpr Shades good{qRgb(0x16, 0x6b, 0x33), qRgb(0x6f, 0xd9, 0x8c)};
    static constexpr Shades pending{qRgb(0x9a, 0x4d, 0x00), qRgb(0xff, 0xb8, 0x4d)};
    static constexpr Shades warning{qRgb(0xb0, 0x1c, 0x1c), qRgb(0xff, 0x8a, 0x80)};
    if (tone == Tone::Good) {
        return good;
    }
    return tone == Tone::Pending ? pending : warning;
}

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < darkLightness;
}

void setTone(QWidget &label, Tone tone)
{
    QPalette palette; // only what is set here is the label's own: the rest follows its window
    if (tone != Tone::Normal) {
        const Shades &shades = shadesOf(tone);
        palette.setColor(QPalette::WindowText,
                         QColor(isDark(QGuiApplication::palette()) ? shades.onDark : shades.onLight));
    }
    label.setPalette(palette);
}

namespace
{

/// Windows has a look of its own; elsewhere every desktop shows the same.
QString nameOfLook()
{
    const QString ofWindows = u"windowsvista"_s;
    return QStyleFactory::keys().contains(ofWindows) ? ofWindows : u"Fusion"_s;
}

bool isLocked(const QStyleOption &option)
{
    return option.state.testFlag(QStyle::State_ReadOnly) || !option.state.testFlag(QStyle::State_Enabled);
}

bool isListTitle(const QWidget *widget)
{
    return qobject_cast<const QHeaderView *>(widget) && qobject_cast<const ListView *>(widget->parentWidget());
}

/// Free room beside the text of a cell or a column's title.
int cellMargin(const QWidget &list)
{
    return std::max(leastCellMargin, list.fontMetrics().averageCharWidth() - 1);
}

/// How much farther from its border a title stands than the drawn style has it: in line with the cells below.
int titleInset(const QWidget &header)
{
    return cellMargin(header) + 1 - header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
}

/// Qt measures a date with a calendar as a box with two small arrows, and draws it as a list with a broad one.
int roomOfDate(const QStyle &style, const QDateEdit &date, QSize size)
{
    QStyleOptionComboBox option;
    option.initFrom(&date);
    option.editable = true;
    option.rect = QRect(QPoint(), size);
    return style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &date).width();
}

/// What is greyed can still be read: half of the way from the ground to the text.
QColor greyed(const QPalette &palette, QPalette::ColorRole text, QPalette::ColorRole ground)
{
    const auto back = palette.color(QPalette::Active, ground);
    const auto front = palette.color(QPalette::Active, text);
    return {(back.red() + front.red()) / 2, (back.green() + front.green()) / 2, (back.blue() + front.blue()) / 2};
}

} // namespace

Style::Style() : QProxyStyle(nameOfLook()) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    if (element == PE_PanelLineEdit && frame && isLocked(*option)) {
        auto locked = *frame;
        locked.palette.setBrush(QPalette::Base, option->palette.window());
        QProxyStyle::drawPrimitive(element, &locked, painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (isMark(element) && isDark(option->palette)) {
        drawOutline(*painter, option->rect, option->palette.color(QPalette::Text), element == PE_IndicatorRadioButton);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                              const QWidget *widget) const
{
    auto contents = size;
    if (type == CT_LineEdit || type == CT_ComboBox) {
        if (const int sample = sampleWidth(widget); sample > 0) {
            contents.setWidth(sample + lineMargins);
        }
    }
    auto whole = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (const auto *date = qobject_cast<const QDateEdit *>(widget); type == CT_SpinBox && date) {
        whole.rwidth() += std::max(0, contents.width() - roomOfDate(*this, *date, whole));
    }
    if (type == CT_HeaderSection && isListTitle(widget)) {
        whole.rwidth() += 2 * titleInset(*widget);
    }
    if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        type == CT_PushButton && button && !button->text.isEmpty()) {
        whole.rwidth() += 2 * cellMargin(*widget);
    }
    return whole;
}

QRect Style::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    const auto rect = QProxyStyle::subElementRect(element, option, widget);
    if (element != SE_HeaderLabel || !isListTitle(widget)) {
        return rect;
    }
    const int inset = titleInset(*widget);
    return rect.adjusted(inset, 0, -inset, 0);
}

/// The drawn style asks itself for the place of a title, and not this one.
void Style::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const
{
    const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(option);
    if (element != CE_HeaderLabel || !header || !isListTitle(widget)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const int inset = titleInset(*widget);
    auto label = *header;
    label.rect.adjust(inset, 0, -inset, 0);
    QProxyStyle::drawControl(element, &label, painter, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    const bool cell = metric == PM_FocusFrameHMargin && qobject_cast<const ListView *>(widget);
    return cell ? cellMargin(*widget) : QProxyStyle::pixelMetric(metric, option, widget);
}

void Style::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    fitting_.watch(widget);
}

void Style::polish(QPalette &palette)
{
    QProxyStyle::polish(palette);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, greyed(palette, QPalette::WindowText, QPalette::Window));
    palette.setColor(QPalette::Disabled, QPalette::Text, greyed(palette, QPalette::Text, QPalette::Window));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, greyed(palette, QPalette::ButtonText, QPalette::Button));
}

} // namespace ui
