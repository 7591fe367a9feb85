#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace shell
{

/// The main window's area with its picture: in the middle, never distorted, made smaller where the area is smaller.
/// What the picture leaves free has the palette's colour; on a dark desktop the picture is dimmed, so that it dazzles
/// nobody. Ctrl+F4 closes the window in front, Ctrl+F6 goes on to the next one and Ctrl+Shift+F6 back; a right click
/// beside the windows lists them.
class AreaFundo : public QMdiArea
{
    Q_OBJECT

public:
    explicit AreaFundo(QWidget *parent = nullptr);

    /// A picture that can't be read leaves the area without one.
    void setFundo(const QString &arquivo);
    bool temFundo() const { return !fundo_.isNull(); }

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void atalho(const QKeySequence &teclas, void (AreaFundo::*acao)());
    void fechaJanela();
    void proximaJanela();
    void janelaAnterior();
    void anda(qsizetype passos);

    QPixmap fundo_;
};

} // namespace shell
