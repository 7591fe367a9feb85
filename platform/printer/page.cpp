#include "platform/printer/page.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace printer
{

using namespace Qt::StringLiterals;

namespace
{

constexpr double twipsPerPoint = 20;

// Courier New, in parts of the font's size. Fonts that stand in for it are fitted to these.
constexpr double advanceOfSize = 0.6;
constexpr double ascentOfSize = 0.8333;
constexpr double lineOfSize = 1.1328;
constexpr double ruleBelowAscent = 0.12;
constexpr double ruleThickness = 0.05;

double sizeInTwips(const Font &font)
{
    return font.size * twipsPerPoint;
}

double widthOf(const TextMark &mark)
{
    return static_cast<double>(mark.text.size()) * characterWidth(mark.font);
}

QFont drawnFont(const Font &font)
{
    QFont drawn;
    drawn.setFamilies({font.name, u"Liberation Mono"_s, u"Cousine"_s, u"Nimbus Mono PS"_s, u"monospace"_s});
    drawn.setStyleHint(QFont::Monospace);
    drawn.setFixedPitch(true);
    drawn.setPixelSize(qRound(sizeInTwips(font)));
    drawn.setBold(font.bold);
    drawn.setKerning(false);
    drawn.setHintingPreference(QFont::PreferNoHinting);
    return drawn;
}

void paintUnderline(QPainter &painter, const TextMark &mark)
{
    const double size = sizeInTwips(mark.font);
    const QRectF rule(0, size * (ascentOfSize + ruleBelowAscent), widthOf(mark), size * ruleThickness);
    painter.fillRect(rule, Qt::black);
}

void paintCharacters(QPainter &painter, const TextMark &mark)
{
    const QFont font = drawnFont(mark.font);
    const double advance = QFontMetricsF(font).horizontalAdvance(mark.text);
    if (advance <= 0) {
        return;
    }
    painter.scale(widthOf(mark) / advance, 1);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(0, sizeInTwips(mark.font) * ascentOfSize), mark.text);
}

void paintMark(QPainter &painter, const TextMark &mark)
{
    painter.translate(mark.position);
    if (mark.font.underline) {
        paintUnderline(painter, mark);
    }
    paintCharacters(painter, mark);
}

void paintMark(QPainter &painter, const PictureMark &mark)
{
    painter.drawImage(QRectF(mark.position, mark.size), mark.picture);
}

QString readable(const TextMark &mark)
{
    const bool rule = mark.font.underline && !mark.text.isEmpty() && mark.text.trimmed().isEmpty();
    return rule ? QString(mark.text.size(), u'_') : mark.text;
}

qsizetype columnOf(const TextMark &mark)
{
    return std::llround(mark.position.x() / characterWidth(mark.font));
}

void appendAtColumn(QString &line, const TextMark &mark)
{
    const qsizetype column = columnOf(mark);
    if (column < line.size()) {
        line += u' ';
    }
    line = line.leftJustified(column) + readable(mark);
}

QString withoutTrailingBlanks(QString line)
{
    while (line.endsWith(u' ')) {
        line.chop(1);
    }
    return line;
}

std::vector<const TextMark *> textsFromTheTop(const std::vector<Mark> &marks)
{
    std::vector<const TextMark *> texts;
    for (const Mark &mark : marks) {
        if (const auto *text = std::get_if<TextMark>(&mark)) {
            texts.push_back(text);
        }
    }
    const auto higher = [](const TextMark *a, const TextMark *b) { return a->position.y() < b->position.y() - 0.5; };
    std::stable_sort(texts.begin(), texts.end(), higher);
    return texts;
}

} // namespace

void Page::paint(QPainter &painter) const
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::LosslessImageRendering);
    painter.translate(margin, margin);
    for (const Mark &mark : marks_) {
        painter.save();
        std::visit([&painter](const auto &drawn) { paintMark(painter, drawn); }, mark);
        painter.restore();
    }
    painter.restore();
}

QStringList Page::lines() const
{
    QStringList lines;
    double height = -1;
    for (const TextMark *mark : textsFromTheTop(marks_)) {
        if (lines.isEmpty() || std::abs(mark->position.y() - height) > 0.5) {
            lines << QString();
            height = mark->position.y();
        }
        appendAtColumn(lines.last(), *mark);
    }
    std::transform(lines.begin(), lines.end(), lines.begin(), withoutTrailingBlanks);
    return lines;
}

double characterWidth(const Font &font)
{
    return sizeInTwips(font) * advanceOfSize;
}

double lineHeight(const Font &font)
{
    return sizeInTwips(font) * lineOfSize;
}

} // namespace printer
