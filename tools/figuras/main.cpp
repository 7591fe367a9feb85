// Draws a vector picture as pixels: figuras IN.svg OUT.bmp|OUT.png WIDTHxHEIGHT, figuras IN.svg OUT.ico EDGE,EDGE...
// A bitmap is one that the program loads, on white; a PNG is an icon of the desktop, on nothing; an ICO is the icon of
// a program of Windows, in squares of several sizes.
#include "tools/figuras/ico.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

int fail(const QString &reason)
{
    std::fprintf(stderr, "figuras: %s\n", qPrintable(reason));
    return 1;
}

/// Fills the picture without distortion; what is left over on two sides is cut off.
QImage draw(QSvgRenderer &renderer, QSize size, bool onNothing)
{
    QImage image(size, onNothing ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.fill(onNothing ? Qt::transparent : Qt::white);
    const QSizeF drawn = renderer.viewBoxF().size().scaled(image.size(), Qt::KeepAspectRatioByExpanding);
    QRectF place(QPointF(), drawn);
    place.moveCenter(QRectF(image.rect()).center());
    QPainter painter(&image);
    renderer.render(&painter, place);
    return image;
}

/// "16,32,256"; nothing where one of them is no size of an icon.
std::vector<int> edgesOf(const QString &text)
{
    std::vector<int> edges;
    for (const QString &part : text.split(u',')) {
        const int edge = part.toInt();
        if (edge < 1 || edge > largestIcon) {
            return {};
        }
        edges.push_back(edge);
    }
    return edges;
}

bool saveIcon(QSvgRenderer &renderer, const QString &path, const std::vector<int> &edges)
{
    std::vector<QImage> images;
    for (const int edge : edges) {
        images.push_back(draw(renderer, {edge, edge}, true));
    }
    QFile file(path);
    const QByteArray content = ico(images);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

bool savePicture(QSvgRenderer &renderer, const QString &path, QSize size)
{
    const bool icon = path.endsWith(u".png"_s);
    return draw(renderer, size, icon).save(path, icon ? "PNG" : "BMP");
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    const QString sizes = arguments.value(3);
    const auto size = sizes.split(u'x');
    const bool icon = arguments.value(2).endsWith(u".ico"_s);
    const auto edges = icon ? edgesOf(sizes) : std::vector<int>();
    if (arguments.size() != 4 || (icon ? edges.empty() : size.size() != 2)) {
        return fail(u"usage: figuras IN.svg OUT.bmp|OUT.png WIDTHxHEIGHT, or IN.svg OUT.ico EDGE,EDGE..."_s);
    }

    QSvgRenderer renderer(arguments[1]);
    if (!renderer.isValid()) {
        return fail(u"no picture in %1"_s.arg(arguments[1]));
    }
    const bool saved = icon ? saveIcon(renderer, arguments[2], edges)
                            : savePicture(renderer, arguments[2], {size[0].toInt(), size[1].toInt()});
    return saved ? 0 : fail(u"can't write %1"_s.arg(arguments[2]));
}
