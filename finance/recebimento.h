#pragma once

#include "core/razao.h"

#include <QString>

#include <functional>
#include <optional>

namespace finance
{

/// An account receivable that a customer pays, its values as texts of the screen.
struct Recebimento {
    QString codigo; ///< of the account
    QString data;   ///< of the payment
    QString descricao;
    QString valor;                      ///< of the account
    const core::Razao *livro = nullptr; ///< where the money goes; nullptr is not posted
    QString codCliente = {};            ///< whose own account falls by the payment; "" for none
    QString codOs = {};                 ///< the order behind it; "" for none

    /// A part of it: what was paid, and what stays owing until another day.
    struct Parcial {
        QString pago;
        QString resto;
        QString vencimento;
    };
    std::optional<Parcial> parcial = {};
};

/// Settles the account, then leaves what stays owing as a new one, then posts the money to the ledger and to the
/// customer's account, both by the balance that a look-up gives. An account that is gone is told by `naoLocalizada`,
/// and all else is written just the same. Checks are the window's.
void Recebe(const Recebimento &recebimento, const std::function<void()> &naoLocalizada = {});

} // namespace finance
