#pragma once

#include "platform/ui/form.h"

#include <memory>
#include <optional>

namespace Ui
{
class frmMoviEntradaPecaConsulta;
}

namespace stock
{

/// The notes of all suppliers over a period, by their situation. The key P marks one as paid or takes that back;
/// nothing is posted by it. Opened from the report it shows the report's note among those of its period, and lets
/// nothing else be done with the list.
class frmMoviEntradaPecaConsulta : public ui::Form
{
    Q_OBJECT

public:
    frmMoviEntradaPecaConsulta();
    ~frmMoviEntradaPecaConsulta() override;

    void Form_Load() override;

private:
    void cboOS_Change();
    void txtDataInicio_Change();
    void txtDataFim_Change();
    void btnTodos_Click();
    void btnNovo_Click();
    void btnExcluir_Click();
    void btnOBS_Click();
    void btnVoltar_Click();
    void Lista_Click(int linha);
    void Lista_P();
    void habilitaBotoes();

    void abrePeriodo();
    void mostraNotaDoRelatorio();
    std::optional<qint32> escolhida() const;

    std::unique_ptr<Ui::frmMoviEntradaPecaConsulta> ui_;
    bool umaNota_ = false; ///< opened from the report
};

} // namespace stock
