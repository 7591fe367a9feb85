#pragma once

#include "platform/printer/surface.h"

#include <QStringList>

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

} // namespace support
