#include "platform/printer/surface.h"

#include <QRegularExpression>

#include <utility>

namespace printer
{

using namespace Qt::StringLiterals;

namespace
{

const QSizeF sheetA4{11906, 16838};

// A character counts as 120 twips wide, a pixel as 15, as on the screen that the program was written on.
double twipsOf(ScaleMode mode)
{
    switch (mode) {
    case ScaleMode::Points:
        return 20;
    case ScaleMode::Pixels:
        return 15;
    case ScaleMode::Characters:
        return 120;
    case ScaleMode::Inches:
        return twipsPerInch;
    case ScaleMode::Millimetres:
        return twipsPerCentimetre / 10;
    case ScaleMode::Centimetres:
        return twipsPerCentimetre;
    case ScaleMode::Twips:
        break;
    }
    return 1;
}

// A tabulator has no width in a fixed-pitch line.
QStringList splitLines(QString text)
{
    static const QRegularExpression lineBreak(u"\\r\\n|\\r|\\n"_s);
    return text.replace(u'\t', u' ').split(lineBreak);
}

QSizeF sheet(Orientation orientation)
{
    return orientation == Orientation::Landscape ? sheetA4.transposed() : sheetA4;
}

} // namespace

double Surface::unit() const
{
    return twipsOf(scaleMode_);
}

Font Surface::font() const
{
    return {FontName, FontSize, FontBold, FontUnderline};
}

void Surface::setScaleMode(ScaleMode mode)
{
    scaleMode_ = mode;
}

double Surface::CurrentX() const
{
    return position_.x() / unit();
}

double Surface::CurrentY() const
{
    return position_.y() / unit();
}

void Surface::setCurrentX(double x)
{
    position_.setX(x * unit());
}

void Surface::setCurrentY(double y)
{
    position_.setY(y * unit());
}

void Surface::resetPosition()
{
    position_ = {};
}

void Surface::printLine(const QString &text)
{
    const double x = position_.x();
    if (position_.y() + lineHeight(font()) > page().printableSize().height()) {
        NewPage();
        position_.setX(x);
    }
    page().add(TextMark{position_, text, font()});
    position_.rx() += static_cast<double>(text.size()) * characterWidth(font());
}

void Surface::endLine()
{
    position_ = {0, position_.y() + lineHeight(font())};
}

void Surface::Print(const QString &text, bool lineEnd)
{
    const QStringList lines = splitLines(text);
    for (const QString &line : lines.first(lines.size() - 1)) {
        printLine(line);
        endLine();
    }
    printLine(lines.last());
    if (lineEnd) {
        endLine();
    }
}

void Surface::PaintPicture(const QImage &picture, double x, double y, double width, double height)
{
    if (picture.isNull()) {
        return;
    }
    const bool grey = ColorMode == ColorMode::Monochrome;
    page().add(PictureMark{QPointF(x, y) * unit(), QSizeF(width, height) * unit(),
                           grey ? picture.convertedTo(QImage::Format_Grayscale8) : picture});
}

double PagedSurface::Width() const
{
    return sheet(orientation_).width();
}

double PagedSurface::Height() const
{
    return sheet(orientation_).height();
}

void PagedSurface::setOrientation(Orientation orientation)
{
    orientation_ = orientation;
    if (!pages_.empty() && pages_.back().marks().empty()) {
        pages_.back() = Page(sheet(orientation));
    }
}

Page &PagedSurface::page()
{
    if (pages_.empty()) {
        pages_.emplace_back(sheet(orientation_));
    }
    return pages_.back();
}

void PagedSurface::NewPage()
{
    page();
    pages_.emplace_back(sheet(orientation_));
    resetPosition();
}

std::vector<Page> PagedSurface::takePages()
{
    if (!pages_.empty() && pages_.back().marks().empty()) {
        pages_.pop_back();
    }
    orientation_ = Orientation::Portrait;
    resetPosition();
    return std::exchange(pages_, {});
}

} // namespace printer
