#pragma once

#include "platform/printer/surface.h"

#include <QStringList>
#include <QTest>

#include <algorithm>
#include <variant>
#include <vector>

namespace support
{

/// Keeps the pages of the document that was printed last, as paper would.
class Sheets : public printer::PagedSurface
{
public:
    void EndDoc() override { document = takePages(); }

    QStringList lines() const
    {
        QStringList all;
        for (const printer::Page &page : document) {
            all << page.lines() << QStringLiteral("======== fim da folha");
        }
        return all;
    }

    std::vector<printer::Page> document;
};

/// The texts of a page in the order of their printing, with place and font.
inline std::vector<printer::TextMark> textsOf(const printer::Page &page)
{
    std::vector<printer::TextMark> found;
    for (const printer::Mark &mark : page.marks()) {
        if (const auto *text = std::get_if<printer::TextMark>(&mark); text != nullptr && !text->text.isEmpty()) {
            found.push_back(*text);
        }
    }
    return found;
}

inline double centimetres(double twips)
{
    return twips / printer::twipsPerCentimetre;
}

inline double top(const printer::TextMark &mark)
{
    return centimetres(mark.position.y());
}

inline double bottom(const printer::TextMark &mark)
{
    return centimetres(mark.position.y() + printer::lineHeight(mark.font));
}

inline bool isRule(const printer::TextMark &mark)
{
    return mark.font.underline && mark.text.trimmed().isEmpty();
}

/// Everything stands on the paper, above the foot and inside the edges, and no text covers another.
inline void checkSheet(const printer::Page &page)
{
    const std::vector<printer::TextMark> marks = textsOf(page);
    const bool foot = std::any_of(marks.begin(), marks.end(), isRule);
    bool belowRule = false;
    for (const printer::TextMark &mark : marks) {
        const double right =
            mark.position.x() + static_cast<double>(mark.text.size()) * printer::characterWidth(mark.font);
        QVERIFY2(right <= page.printableSize().width(), qPrintable(mark.text));
        QVERIFY2(bottom(mark) <= centimetres(page.printableSize().height()), qPrintable(mark.text));
        belowRule = belowRule || isRule(mark);
        QVERIFY2(belowRule || !foot || bottom(mark) <= 26.0001, qPrintable(mark.text));
    }
    for (std::size_t next = 1; next < marks.size(); ++next) {
        const bool sameLine = marks.at(next).position.y() == marks.at(next - 1).position.y();
        QVERIFY2(sameLine || top(marks.at(next)) >= bottom(marks.at(next - 1)) - 0.0001,
                 qPrintable(marks.at(next).text));
    }
}

} // namespace support
