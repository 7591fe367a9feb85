#include "platform/ui/style.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr int darkLightness = 128;
constexpr int outlineAlpha = 140;

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

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < darkLightness;
}

Style::Style() : QProxyStyle(u"Fusion"_s) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (isMark(element) && isDark(option->palette)) {
        drawOutline(*painter, option->rect, option->palette.color(QPalette::Text), element == PE_IndicatorRadioButton);
    }
}

} // namespace ui
