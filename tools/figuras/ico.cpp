#include "tools/figuras/ico.h"

#include <QBuffer>
#include <QDataStream>

namespace
{

constexpr quint16 planes = 1;
constexpr quint16 bitsOfAPixel = 32;

QByteArray png(const QImage &image)
{
    QByteArray content;
    QBuffer buffer(&content);
    image.save(&buffer, "PNG");
    return content;
}

QDataStream &littleEndian(QDataStream &stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
    return stream;
}

/// A bitmap without the head of a file, from the lowest line up, and behind it the mask of who knows no transparency.
QByteArray bitmap(const QImage &image)
{
    constexpr quint32 headSize = 40;
    constexpr int alphaOfTheMask = 128;
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const int edge = pixels.width();
    const int lineOfTheMask = (edge + 31) / 32 * 32;

    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    littleEndian(stream) << headSize << qint32(edge) << qint32(2 * edge) << planes << bitsOfAPixel;
    for (int rest = 0; rest < 6; ++rest) {
        stream << quint32(0); // no compression, and nothing about the device and its colours
    }
    for (int y = edge - 1; y >= 0; --y) {
        for (int x = 0; x < edge; ++x) {
            stream << quint32(pixels.pixel(x, y));
        }
    }
    for (int y = edge - 1; y >= 0; --y) {
        for (int first = 0; first < lineOfTheMask; first += 8) {
            quint8 byte = 0;
            for (int x = first; x < first + 8; ++x) {
                const bool through = x < edge && qAlpha(pixels.pixel(x, y)) < alphaOfTheMask;
                byte = quint8(byte << 1 | int(through)); // the leftmost pixel is the highest bit
            }
            stream << byte;
        }
    }
    return content;
}

} // namespace

QByteArray ico(const std::vector<QImage> &images)
{
    constexpr quint16 typeIcon = 1;
    constexpr quint32 headSize = 6;
    constexpr quint32 entrySize = 16;

    QByteArray content;
    QByteArray pictures;
    QDataStream stream(&content, QIODevice::WriteOnly);
    littleEndian(stream) << quint16(0) << typeIcon << quint16(images.size());
    for (const QImage &image : images) {
        const QByteArray picture = image.width() == largestIcon ? png(image) : bitmap(image);
        const auto edge = quint8(image.width()); // the largest is written as 0
        stream << edge << edge << quint8(0) << quint8(0) << planes << bitsOfAPixel << quint32(picture.size())
               << quint32(headSize + entrySize * images.size() + pictures.size());
        pictures += picture;
    }
    return content + pictures;
}
