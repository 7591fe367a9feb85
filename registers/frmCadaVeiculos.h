#pragma once

#include "registers/cadastro.h"

#include <memory>

namespace Ui
{
class frmCadaVeiculos;
}

namespace registers
{

/// The register of the customers' vehicles, and their picker for opening a work order.
class frmCadaVeiculos : public Cadastro
{
    Q_OBJECT

public:
    frmCadaVeiculos();
    ~frmCadaVeiculos() override;

protected:
    void limpa() override;

private:
    void txtCodCliente_LostFocus();
    void txtPlaca_LostFocus();
    void btnClienteFind_Click();
    void btnClienteAdd_Click();
    void btnClienteInfo_Click();

    std::unique_ptr<Ui::frmCadaVeiculos> ui_;
};

} // namespace registers
