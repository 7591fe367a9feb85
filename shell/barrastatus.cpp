#include "shell/barrastatus.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/locks.h"

#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace shell
{
namespace
{

void mostraTecla(QLabel &painel, const QString &tecla, bool ligada)
{
    painel.setEnabled(ligada);
    painel.setToolTip(tecla + (ligada ? u" ligado"_s : u" desligado"_s));
    painel.setAccessibleName(painel.toolTip());
}

} // namespace

BarraStatus::BarraStatus(QWidget *parent) : QStatusBar(parent), teclas_(new ui::Locks(this))
{
    for (int i = 0; i < Paineis; ++i) {
        if (i == Num) {
            mensagem_ = novoPainel(u"lblMensagem"_s, 1);
            andamento_ = novaBarra();
        }
        paineis_[i] = novoPainel(u"StatusBar_%1"_s.arg(i + 1));
    }
    paineis_[Num]->setText(u"NUM"_s);
    paineis_[Caps]->setText(u"CAPS"_s);
    atualizaTeclas();
    atualizaRelogio();
    connect(teclas_, &ui::Locks::changed, this, [this] { ui::Application::run([this] { atualizaTeclas(); }); });
    connect(&relogio_, &QTimer::timeout, this, [this] { ui::Application::run([this] { atualizaRelogio(); }); });
    relogio_.start(1s);
}

QLabel *BarraStatus::novoPainel(const QString &nome, int estica)
{
    auto *painel = new QLabel(this);
    painel->setObjectName(nome);
    painel->setContentsMargins(6, 2, 6, 2);
    addPermanentWidget(painel, estica);
    return painel;
}

/// As high as the panels are: the bar must not grow, and the windows above it not move, when it comes.
QProgressBar *BarraStatus::novaBarra()
{
    auto *barra = new QProgressBar(this);
    barra->setObjectName(u"barraAndamento"_s);
    barra->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    addPermanentWidget(barra, 1);
    barra->hide();
    return barra;
}

void BarraStatus::setOperador(qint16 codigo, const QString &nome)
{
    const QString texto = QString::number(codigo);
    paineis_[Operador]->setText(u"Operador: "_s + texto);
    paineis_[Operador]->setToolTip(runtime::UCase(nome));
    ui::setTagOf(paineis_[Operador], texto);
}

void BarraStatus::setPrograma(const QString &texto)
{
    paineis_[Programa]->setText(texto);
}

void BarraStatus::setMensagem(const QString &texto)
{
    mensagem_->setText(texto);
}

void BarraStatus::mostraAndamento(const QString &obra, int feitos, int total)
{
    if (!ampulheta_) {
        ampulheta_.emplace();
    }
    andamento_->setAccessibleName(obra);
    const QString quanto = total > 0 ? u"%p%"_s : runtime::Format(feitos, u"#,##0");
    andamento_->setFormat(obra + u": "_s + quanto);
    andamento_->setRange(0, std::max(total, 1));
    andamento_->setValue(std::min(feitos, total));
    mensagem_->hide();
    andamento_->show();
    repaint();
}

void BarraStatus::terminaAndamento()
{
    andamento_->hide();
    mensagem_->show();
    ampulheta_.reset();
    repaint();
}

void BarraStatus::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton && event->modifiers().testFlag(Qt::ShiftModifier)) {
        emit manutencao();
        return;
    }
    QStatusBar::mousePressEvent(event);
}

void BarraStatus::atualizaRelogio()
{
    const runtime::Date agora = runtime::Now();
    paineis_[Data]->setText(runtime::Format(agora, core::mascaraData));
    paineis_[Hora]->setText(runtime::Format(agora, u"hh:mm:ss"));
    teclas_->refresh();
}

void BarraStatus::atualizaTeclas()
{
    mostraTecla(*paineis_[Num], u"Num Lock"_s, teclas_->num());
    mostraTecla(*paineis_[Caps], u"Caps Lock"_s, teclas_->caps());
}

} // namespace shell
