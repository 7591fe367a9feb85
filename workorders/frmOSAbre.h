#pragma once

#include "core/devolucao.h"
#include "platform/ui/form.h"
#include "workorders/abertura.h"

#include <memory>
#include <vector>

namespace Ui
{
class frmOSAbre;
}

namespace workorders
{

/// Opens a work order: the vehicle brings its owner, the items are gathered in lists, and all of it is written at the
/// confirmation. Nothing else is touched: stock, cash and credit wait for the closing.
class frmOSAbre : public ui::Form
{
    Q_OBJECT

public:
    frmOSAbre();
    ~frmOSAbre() override;

    void Form_Load() override;

    /// Where the number of the new order goes, and what the quick register is filled with.
    static std::vector<core::Devolucoes> devolucoes();

private:
    void txtCodVeiculo_GotFocus();
    void txtCodVeiculo_LostFocus();
    void btnIncluir_Click();
    void btnCancelar_Click();
    void btnVoltar_Click();

    void veiculoDesconhecido();
    void cadastraVeiculo() const;
    bool confere();
    NovaOrdem ordem() const;
    void depoisDeGravar(qint32 numero);

    std::unique_ptr<Ui::frmOSAbre> ui_;
};

} // namespace workorders
