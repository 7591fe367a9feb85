#pragma once

#include "core/financas.h"
#include "platform/runtime/value.h"

#include <QString>

#include <optional>

namespace finance
{

/// An account as it stands in its table at present.
struct SituacaoDaConta {
    bool paga;
    runtime::Value valor;
};

/// None for an account that is gone.
std::optional<SituacaoDaConta> Situacao(core::TabelaContas tabela, const QString &codigo);

/// An account payable that is paid, its values as texts of the screen.
struct Pagamento {
    QString codigo; ///< of the account
    QString data;   ///< of the payment
    QString valor;  ///< what was paid; the account keeps it instead of its own value
    QString descricao;
};

/// Settles the account and posts the payment to the cash book, dated today, whatever the day of the payment. An account
/// that is gone leaves nothing.
void PagaConta(const Pagamento &pagamento);

/// Takes a settlement back: the account is open again. What it posted stays, and so does a value that was replaced. An
/// account that is gone or open stays as it is.
void ReabreConta(core::TabelaContas tabela, const QString &codigo);

} // namespace finance
