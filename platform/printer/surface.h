#pragma once

#include "platform/printer/page.h"

namespace printer
{

enum class ScaleMode {
    Twips = 1,
    Points = 2,
    Pixels = 3,
    Characters = 4,
    Inches = 5,
    Millimetres = 6,
    Centimetres = 7
};
enum class Orientation { Portrait = 1, Landscape = 2 };
enum class ColorMode { Monochrome = 1, Color = 2 };

/// What page code draws on, with the names of the platform's printer object. Page code is written once
/// against it; the printer and the preview each give their own NewPage and EndDoc.
class Surface
{
public:
    virtual ~Surface() = default;

    QString FontName = QStringLiteral("Courier New");
    double FontSize = 12;
    bool FontBold = false;
    bool FontUnderline = false;
    printer::ColorMode ColorMode = printer::ColorMode::Color;

    /// The unit of CurrentX, CurrentY and PaintPicture from here on. The position itself stays.
    void setScaleMode(ScaleMode mode);
    double CurrentX() const;
    double CurrentY() const;
    void setCurrentX(double x);
    void setCurrentY(double y);

    /// Prints at the current position. With a line end the position goes to the left of the next line; a line break
    /// inside the text does the same. What no longer fits on the sheet goes to a new page.
    void Print(const QString &text = {}, bool lineEnd = true);

    /// Stretches a picture over a rectangle given in the scale's unit. A null picture draws nothing.
    void PaintPicture(const QImage &picture, double x, double y, double width, double height);

    /// The sheet in twips, turned by `setOrientation`.
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    virtual void setOrientation(Orientation orientation) = 0;

    /// Ends the page and starts another one, at the top left.
    virtual void NewPage() = 0;
    /// Ends the document.
    virtual void EndDoc() = 0;

protected:
    virtual Page &page() = 0;
    void resetPosition();

private:
    double unit() const;
    Font font() const;
    void printLine(const QString &text);
    void endLine();

    ScaleMode scaleMode_ = ScaleMode::Twips;
    QPointF position_;
};

/// A surface of A4 sheets that keeps its pages, as the printer and the preview do until they are told what to do with
/// them.
class PagedSurface : public Surface
{
public:
    double Width() const override;
    double Height() const override;

    /// Turns the page that nothing stands on yet, and those behind it.
    void setOrientation(Orientation orientation) override;
    void NewPage() override;

    const std::vector<Page> &pages() const { return pages_; }

protected:
    Page &page() override;

    /// Gives the pages and starts afresh, upright. A page that was begun and holds nothing is no page.
    std::vector<Page> takePages();

private:
    std::vector<Page> pages_;
    Orientation orientation_ = Orientation::Portrait;
};

} // namespace printer
