#include "platform/jet/text.h"

namespace jet
{

namespace
{

bool isCompressed(Bytes bytes)
{
    return bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
}

// A zero byte changes over between one and two bytes a character.
std::optional<QString> expanded(Bytes bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    bool twoBytes = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == 0) {
            twoBytes = !twoBytes;
        } else if (!twoBytes) {
            text.append(QChar(quint16{bytes[i]}));
        } else if (i + 1 < bytes.size()) {
            text.append(QChar(numberAt<quint16>(bytes, static_cast<int>(i))));
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return text;
}

} // namespace

std::optional<QString> decodeText(Bytes bytes)
{
    if (isCompressed(bytes)) {
        return expanded(bytes.subspan(2));
    }
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    QString text(static_cast<qsizetype>(bytes.size() / 2), Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.data(), text.size(), text.data());
    return text;
}

} // namespace jet
