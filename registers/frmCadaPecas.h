#pragma once

#include "registers/cadastro.h"

#include <memory>

namespace Ui
{
class frmCadaPecas;
}

namespace registers
{

/// The register of parts and services, and their picker for orders, receipts and the stock. The present stock is shown
/// but never changed here; a part that goes takes its ledger with it.
class frmCadaPecas : public Cadastro
{
    Q_OBJECT

public:
    frmCadaPecas();
    ~frmCadaPecas() override;

protected:
    void aoAbrir() override;
    bool confere(Gravacao gravacao) override;
    qint32 inclui() override;
    QString textoGravado(QStringView nome) const override;
    void depoisDeIncluir(qint32 codigo) override;
    void antesDeAlterar() override;
    void depoisDeExcluir() override;
    void depoisDeCarregar() override;
    void depoisDeDevolver() override;
    void limpa() override;

private:
    void btnCancelar_Click() override;
    void Lista_DblClick() override;
    void optSim_Click();
    void optNao_Click();
    void txtEstoque_LostFocus();
    void txtEstoqueAtual_LostFocus();

    void ligaEstoque(bool ligado);
    void formataQuantidade(QLineEdit *caixa);
    void limpaAte(std::size_t quantos);

    std::unique_ptr<Ui::frmCadaPecas> ui_;
};

} // namespace registers
