#pragma once

#include <QString>

#include <optional>

namespace documents
{

/// A part or service as the entry row takes it.
struct PecaItem {
    QString codigo; ///< "0000"
    QString nome;
    QString valorVenda; ///< "###,##0.00"
    QString valorCusto; ///< the same
    QString ps;
    QString um;
};

/// The registered item whose code is the number that the text begins with, or whose external code is the text; the
/// first row wins. An apostrophe in the text is error 3075.
std::optional<PecaItem> ProcuraPeca(const QString &texto);

/// A quantity as the lists show it, by the `UM` of the part with this code; a line without a part counts in units.
QString QuantidadeDaPeca(double quantidade, qint32 codPeca);

} // namespace documents
