#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmConfigOrcamento;
}

namespace shell
{

/// What an estimate shows of the payment, and its closing lines. `opt5` belongs to no key: the choice of `opt4` goes to
/// two.
class frmConfigOrcamento : public ui::Form
{
    Q_OBJECT

public:
    frmConfigOrcamento();
    ~frmConfigOrcamento() override;

    void Form_Load() override;

private:
    void btnGravar_Click();
    void btnCancelar_Click();

    std::unique_ptr<Ui::frmConfigOrcamento> ui_;
};

} // namespace shell
