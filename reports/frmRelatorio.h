#pragma once

#include "platform/ui/form.h"
#include "reports/relatorio.h"

#include <memory>
#include <span>

namespace Ui
{
class frmRelatorio;
}

namespace reports
{

/// The window of all reports: one list and its three buttons. It shows the report of the catalogue whose mode it is
/// opened in; the list is filled once and then stands as it is, on the screen and on paper.
class frmRelatorio : public ui::Form
{
    Q_OBJECT

public:
    explicit frmRelatorio(std::span<const Relatorio> catalogo);
    ~frmRelatorio() override;

    void Form_Load() override;

private:
    void btnPrint_Click();
    void btnPrevisualizar_Click();
    void btnVoltar_Click();
    void lblPrint_Change();
    void Lista_DblClick(int linha);

    void preenche();
    void le();
    void imprime(core::Acao acao);

    std::unique_ptr<Ui::frmRelatorio> ui_;
    std::span<const Relatorio> catalogo_;
    const Relatorio *relatorio_ = nullptr;
};

} // namespace reports
