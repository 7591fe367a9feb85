// Draws a vector picture as pixels: figuras IN.svg OUT.bmp|OUT.png WIDTHxHEIGHT
// A bitmap is one that the program loads, on white; a PNG is an icon of the desktop, on nothing.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

int fail(const QString &reason)
{
    std::fprintf(stderr, "figuras: %s\n", qPrintable(reason));
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    const auto size = arguments.size() == 4 ? arguments[3].split(u'x') : QStringList();
    if (size.size() != 2) {
        return fail(u"usage: figuras IN.svg OUT.bmp|OUT.png WIDTHxHEIGHT"_s);
    }

    QSvgRenderer renderer(arguments[1]);
    if (!renderer.isValid()) {
        return fail(u"no picture in %1"_s.arg(arguments[1]));
    }

    const bool icon = arguments[2].endsWith(u".png"_s);
    QImage image(size[0].toInt(), size[1].toInt(), icon ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.fill(icon ? Qt::transparent : Qt::white);
    // Fills the picture without distortion; what is left over on two sides is cut off.
    const QSizeF drawn = renderer.viewBoxF().size().scaled(image.size(), Qt::KeepAspectRatioByExpanding);
    QRectF place(QPointF(), drawn);
    place.moveCenter(QRectF(image.rect()).center());
    QPainter painter(&image);
    renderer.render(&painter, place);
    painter.end();
    return image.save(arguments[2], icon ? "PNG" : "BMP") ? 0 : fail(u"can't write %1"_s.arg(arguments[2]));
}
