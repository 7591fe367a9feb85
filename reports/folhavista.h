#pragma once

#include "platform/printer/page.h"

#include <QWidget>

namespace reports
{

/// One page of the preview. It is drawn each time it is shown, at the size that it has on the screen, so that it is
/// sharp at any zoom and takes no room while it is hidden. Paper is white whatever the colours of the desktop are.
class FolhaVista : public QWidget
{
    Q_OBJECT

public:
    FolhaVista(printer::Page pagina, QWidget *papel);

    const printer::Page &pagina() const { return pagina_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    printer::Page pagina_;
};

} // namespace reports
