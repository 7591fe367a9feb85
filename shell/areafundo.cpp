#include "shell/areafundo.h"

#include "core/figuras.h"

#include <QPaintEvent>
#include <QPainter>

namespace shell
{
namespace
{

/// The whole area, without distortion; what is left over on two sides is cut off.
QRect lugarDoFundo(const QSize &figura, const QRect &area)
{
    QRect lugar({}, figura.scaled(area.size(), Qt::KeepAspectRatioByExpanding));
    lugar.moveCenter(area.center());
    return lugar;
}

} // namespace

AreaFundo::AreaFundo(QWidget *parent) : QMdiArea(parent)
{
    setActivationOrder(ActivationHistoryOrder); // a window that closes gives way to the one that called it
    setBackground(palette().brush(QPalette::Mid));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void AreaFundo::setFundo(const QString &arquivo)
{
    fundo_ = QPixmap::fromImage(core::LeFigura(arquivo));
    viewport()->update();
}

void AreaFundo::paintEvent(QPaintEvent *event)
{
    QMdiArea::paintEvent(event);
    if (!temFundo()) {
        return;
    }
    QPainter pintor(viewport());
    pintor.setClipRect(event->rect());
    pintor.setRenderHint(QPainter::SmoothPixmapTransform);
    pintor.drawPixmap(lugarDoFundo(fundo_.size(), viewport()->rect()), fundo_);
}

} // namespace shell
