#include "shell/areafundo.h"

#include "core/figuras.h"
#include "platform/ui/application.h"
#include "platform/ui/forms.h"
#include "platform/ui/style.h"

#include <QContextMenuEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

constexpr int veuNoEscuro = 190;

/// The whole area, without distortion; what is left over on two sides is cut off.
QRect lugarDoFundo(const QSize &figura, const QRect &area)
{
    QRect lugar({}, figura.scaled(area.size(), Qt::KeepAspectRatioByExpanding));
    lugar.moveCenter(area.center());
    return lugar;
}

void traz(QMdiArea &area, QMdiSubWindow &janela)
{
    if (janela.isMinimized()) {
        janela.showNormal();
    }
    area.setActiveSubWindow(&janela);
}

/// The part of the caption that differs, behind a number to press.
QString itemDe(const QMdiSubWindow &janela, qsizetype numero)
{
    return u"&%1 %2"_s.arg(numero).arg(ui::captionTail(janela.widget()->windowTitle()).replace(u'&', u"&&"_s));
}

void acrescentaJanela(QMenu &menu, QMdiArea &area, QMdiSubWindow &janela)
{
    const auto numero = menu.actions().size() + 1;
    auto *acao = menu.addAction(itemDe(janela, numero));
    acao->setObjectName(u"itmJanela_%1"_s.arg(numero));
    acao->setCheckable(true);
    acao->setChecked(&janela == area.activeSubWindow());
    QObject::connect(acao, &QAction::triggered, &janela,
                     [&area, &janela] { ui::Application::run([&] { traz(area, janela); }); });
}

} // namespace

AreaFundo::AreaFundo(QWidget *parent) : QMdiArea(parent)
{
    setActivationOrder(ActivationHistoryOrder); // a window that closes gives way to the one that called it
    setBackground(palette().brush(QPalette::Mid));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    atalho(Qt::CTRL | Qt::Key_F4, &AreaFundo::fechaJanela);
    atalho(Qt::CTRL | Qt::Key_F6, &AreaFundo::proximaJanela);
    atalho(Qt::CTRL | Qt::SHIFT | Qt::Key_F6, &AreaFundo::janelaAnterior);
}

/// Where the frame of a window has the same keys for itself, they are ambiguous and mean the same.
void AreaFundo::atalho(const QKeySequence &teclas, void (AreaFundo::*acao)())
{
    auto *novo = new QShortcut(teclas, this);
    const auto age = [this, acao] { ui::Application::run([=, this] { (this->*acao)(); }); };
    connect(novo, &QShortcut::activated, this, age);
    connect(novo, &QShortcut::activatedAmbiguously, this, age);
}

void AreaFundo::fechaJanela()
{
    closeActiveSubWindow();
}

void AreaFundo::proximaJanela()
{
    anda(1);
}

void AreaFundo::janelaAnterior()
{
    anda(-1);
}

/// In the order of opening: by the order of use one would go to and fro between two windows.
void AreaFundo::anda(qsizetype passos)
{
    const auto janelas = subWindowList(CreationOrder);
    if (const auto ativa = janelas.indexOf(activeSubWindow()); ativa >= 0) {
        setActiveSubWindow(janelas.at((ativa + passos + janelas.size()) % janelas.size()));
    }
}

void AreaFundo::contextMenuEvent(QContextMenuEvent *event)
{
    const auto janelas = subWindowList(CreationOrder);
    if (janelas.isEmpty()) {
        return;
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(u"mnuJanelas"_s);
    for (auto *janela : janelas) {
        acrescentaJanela(*menu, *this, *janela);
    }
    menu->popup(event->globalPos());
}

void AreaFundo::setFundo(const QString &arquivo)
{
    fundo_ = QPixmap::fromImage(core::LeFigura(arquivo));
    viewport()->update();
}

/// A desktop may turn dark while the program runs.
void AreaFundo::changeEvent(QEvent *event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        setBackground(palette().brush(QPalette::Mid));
    }
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
    if (ui::isDark(palette())) {
        QColor veu = palette().color(QPalette::Window);
        veu.setAlpha(veuNoEscuro);
        pintor.fillRect(event->rect(), veu);
    }
}

} // namespace shell
