#pragma once

#include "registers/cadastro.h"

#include <memory>

namespace Ui
{
class frmCadaFornecedor;
}

namespace registers
{

/// The register of suppliers, and their picker for the receipt of parts and for the queries of notes.
class frmCadaFornecedor : public Cadastro
{
    Q_OBJECT

public:
    frmCadaFornecedor();
    ~frmCadaFornecedor() override;

protected:
    void depoisDeDevolver() override;

private:
    void txtCEP_LostFocus();
    void txtCPF_LostFocus();

    std::unique_ptr<Ui::frmCadaFornecedor> ui_;
};

} // namespace registers
