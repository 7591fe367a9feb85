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
    void txtPlaca_LostFocus();
    void btnClienteAdd_Click();
    void btnClienteInfo_Click();

    void ligaCliente();

    std::unique_ptr<Ui::frmCadaVeiculos> ui_;
};

} // namespace registers
