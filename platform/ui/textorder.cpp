#include "platform/ui/textorder.h"

#include "platform/runtime/text.h"

#include <QByteArray>

#include <algorithm>
#include <vector>

namespace ui
{

namespace
{

constexpr int allCharacters = 0x10000;

/// 0 to 255 for what the Western code page has, behind that by code point.
quint16 westernPlace(char16_t character)
{
    const auto bytes = runtime::toWestern(QStringView(&character, 1));
    const bool known = bytes != "?" || character == u'?';
    return known ? quint8(bytes.at(0)) : quint16(character);
}

std::vector<quint16> makeWeights()
{
    std::vector<quint16> weights(allCharacters);
    for (int code = 0; code < allCharacters; ++code) {
        weights[code] = westernPlace(QChar(code).toUpper().unicode());
    }
    return weights;
}

const quint16 *weights()
{
    static const auto table = makeWeights();
    return table.data();
}

} // namespace

bool lessAsText(QStringView left, QStringView right)
{
    const auto *weight = weights();
    const auto common = std::min(left.size(), right.size());
    const auto *a = left.utf16();
    const auto *b = right.utf16();
    for (qsizetype i = 0; i < common; ++i) {
        if (a[i] != b[i] && weight[a[i]] != weight[b[i]]) {
            return weight[a[i]] < weight[b[i]];
        }
    }
    return left.size() < right.size();
}

/// A character from outside the code page ends the prefix: one byte does not tell two of them apart.
quint64 textPrefix(QStringView text)
{
    constexpr qsizetype letters = sizeof(quint64);
    constexpr quint64 outside = 0xFF;
    const auto *weight = weights();
    quint64 prefix = 0;
    bool known = true;
    for (qsizetype i = 0; i < letters; ++i) {
        const quint64 next = known && i < text.size() ? weight[text[i].unicode()] : 0;
        known = known && next < outside;
        prefix = prefix << 8 | std::min(next, outside);
    }
    return prefix;
}

} // namespace ui
