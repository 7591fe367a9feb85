// Copies pictures of windows for the manual, none wider than WIDTH: reduz WIDTH FOLDER IN.png...
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

constexpr int bestCompression = 0; // the writer takes a quality: the lower, the smaller the file

int fail(const QString &reason)
{
    std::fprintf(stderr, "reduz: %s\n", qPrintable(reason));
    return 1;
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
    return image.convertToFormat(QImage::Format_RGB32).save(target, "PNG", bestCompression);
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
