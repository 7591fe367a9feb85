#pragma once

#include <QImage>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

class QPainter;

namespace printer
{

/// 1440 twips are an inch, 567 a centimetre: the unit of every stored position.
inline constexpr double twipsPerInch = 1440.0;
inline constexpr double twipsPerCentimetre = 1440.0 / 2.54;

/// The strip along each edge that a usual printer can't reach: an eighth of an inch, in twips. Positions are counted
/// from inside it, so that a line of 96 columns at 10 points just fits on A4.
inline constexpr double margin = 180;

struct Font {
    QString name;
    double size = 12; ///< points
    bool bold = false;
    bool underline = false;

    bool operator==(const Font &) const = default;
};

/// A text printed with one call: its top left corner in twips. A line end without text is a mark without text.
struct TextMark {
    QPointF position;
    QString text;
    Font font;
};

/// A picture stretched over a rectangle, in twips.
struct PictureMark {
    QPointF position;
    QSizeF size;
    QImage picture;
};

using Mark = std::variant<TextMark, PictureMark>;

/// The record of the calls that made one page. Paper, preview and tests all read this.
class Page
{
public:
    explicit Page(QSizeF size = {}) : size_(size) {}

    QSizeF size() const { return size_; } ///< the sheet, twips
    QSizeF printableSize() const { return {size_.width() - 2 * margin, size_.height() - 2 * margin}; }
    const std::vector<Mark> &marks() const { return marks_; }
    void add(Mark mark) { marks_.push_back(std::move(mark)); }

    /// Draws the page; the painter's scale is set so that 1 unit is 1 twip, its origin is the corner of the sheet.
    /// Each text is as wide as its columns, whatever font is found for it.
    void paint(QPainter &painter) const;

    /// The texts of the page line by line from the top, without the blanks at a line's end. Texts of one height are one
    /// line; each starts at its position over the width of a character of its own font, or, where larger characters
    /// before it have taken that column, one blank behind them. Underlined blanks alone are a rule: underscores. For
    /// tests.
    QStringList lines() const;

private:
    QSizeF size_;
    std::vector<Mark> marks_;
};

/// The width of a character and the height of a line of a fixed-pitch font, in twips.
double characterWidth(const Font &font);
double lineHeight(const Font &font);

} // namespace printer
