// Copies pictures of windows for the manual, none wider than WIDTH and in few colours: reduz WIDTH FOLDER IN.png...
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QList>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype mostColours = 256;
constexpr int bestCompression = 0; // the writer takes a quality: the lower, the smaller the file

int fail(const QString &reason)
{
    std::fprintf(stderr, "reduz: %s\n", qPrintable(reason));
    return 1;
}

/// The colours that cover most of the picture. A window is drawn in few; the rest are the edges of its letters.
QList<QRgb> mainColours(const QImage &image)
{
    constexpr QRgb coarse = 0xfff8f8f8; // neighbours that nobody tells apart count as one
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y) & coarse];
        }
    }
    QList<std::pair<int, QRgb>> byCount;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour) {
        byCount.emplace_back(colour.value(), colour.key());
    }
    std::sort(byCount.rbegin(), byCount.rend()); // and by colour: one picture gives the same file every time
    QList<QRgb> colours;
    for (const auto &[count, colour] : byCount.first(std::min<qsizetype>(byCount.size(), mostColours))) {
        const QRgb fine = (colour >> 5) & 0xff070707; // white is white again
        colours << (colour | fine);
    }
    return colours;
}

bool reduce(const QString &source, const QString &target, int width)
{
    QImage image(source);
    if (image.isNull()) {
        return false;
    }
    if (image.width() > width) {
        image = image.scaledToWidth(width, Qt::SmoothTransformation);
    }
    image = image.convertToFormat(QImage::Format_RGB32);
    image = image.convertToFormat(QImage::Format_Indexed8, mainColours(image), Qt::AvoidDither);
    return image.save(target, "PNG", bestCompression);
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    const int width = arguments.value(1).toInt();
    const QDir folder(arguments.value(2));
    if (width <= 0 || arguments.size() < 4) {
        return fail(u"usage: reduz WIDTH FOLDER IN.png..."_s);
    }
    if (!folder.mkpath(u"."_s)) {
        return fail(u"can't make %1"_s.arg(folder.path()));
    }
    for (const auto &source : arguments.sliced(3)) {
        if (!reduce(source, folder.filePath(QFileInfo(source).fileName()), width)) {
            return fail(u"can't copy %1"_s.arg(source));
        }
    }
    return 0;
}
