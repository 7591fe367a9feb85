#pragma once

#include "platform/ui/form.h"

#include "core/devolucao.h"
#include "platform/runtime/value.h"
#include "registers/registro.h"

#include <memory>
#include <span>

namespace Ui
{
class frmCadaFast;
}

namespace dao
{
class Recordset;
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

    /// Where the code of the new vehicle goes, whatever the mode.
    static std::span<const core::Devolucao> devolucoes();

private:
    void txtNome_LostFocus();
    void txtCEP_Change();
    void txtFone1_Change();
    void txtCelular_Change();
    void cboMarca_Change();
    void txtAno_Change();
    void txtPlaca_LostFocus();
    void btnMarcaAdd_Click();
    void btnMarcaRemove_Click();
    void btnIncluir_Click();
    void btnVoltar_Click();

    void ligaEventos();
    void ligaCliente();
    QWidget *controle(QStringView nome) const;
    TextoDoControle textos() const;
    void limitaTextos(const QString &tabela, std::span<const Campo> campos) const;
    void mostraCliente(const dao::Recordset &cliente);
    void limpaCliente();
    bool confere();
    qint32 incluiCliente() const;
    qint32 incluiVeiculo(const runtime::Value &codCliente) const;

    std::unique_ptr<Ui::frmCadaFast> ui_;
};

} // namespace registers
