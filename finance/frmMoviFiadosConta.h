#pragma once

#include "core/movimento.h"
#include "platform/dao/recordset.h"

#include <memory>
#include <optional>

namespace Ui
{
class frmMoviFiadosConta;
}

namespace finance
{

/// The running account of a customer who pays later: what he was charged, what he paid, and what he owes after each
/// row. Opened on one customer, or on all who have an account, one after the other. Each row added, changed or deleted
/// here recalculates the account of that customer.
class frmMoviFiadosConta : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviFiadosConta();
    ~frmMoviFiadosConta() override;

    void Form_Load() override;

protected:
    QString dono() const override;
    QString consulta() const override;
    void limpa() override;

private:
    void Form_Unload();
    void lblCodigo_Change();
    void btnClienteFind_Click();
    void btnClienteInfo_Click();
    void btnProximo_Click();
    void btnAnterior_Click();
    void btnTodos_Click();

    void habilita();
    void abreCliente();
    void abreClientes();
    void anda(void (dao::Recordset::*passo)(), bool (dao::Recordset::*fim)() const, void (dao::Recordset::*volta)());
    QString clienteDaLinha() const;
    void mostraCliente();

    std::unique_ptr<Ui::frmMoviFiadosConta> ui_;
    std::optional<dao::Recordset> clientes_; ///< who have an account, a row for each of its rows; kept in that mode
};

} // namespace finance
