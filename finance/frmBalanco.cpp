#include "finance/frmBalanco.h"

#include "ui_frmBalanco.h"

#include "core/modulo.h"
#include "core/periodo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/style.h"
#include "platform/ui/wait.h"

#include <QEvent>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int linhas = static_cast<int>(linhasDoBalanco);
constexpr int colunas = static_cast<int>(figuras);

/// The element of a control array in a window.
template<class Controle>
Controle *elemento(const QWidget &janela, const QString &nome)
{
    auto *achado = janela.findChild<Controle *>(nome);
    Q_ASSERT_X(achado, "frmBalanco", qPrintable(nome));
    return achado;
}

ui::Label *figura(const QWidget &janela, const QString &linha, int coluna)
{
    return elemento<ui::Label>(janela, linha + u'_' + QString::number(coluna));
}

QString nomeDaLinha(int linha)
{
    return u"lblLinha"_s + QString::number(linha);
}

QCheckBox *marca(const QWidget &janela, int linha)
{
    return elemento<QCheckBox>(janela, u"chk"_s + QString::number(linha));
}

bool negativo(const QString &texto)
{
    return !texto.isEmpty() && runtime::CDbl(texto) < 0;
}

} // namespace

frmBalanco::frmBalanco() : Form(u"frmBalanco"_s), ui_(std::make_unique<Ui::frmBalanco>())
{
    ui_->setupUi(this);
    onClick(ui_->btnPreenche, &frmBalanco::btnPreenche_Click);
    onClick(ui_->btnCalcular, &frmBalanco::btnCalcular_Click);
    onClick(ui_->btnVoltar, &frmBalanco::btnVoltar_Click);
    for (int linha = 1; linha <= linhas; ++linha) {
        onClick(marca(*this, linha), &frmBalanco::btnCalcular_Click);
    }
    for (int coluna = 0; coluna < colunas; ++coluna) {
        onChange(figura(*this, u"lblTotal"_s, coluna), &frmBalanco::lblTotal_Change, coluna);
    }
}

frmBalanco::~frmBalanco() = default;

void frmBalanco::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Balanço Geral]"_s));
    AbrePeriodo(*this, {.diasAntes = 30});
    ui_->txtDataInicio->setFocus();
}

void frmBalanco::btnPreenche_Click()
{
    const ui::Hourglass ampulheta;
    const Balanco balanco = LeBalanco(PeriodoSQL(*this));
    for (int linha = 1; linha <= linhas; ++linha) {
        mostra(nomeDaLinha(linha), balanco[static_cast<std::size_t>(linha) - 1]);
    }
}

void frmBalanco::btnCalcular_Click()
{
    std::array<LinhaContada, linhasDoBalanco> contadas;
    for (int linha = 1; linha <= linhas; ++linha) {
        contadas[static_cast<std::size_t>(linha) - 1] = {figurasDe(linha), marca(*this, linha)->isChecked()};
    }
    mostra(u"lblTotal"_s, TotalDoBalanco(contadas));
}

void frmBalanco::btnVoltar_Click()
{
    Unload();
}

/// Red for the eye; the sign in front of the figure and its tool tip say the same.
void frmBalanco::lblTotal_Change(int coluna)
{
    ui::Label *rotulo = figura(*this, u"lblTotal"_s, coluna);
    const bool abaixo = negativo(rotulo->text());
    rotulo->setToolTip(abaixo ? u"Total negativo"_s : QString());
    ui::setTone(*rotulo, abaixo ? ui::Tone::Warning : ui::Tone::Normal);
}

/// A desktop that turns dark or light takes the colours of the totals along.
void frmBalanco::changeEvent(QEvent *event)
{
    Form::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) {
        return;
    }
    for (int coluna = 0; coluna < colunas; ++coluna) {
        lblTotal_Change(coluna);
    }
}

LinhaDoBalanco frmBalanco::figurasDe(int linha) const
{
    LinhaDoBalanco textos;
    for (int coluna = 0; coluna < colunas; ++coluna) {
        textos[static_cast<std::size_t>(coluna)] = figura(*this, nomeDaLinha(linha), coluna)->text();
    }
    return textos;
}

void frmBalanco::mostra(const QString &linha, const LinhaDoBalanco &textos)
{
    for (int coluna = 0; coluna < colunas; ++coluna) {
        figura(*this, linha, coluna)->setText(textos[static_cast<std::size_t>(coluna)]);
    }
}

} // namespace finance
