#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace shell
{

/// The main window's area with its picture: in the middle, never distorted, made smaller where the area is smaller.
/// What the picture leaves free has the palette's colour.
class AreaFundo : public QMdiArea
{
    Q_OBJECT

public:
    explicit AreaFundo(QWidget *parent = nullptr);

    /// A picture that can't be read leaves the area without one.
    void setFundo(const QString &arquivo);
    bool temFundo() const { return !fundo_.isNull(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap fundo_;
};

} // namespace shell
