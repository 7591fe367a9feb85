#pragma once

#include "estimates/orcamento.h"
#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmOSOrcaAltera;
}

namespace estimates
{

/// Changes or deletes an estimate. An item is written at once, with the estimate's total; the header waits for the
/// confirmation, which dates the estimate anew.
class frmOSOrcaAltera : public ui::Form
{
    Q_OBJECT

public:
    frmOSOrcaAltera();
    ~frmOSOrcaAltera() override;

    void Form_Load() override;

private:
    void txtCodOrcamento_GotFocus();
    void txtCodOrcamento_LostFocus();
    void btnIncluir_Click();
    void btnExcluir_Click();
    void btnPrint_Click();
    void btnCancelar_Click();
    void btnVoltar_Click();
    void travaItens();

    void carrega(const QString &texto);
    void esvazia();
    void mostra(const Orcamento &orcamento);
    bool carregado() const;
    qint32 numero() const;
    void recusaCodigo() const;

    std::unique_ptr<Ui::frmOSOrcaAltera> ui_;
};

} // namespace estimates
