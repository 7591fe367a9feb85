#pragma once

#include "core/devolucao.h"
#include "platform/ui/form.h"
#include "workorders/ordem.h"

#include <memory>
#include <vector>

namespace Ui
{
class frmOSConsulta;
}

namespace dao
{
class Recordset;
}

namespace workorders
{

/// Lists work orders, shows one in full, and is the door to altering, closing and printing. One window for five uses,
/// told by `ModoChamada`: looking (0), closing (9), one order of a ledger (10), and picking for the alteration (7) and
/// the notes (40).
class frmOSConsulta : public ui::Form
{
    Q_OBJECT

public:
    frmOSConsulta();
    ~frmOSConsulta() override;

    void Form_Load() override;

    /// The order as it stands in the labels and lists, which is what is printed.
    OrdemMostrada ordemMostrada() const;

    /// Where the number of an order goes, picked or by btnOSAltera, and what the payment is filled with.
    static std::vector<core::Devolucoes> devolucoes();

protected:
    bool event(QEvent *event) override;

private:
    void btnPesquisar_Click();
    void btnTodos_Click();
    void cboOS_Change();
    void btnFechar_Click();
    void btnOSAdd_Click();
    void btnOSAltera_Click();
    void btnOSPrint_Click();
    void btnPrevisualizar_Click();
    void btnPagtoInfo_Click();
    void btnClienteInfo_Click();
    void btnVeiculoInfo_Click();
    void btnVoltar_Click();
    void Lista_Click(int linha);
    void Lista_DblClick(int linha);
    void lblObs_Change();
    void habilitaBotoes();

    void montaListas();
    void aplicaModo();
    void enche(const QString &consulta);
    void esvaziaOrdem();
    void mostraOrdem(const QString &codigo);
    void mostraCabecalho(const dao::Recordset &ordem);
    void mostraTotais();
    bool temOrdem() const;

    std::unique_ptr<Ui::frmOSConsulta> ui_;
};

} // namespace workorders
