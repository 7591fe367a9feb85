#pragma once

#include "platform/ui/fitting.h"

#include <QProxyStyle>

namespace ui
{

/// The program's look: one drawn style on every desktop. What can't be typed in has the ground of the windows, what can
/// has its own. Boxes with a sample (`sampleWidth`) are as wide as that, lists keep the texts of their columns apart.
/// On a dark palette the marks of check boxes and options get an outline, which the drawn style leaves as dark as the
/// ground.
class Style : public QProxyStyle
{
    Q_OBJECT

public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    void polish(QPalette &palette) override;

private:
    Fitting fitting_;
};

/// True where the palette's windows are dark.
bool isDark(const QPalette &palette);

/// How a text is to be taken, for the eye: words or a sign have to say the same.
enum class Tone { Normal, Good, Pending, Warning };

/// Gives the text of a label the colour of a tone, readable on the ground of light and of dark windows.
void setTone(QWidget &label, Tone tone);

} // namespace ui
