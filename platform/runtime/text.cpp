#include "platform/runtime/text.h"

#include "platform/runtime/error.h"

#include <algorithm>
#include <array>

namespace runtime
{

namespace
{

// The characters of the bytes 0x80 to 0x9F; all other bytes are the Unicode characters of their number.
constexpr std::array<char16_t, 32> westernBlock{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte of a character, or -1 where the code page has none.
int byteOf(char16_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return character;
    }
    const auto *found = std::find(westernBlock.begin(), westernBlock.end(), character);
    return found == westernBlock.end() ? -1 : static_cast<int>(found - westernBlock.begin()) + 0x80;
}

int byteOrMark(QChar character)
{
    const auto byte = byteOf(character.unicode());
    return byte < 0 ? '?' : byte;
}

QChar characterOf(char byte)
{
    const auto number = static_cast<unsigned char>(byte);
    if (number < 0x80 || number > 0x9F) {
        return char16_t{number};
    }
    return westernBlock[number - 0x80U];
}

void checkLength(qsizetype length)
{
    if (length < 0) {
        raise(5);
    }
}

// Capitals that the code page does not have, such as that of the micro sign, stay away.
QChar capital(QChar character)
{
    const auto upper = character.toUpper();
    return byteOf(character.unicode()) >= 0 && byteOf(upper.unicode()) >= 0 ? upper : character;
}

} // namespace

QString Left(const QString &text, qsizetype length)
{
    checkLength(length);
    return text.left(length);
}

QString Right(const QString &text, qsizetype length)
{
    checkLength(length);
    return text.right(length);
}

QString Mid(const QString &text, qsizetype start, qsizetype length)
{
    if (start < 1 || length < -1) {
        raise(5);
    }
    return text.mid(start - 1, length);
}

QString UCase(const QString &text)
{
    QString result = text;
    std::transform(result.cbegin(), result.cend(), result.begin(), capital);
    return result;
}

std::strong_ordering compareBinary(const QString &left, const QString &right)
{
    const auto common = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (const auto order = byteOrMark(left[i]) <=> byteOrMark(right[i]); std::is_neq(order)) {
            return order;
        }
    }
    return left.size() <=> right.size();
}

QByteArray toWestern(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const auto character : text) {
        bytes.append(static_cast<char>(byteOrMark(character)));
    }
    return bytes;
}

QString fromWestern(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), characterOf);
    return text;
}

} // namespace runtime
