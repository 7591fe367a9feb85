#include "reports/folhavista.h"

#include <QPainter>

#include <utility>

namespace reports
{

FolhaVista::FolhaVista(Fonte fonte, QWidget *papel) : QWidget(papel), fonte_(std::move(fonte))
{
    QWidget::hide();
}

/// What fails while the page is made must not do so under Qt, which is why painting comes too late for it.
void FolhaVista::mostra()
{
    if (!mostrada_) {
        mostrada_ = fonte_();
    }
    show();
}

void FolhaVista::esconde()
{
    hide();
    mostrada_.reset();
}

printer::Page FolhaVista::pagina() const
{
    return mostrada_ ? *mostrada_ : fonte_();
}

void FolhaVista::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (mostrada_) {
        painter.scale(width() / mostrada_->size().width(), height() / mostrada_->size().height());
        mostrada_->paint(painter);
    }
}

} // namespace reports
