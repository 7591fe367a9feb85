#pragma once

#include "reports/janelaselecao.h"

#include <memory>

namespace Ui
{
class frmRelaSelecaoNotasEntradas;
}

namespace core
{
class CaixaDeCodigo;
}

namespace reports
{

/// Asks for a supplier besides the period and the situation. By the mode it leads to the query of that supplier's
/// notes, or to their report as any other selection window does.
class frmRelaSelecaoNotasEntradas : public JanelaSelecao
{
    Q_OBJECT

public:
    frmRelaSelecaoNotasEntradas();
    ~frmRelaSelecaoNotasEntradas() override;

    void Form_Load() override;

protected:
    void btnPreenche_Click() override;

private:
    void btnFornecedorFind_Click();

    void ligaFornecedor();

    std::unique_ptr<Ui::frmRelaSelecaoNotasEntradas> ui_;
    core::CaixaDeCodigo *fornecedor_ = nullptr; ///< goes with txtCodForn
};

} // namespace reports
