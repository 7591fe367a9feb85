#pragma once

#include "platform/printer/page.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace reports
{

/// One page of the preview. It is made when it comes to be shown, drawn at the size that it has on the screen, so that
/// it is sharp at any zoom, and takes no room while it is hidden. Paper is white whatever the colours of the desktop
/// are.
class FolhaVista : public QWidget
{
    Q_OBJECT

public:
    using Fonte = std::function<printer::Page()>;

    FolhaVista(Fonte fonte, QWidget *papel);

    void mostra();
    void esconde();

    /// What it shows, or would show.
    printer::Page pagina() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Fonte fonte_;
    std::optional<printer::Page> mostrada_;
};

} // namespace reports
