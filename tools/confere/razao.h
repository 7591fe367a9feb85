#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

namespace confere
{

/// A row of a ledger: its key, day, sides, and the balance that it carries.
struct LinhaDoRazao {
    qint64 codigo = 0;
    double data = 0; ///< a row without a day comes first, as in a recalculation
    std::optional<float> entrada;
    std::optional<float> saida;
    std::optional<float> saldo;
};

/// Which windows write a ledger: one that is recalculated by date and code as well, or one that is only appended to,
/// where a row with both sides is a stock-taking that sets the balance.
enum class TipoDeRazao { Recalculado, SoLancado };

/// A row whose balance does not follow.
struct Desacordo {
    size_t linha = 0;               ///< its place in the ledger
    std::optional<size_t> anterior; ///< the place of the row that it ought to follow; none: it is the first
    float esperado = 0;             ///< the balance that follows
};

/// The rows of one ledger, in the order of their codes, whose balances do not follow.
///
/// What right use leaves: a recalculation makes all rows follow by date and code; what is posted behind it follows row
/// by row, each from the one with the highest code before it, whatever its date. Every change of a row that stands
/// recalculates. So there is a row up to which the ledger follows by date, and behind which it follows by code. Where
/// there is none, the one with the fewest faults is taken. A row whose balance alone is wrong is one fault: the row
/// behind it may follow from what ought to stand there.
std::vector<Desacordo> Desacordos(const std::vector<LinhaDoRazao> &linhas, TipoDeRazao tipo);

} // namespace confere
