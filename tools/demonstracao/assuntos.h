#pragma once

#include <QObject>
#include <QString>

#include <memory>

/// The subjects of the demonstration, each worked as a user would, in this order; a later one builds on what the
/// earlier ones have left in the program folder. Each is a QObject whose slots are its steps.
namespace demonstracao
{

using Assunto = std::unique_ptr<QObject>;

Assunto inicio(const QString &folder);     ///< a new installation, its first operator, a login
Assunto cadastros();                       ///< the four registers
Assunto ordens();                          ///< orders and each way of paying them
Assunto escolhas();                        ///< records picked and added on the way to an order and to its payment
Assunto estoque();                         ///< the stock ledger
Assunto financas();                        ///< books, accounts, cheques and pending orders that the orders left
Assunto orcamentos();                      ///< estimates, an order made of one, an order altered, a note
Assunto entradas();                        ///< a supplier's note, the balance, the origin book
Assunto instalacao();                      ///< settings, what falls due, a backup and its restore
Assunto reabertura();                      ///< the program ended and started again
Assunto oficina(const QString &folder);    ///< a workshop of 300 customers
Assunto relatorios(const QString &folder); ///< every report of that workshop, on paper and previewed
Assunto telas(const QString &folder);      ///< pictures of all windows over that workshop

} // namespace demonstracao
