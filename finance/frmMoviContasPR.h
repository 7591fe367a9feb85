#pragma once

#include "core/devolucao.h"
#include "core/financas.h"
#include "core/movimento.h"

#include <memory>
#include <vector>

namespace Ui
{
class frmMoviContasPR;
}

namespace finance
{

/// The accounts to receive and to pay, a table a tab: the one in front is the one that every command is for. The key P
/// settles the chosen account or opens it again, a receivable in a window of its own; the key A shows the customers'
/// names in place of what closing an order wrote.
class frmMoviContasPR : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviContasPR();
    ~frmMoviContasPR() override;

    /// What the settling window is filled with.
    static std::vector<core::Devolucoes> devolucoes();

protected:
    const core::TabelaMovimento &tabela() const override;
    QString consulta() const override;
    void preencheAoAbrir() override;
    void inclui() override;
    void depoisDePreencher(const core::Somas &somas, bool vazia) override;
    void teclaP(const ui::ListItem &linha) override;

private:
    void Lista_A();

    core::TabelaContas contas() const;
    void recebe(const ui::ListItem &linha);
    void paga(const ui::ListItem &linha);
    void abreBaixa(const ui::ListItem &linha);

    std::unique_ptr<Ui::frmMoviContasPR> ui_;
};

} // namespace finance
