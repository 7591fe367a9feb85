#pragma once

#include <QString>

#include <array>

/// The general balance: what a period looks like in six lines of four figures. No window is needed: the figures are
/// texts, as the window's labels hold them.
namespace finance
{

/// The figures of a line or of the total: how many records, their value, what was paid of it, what is open.
inline constexpr std::size_t figuras = 4;
using LinhaDoBalanco = std::array<QString, figuras>;

inline constexpr std::size_t linhasDoBalanco = 6;
using Balanco = std::array<LinhaDoBalanco, linhasDoBalanco>;

/// Orders, suppliers' notes, accounts to receive and to pay, cheques that no order brought: of a period as it follows
/// BETWEEN. The last line is what customers owe at present, whatever the period.
Balanco LeBalanco(const QString &periodo);

/// One line of a balance, and whether it counts.
struct LinhaContada {
    LinhaDoBalanco figuras;
    bool conta;
};

/// The total of the lines that count, in 64 bits from their texts: records are all added, money is subtracted on the
/// lines of what the workshop spends. An empty figure is 0.
LinhaDoBalanco TotalDoBalanco(const std::array<LinhaContada, linhasDoBalanco> &linhas);

} // namespace finance
