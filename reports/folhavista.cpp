#include "reports/folhavista.h"

#include <QPainter>

#include <utility>

namespace reports
{

FolhaVista::FolhaVista(printer::Page pagina, QWidget *papel) : QWidget(papel), pagina_(std::move(pagina)) {}

void FolhaVista::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.scale(width() / pagina_.size().width(), height() / pagina_.size().height());
    pagina_.paint(painter);
}

} // namespace reports
