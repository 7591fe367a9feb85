#pragma once

#include "core/previsualiza.h"
#include "platform/printer/surface.h"
#include "platform/ui/form.h"

#include <functional>
#include <memory>

namespace Ui
{
class frmRelaPreVisualiza;
}

namespace reports
{

class FolhaVista;

/// What page code draws a preview on: it hands its pages over when the document ends.
class FolhasPreVisualizadas : public printer::PagedSurface
{
public:
    std::function<void(std::vector<printer::Page>)> terminou;

    void EndDoc() override;

    /// Forgets what was drawn and not ended.
    void recomeca();
};

/// The preview of everything that is printed. It knows no report: it shows the pages that were drawn on its surface,
/// and asks the window that drew them to print, by adding 1 to that window's hidden `lblPrint`. The owner is told by
/// `ModoChamada`. The sheet is as wide as the window; Ctrl and the wheel, or Ctrl and +, - and 0, zoom. Page Up, Page
/// Down, Home and End turn the pages, Esc closes.
class frmRelaPreVisualiza : public ui::Form, public core::PreVisualizador
{
    Q_OBJECT

public:
    frmRelaPreVisualiza();
    ~frmRelaPreVisualiza() override;

    void Form_Load() override;
    printer::Surface &comecaPaginas() override;
    void mostraFolhas(int total, core::FonteDeFolhas folhas) override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void btnNext_Click();
    void btnBack_Click();
    void btnPrint_Click();
    void btnVoltar_Click();
    void primeiraPagina();
    void ultimaPagina();
    void lblPagina_Change();
    void barra_Change();

    void ligaTeclas();
    void tecla(const QKeySequence &sequencia, std::function<void()> acao);
    void rola(int pontos);
    void amplia(double fator);
    void vaiPara(int pagina);
    FolhaVista *pic(int pagina) const;
    QSizeF folha() const;
    void ajustaPapel();
    void ajustaBarras();
    void habilitaImpressao();
    void habilitaPaginas();

    std::unique_ptr<Ui::frmRelaPreVisualiza> ui_;
    FolhasPreVisualizadas folhas_;
    core::FonteDeFolhas fonte_;
    std::vector<FolhaVista *> pics_; ///< page 1 first
    double zoom_ = 1;                ///< 1 is the width of the window
};

} // namespace reports
