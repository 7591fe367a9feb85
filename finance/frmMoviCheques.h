#pragma once

#include "core/movimento.h"

#include <memory>

namespace Ui
{
class frmMoviCheques;
}

namespace finance
{

/// The cheques received, by hand or with an order's payment: what is still to clear in a period of their due dates. The
/// key P clears a cheque or takes that back, and either way offers to post its value to the cash book.
class frmMoviCheques : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviCheques();
    ~frmMoviCheques() override;

protected:
    void inclui() override;
    void depoisDePreencher(const core::Somas &somas, bool vazia) override;
    void teclaP(const ui::ListItem &linha) override;

private:
    std::unique_ptr<Ui::frmMoviCheques> ui_;
};

} // namespace finance
