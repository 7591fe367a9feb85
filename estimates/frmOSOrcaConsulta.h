#pragma once

#include "core/devolucao.h"
#include "estimates/orcamento.h"
#include "platform/ui/form.h"

#include <memory>
#include <vector>

namespace Ui
{
class frmOSOrcaConsulta;
}

namespace estimates
{

/// Lists estimates, shows one, prints it, and turns it into a work order. In the mode of the window that changes
/// estimates a double click picks one for it.
class frmOSOrcaConsulta : public ui::Form
{
    Q_OBJECT

public:
    frmOSOrcaConsulta();
    ~frmOSOrcaConsulta() override;

    void Form_Load() override;

    /// Where the number of an estimate goes, picked or by btnOSAltera, and what a new order is filled with.
    static std::vector<core::Devolucoes> devolucoes();

protected:
    bool event(QEvent *event) override;

private:
    void btnPesquisar_Click();
    void btnTodos_Click();
    void btnOSAdd_Click();
    void btnOSAltera_Click();
    void btnOSPrint_Click();
    void btnPrevisualizar_Click();
    void btnOSNovo_Click();
    void btnVoltar_Click();
    void Lista_Click(int linha);
    void Lista_DblClick(int linha);
    void habilitaBotoes();

    void enche(const QString &consulta);
    void mostraOrcamento(const QString &codigo);
    void mostra(const Orcamento &orcamento);
    Orcamento orcamentoMostrado() const;
    bool temOrcamento() const;
    bool conferePapel() const;

    std::unique_ptr<Ui::frmOSOrcaConsulta> ui_;
};

} // namespace estimates
