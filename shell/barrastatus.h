#pragma once

#include "platform/ui/wait.h"

#include <QStatusBar>
#include <QTimer>

#include <array>
#include <optional>

class QLabel;
class QProgressBar;

namespace ui
{
class Locks;
}

namespace shell
{

/// The main window's status bar. Panels `StatusBar_1` to `StatusBar_6`: operator, program, NUM, CAPS, date, time;
/// between the program and NUM stands the last message, or the progress of a long work. Date and time go on each
/// second.
class BarraStatus : public QStatusBar
{
    Q_OBJECT

public:
    explicit BarraStatus(QWidget *parent = nullptr);

    /// "Operador: " and the code, which is also the panel's tag; the name in capitals is its tool tip.
    void setOperador(qint16 codigo, const QString &nome);
    void setPrograma(const QString &texto);
    void setMensagem(const QString &texto);

    /// Shows in the place of the message how far a long work is, with the waiting pointer. It is painted at once, as
    /// no event is run meanwhile. Without a total it shows how much is done.
    void mostraAndamento(const QString &obra, int feitos, int total);
    void terminaAndamento();

signals:
    /// The right button pressed with Shift held, anywhere on the bar.
    void manutencao();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    enum Painel { Operador, Programa, Num, Caps, Data, Hora, Paineis };

    QLabel *novoPainel(const QString &nome, int estica = 0);
    QProgressBar *novaBarra();
    void atualizaRelogio();
    void atualizaTeclas();

    std::array<QLabel *, Paineis> paineis_{};
    QLabel *mensagem_ = nullptr;
    QProgressBar *andamento_ = nullptr;
    std::optional<ui::Hourglass> ampulheta_;
    ui::Locks *teclas_;
    QTimer relogio_;
};

} // namespace shell
