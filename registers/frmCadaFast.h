#pragma once

#include "platform/ui/form.h"

#include "core/campos.h"
#include "core/devolucao.h"
#include "platform/runtime/value.h"

#include <memory>
#include <span>

namespace Ui
{
class frmCadaFast;
}

namespace registers
{

/// Creates a vehicle and, when needed, its customer on one screen, in the middle of opening a work order. A customer
/// that is known already is never changed here, whatever was edited on the screen.
class frmCadaFast : public ui::Form
{
    Q_OBJECT

public:
    frmCadaFast();
    ~frmCadaFast() override;

    void Form_Load() override;

    /// Where the code of the new vehicle goes.
    static std::vector<core::Devolucoes> devolucoes();

private:
    void txtNome_LostFocus();
    void txtPlaca_LostFocus();
    void btnIncluir_Click();
    void btnVoltar_Click();

    void ligaEventos();
    void ligaCliente();
    void limpaCliente();
    qint32 incluiCliente() const;
    qint32 incluiVeiculo(const runtime::Value &codCliente) const;

    std::unique_ptr<Ui::frmCadaFast> ui_;
    core::Campos cliente_;
    core::Campos veiculo_;
};

} // namespace registers
