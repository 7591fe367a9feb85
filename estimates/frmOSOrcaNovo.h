#pragma once

#include "estimates/orcamento.h"
#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmOSOrcaNovo;
}

namespace estimates
{

/// Writes an estimate: a customer who need not be in the register, a vehicle as free text, one list of items. All of it
/// is written at the confirmation, and no finance or stock table ever.
class frmOSOrcaNovo : public ui::Form
{
    Q_OBJECT

public:
    frmOSOrcaNovo();
    ~frmOSOrcaNovo() override;

    void Form_Load() override;

private:
    void btnIncluir_Click();
    void btnPrint_Click();
    void btnCancelar_Click();
    void btnVoltar_Click();

    Orcamento orcamento() const;
    void ofereceImpressao(qint32 numero);
    void imprime(const QString &codigo) const;

    std::unique_ptr<Ui::frmOSOrcaNovo> ui_;
};

} // namespace estimates
