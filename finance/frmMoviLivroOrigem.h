#pragma once

#include "core/movimento.h"

#include <memory>

namespace Ui
{
class frmMoviLivroOrigem;
}

namespace core
{
enum class Acao;
}

namespace finance
{

/// The origin book: where money came from and in which form, four amounts side by side. Its rows are entered by hand,
/// and no ledger and no other window knows them. The list with its total row is also what is printed.
class frmMoviLivroOrigem : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviLivroOrigem();
    ~frmMoviLivroOrigem() override;

protected:
    bool confere(core::Gravacao gravacao) override;
    void depoisDePreencher(const core::Somas &somas, bool vazia) override;

private:
    void btnPrint_Click();
    void btnPrevisualizar_Click();
    void lblPrint_Change();

    void imprime(core::Acao acao);

    std::unique_ptr<Ui::frmMoviLivroOrigem> ui_;
};

} // namespace finance
