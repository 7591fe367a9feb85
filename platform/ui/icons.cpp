#include "platform/ui/controls.h"
#include "platform/ui/style.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr int drawnSize = 32;

QString themeForPalette()
{
    return isDark(QGuiApplication::palette()) ? u"breeze-dark"_s : u"breeze"_s;
}

/// Off screen nobody tells Qt where the system keeps its icons.
void searchSystem()
{
    auto paths = QIcon::themeSearchPaths();
    for (const auto &path :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory)) {
        if (!paths.contains(path)) {
            paths.append(path);
        }
    }
    QIcon::setThemeSearchPaths(paths);
}

/// One look everywhere: desktops without a theme have no icons at all, and those with one lack many names.
void chooseTheme()
{
    const auto theme = themeForPalette();
    if (QIcon::themeName() != theme) {
        searchSystem();
        QIcon::setFallbackThemeName(QIcon::themeName());
        QIcon::setThemeName(theme);
    }
}

/// A framed capital: the first letter of the last word of the name.
QIcon drawnIcon(const QString &name)
{
    QPixmap picture(drawnSize, drawnSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::WindowText), 2));
    const auto frame = picture.rect().adjusted(3, 3, -3, -3);
    painter.drawRoundedRect(frame, 4, 4);
    painter.drawText(frame, Qt::AlignCenter, name.section(u'-', -1).left(1).toUpper());
    return picture;
}

} // namespace

QIcon icon(const QString &name)
{
    chooseTheme();
    const auto themed = QIcon::fromTheme(name);
    return themed.isNull() ? drawnIcon(name) : themed;
}

} // namespace ui
