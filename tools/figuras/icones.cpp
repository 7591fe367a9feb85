// Draws the icons of the program into two themes, for a light and for a dark ground, as files of a resource:
// icones NAMES.txt OWN_FOLDER THEMES_FOLDER OUT_FOLDER
//
// A name is looked for among the program's own pictures first, then in the Breeze themes. Each is drawn in the sizes
// that the windows show, and at twice the scale from the same picture, so that no system shows another set.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

struct Theme {
    QString name;
    QString source;
    QByteArray ink; ///< the colour of what the own pictures draw in the light one's ink
};

const QByteArray lightInk = "#232629";
const std::array themes{Theme{u"tarvelo"_s, u"breeze"_s, lightInk},
                        Theme{u"tarvelo-dark"_s, u"breeze-dark"_s, "#eff0f1"}};
constexpr std::array sizes{16, 22, 24, 32, 48};
constexpr std::array scales{1, 2};

/// Where the source lacks the size 24, its pictures of 22 stand in the middle of the square: their lines stay sharp.
constexpr int squareOf22 = 24;

struct Failure {
    QString reason;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Failure{u"can't read %1"_s.arg(path)};
    }
    return file.readAll();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        throw Failure{u"can't write %1"_s.arg(path)};
    }
}

/// The pictures of a name in a theme, by their size.
QMap<int, QString> picturesOf(const QString &name, const QDir &theme)
{
    QMap<int, QString> found;
    for (const auto &kind : theme.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QDir folder(theme.filePath(kind));
        for (const auto &size : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QString path = folder.filePath(size + u'/' + name + u".svg");
            bool plain = false;
            const int pixels = size.toInt(&plain);
            if (plain && !found.contains(pixels) && QFile::exists(path)) {
                found.insert(pixels, path);
            }
        }
    }
    return found;
}

/// The picture that is drawn for a size: the one made for it, or the next larger, or the largest.
QString bestOf(const QMap<int, QString> &pictures, int size)
{
    const auto next = pictures.lowerBound(size == squareOf22 && pictures.contains(22) ? 22 : size);
    return next == pictures.end() ? pictures.last() : next.value();
}

QImage draw(const QByteArray &picture, int size, int scale, const QString &name)
{
    QSvgRenderer renderer(picture);
    if (!renderer.isValid()) {
        throw Failure{u"no picture in %1"_s.arg(name)};
    }
    QImage image(size * scale, size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const int edge = size == squareOf22 && renderer.defaultSize().width() == 22 ? scale : 0;
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()).adjusted(edge, edge, -edge, -edge));
    return image;
}

QString folderOf(int size, int scale)
{
    const QString folder = u"%1x%1"_s.arg(size);
    return scale == 1 ? folder : folder + u'@' + QString::number(scale);
}

/// The content of `index.theme`, by which Qt finds the picture for a size.
QByteArray indexOf(const QString &theme)
{
    QString list;
    QString folders;
    for (const int scale : scales) {
        for (const int size : sizes) {
            const QString folder = folderOf(size, scale);
            list += list.isEmpty() ? folder : u","_s + folder;
            folders += u"\n[%1]\nSize=%2\nScale=%3\nType=Fixed\n"_s.arg(folder).arg(size).arg(scale);
        }
    }
    return u"[Icon Theme]\nName=%1\nDirectories=%2\n%3"_s.arg(theme, list, folders).toUtf8();
}

class Drawing
{
public:
    Drawing(QString own, QString sources, QString out)
        : own_(std::move(own)), sources_(std::move(sources)), out_(std::move(out))
    {
    }

    void theme(const Theme &theme, const QStringList &names)
    {
        for (const auto &name : names) {
            icon(theme, name);
        }
        add(theme.name + u"/index.theme", indexOf(theme.name));
    }

    /// The list of all files for the resource compiler.
    void finish() const
    {
        QString entries;
        for (const auto &file : files_) {
            entries += u"  <file>%1</file>\n"_s.arg(file);
        }
        write(out_ + u"/icones.qrc",
              u"<RCC>\n <qresource prefix=\"/icones\">\n%1 </qresource>\n</RCC>\n"_s.arg(entries).toUtf8());
    }

private:
    void icon(const Theme &theme, const QString &name)
    {
        const QString own = own_ + u'/' + name + u".svg";
        const bool isOwn = QFile::exists(own);
        const auto pictures =
            isOwn ? QMap<int, QString>{{1, own}} : picturesOf(name, QDir(sources_ + u'/' + theme.source));
        if (pictures.isEmpty()) {
            throw Failure{u"no icon %1 in %2"_s.arg(name, theme.source)};
        }
        for (const int size : sizes) {
            auto picture = contentOf(bestOf(pictures, size));
            if (isOwn) {
                picture.replace(lightInk, theme.ink);
            }
            for (const int scale : scales) {
                const auto image = draw(picture, size, scale, name);
                save(theme.name + u'/' + folderOf(size, scale) + u'/' + name + u".png", image);
            }
        }
    }

    void save(const QString &file, const QImage &image)
    {
        const QString path = out_ + u'/' + file;
        QDir().mkpath(path.section(u'/', 0, -2));
        if (!image.save(path, "PNG")) {
            throw Failure{u"can't write %1"_s.arg(path)};
        }
        files_.append(file);
    }

    void add(const QString &file, const QByteArray &content)
    {
        write(out_ + u'/' + file, content);
        files_.append(file);
    }

    QString own_;
    QString sources_;
    QString out_;
    QStringList files_;
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    try {
        if (arguments.size() != 5) {
            throw Failure{u"usage: icones NAMES.txt OWN_FOLDER THEMES_FOLDER OUT_FOLDER"_s};
        }
        const auto names = QString::fromUtf8(contentOf(arguments[1])).split(u'\n', Qt::SkipEmptyParts);
        Drawing drawing(arguments[2], arguments[3], arguments[4]);
        for (const auto &theme : themes) {
            drawing.theme(theme, names);
        }
        drawing.finish();
        return 0;
    } catch (const Failure &failure) {
        std::fprintf(stderr, "icones: %s\n", qPrintable(failure.reason));
        return 1;
    }
}
