#include "platform/ui/icons.h"

#include "platform/ui/controls.h"
#include "platform/ui/style.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

using namespace Qt::StringLiterals;

/// The linker leaves out a resource of a library that nobody asks for; its name is known outside of all namespaces
/// only.
static void loadPictures()
{
    Q_INIT_RESOURCE(icones);
}

namespace ui
{

namespace
{

constexpr int drawnSize = 32;

void chooseTheme()
{
    const auto theme = isDark(QGuiApplication::palette()) ? u"tarvelo-dark"_s : u"tarvelo"_s;
    if (QIcon::themeName() != theme) {
        QIcon::setThemeName(theme);
    }
}

class PaletteWatch : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject * /*object*/, QEvent *event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange) {
            chooseTheme();
        }
        return false;
    }
};

/// An empty frame: a name that is not in the set must not leave a button without a picture.
QIcon emptyFrame()
{
    QPixmap picture(drawnSize, drawnSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::WindowText), 2));
    painter.drawRoundedRect(picture.rect().adjusted(3, 3, -3, -3), 4, 4);
    return picture;
}

} // namespace

void installIcons(QApplication &application)
{
    loadPictures();
    QIcon::setThemeSearchPaths({u":/icones"_s});
    chooseTheme();
    application.installEventFilter(new PaletteWatch(&application));
}

QIcon icon(const QString &name)
{
    const auto themed = QIcon::fromTheme(name);
    return themed.isNull() ? emptyFrame() : themed;
}

} // namespace ui
