#pragma once

#include "registers/cadastro.h"

#include <memory>

namespace Ui
{
class frmCadaCliente;
}

namespace registers
{

/// The register of customers, and the picker of customers for vehicles, estimates, accounts and payments.
class frmCadaCliente : public Cadastro
{
    Q_OBJECT

public:
    frmCadaCliente();
    ~frmCadaCliente() override;

protected:
    void aoAbrir() override;
    bool confere(Gravacao gravacao) override;

private:
    void txtNome_LostFocus();
    void txtCEP_LostFocus();
    void txtCPF_LostFocus();

    std::unique_ptr<Ui::frmCadaCliente> ui_;
};

} // namespace registers
