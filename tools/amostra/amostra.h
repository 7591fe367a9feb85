#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

/// A workshop to show and to measure: customers, vehicles, parts, two years of estimates and orders, and what
/// their payment left in the books, written by the same code as the program's windows.
namespace amostra
{

inline constexpr int menosClientes = 50;
inline constexpr int maisClientes = 200'000;

/// How large the sample is and what its draws begin with. The same three values give the same rows.
struct Tamanho {
    int clientes = menosClientes;
    quint64 semente = 1;
    /// The moment that the program's clock is stopped at, and is stopped at again when the sample is done; none for a
    /// clock that runs. The two years end the day before it.
    std::optional<runtime::Date> relogio = {};
};

/// What was written.
struct Resumo {
    int clientes = 0;
    int veiculos = 0;
    int operadores = 0; ///< 0 where there were some already
    int fornecedores = 0;
    int pecas = 0;
    int servicos = 0;
    int ordens = 0;
    int ordensAbertas = 0;
    int orcamentos = 0;
    int notas = 0;   ///< of suppliers
    int origens = 0; ///< rows of the origin book
};

/// Tells how far a stage is: its name in Portuguese, and so many of so many.
using Progresso = std::function<void(const QString &etapa, int feitos, int total)>;

/// Makes `pasta` the program folder and opens or creates its `DADOS/DADOS.MDB` with all tables. A database that holds
/// customers is left alone: error 5. So is a folder that can't be made, or in which the program
/// would not work.
void AbrePasta(const QString &pasta);

/// Error 5 for a size out of range.
void ConfereTamanho(const Tamanho &tamanho);

/// Fills the open database. Error 5 for a size out of range or a database that holds customers. Nothing is taken back
/// after a failure.
Resumo Preenche(const Tamanho &tamanho, const Progresso &progresso = {});

/// The operators that a sample has when there were none: the first is the administrator.
struct OperadorDaAmostra {
    QStringView codigo;
    QStringView nome;
    QStringView senha;
    bool admin;
};
std::span<const OperadorDaAmostra> Operadores();

} // namespace amostra
