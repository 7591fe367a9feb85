#pragma once

#include "documents/itens.h"

#include <QtGlobal>

#include <optional>

namespace estimates
{

/// An estimate as a window shows it, texts as they stand in its fields. The vehicle is free text and the customer need
/// not be in the register.
struct Orcamento {
    QString codigo = {}; ///< "0000", "" for one that has never been written
    QString data = {};   ///< dd/mm/yyyy
    QString marca = {};
    QString ano = {};
    QString codCliente = {};
    QString nome = {};
    QString fone = {};
    QString observacoes = {};
    QString valor = {}; ///< "###,##0.00"
    std::vector<documents::LinhaItem> itens = {};
};

/// Writes a new estimate, dated today, then its items, and gives its number. Nothing else is touched: an estimate is no
/// debt and reserves no part. No transaction: what was written before a failure stays.
qint32 IncluiOrcamento(const Orcamento &orcamento);

/// A stored estimate but for its items, or nothing where there is none of this code. A Null is empty.
std::optional<Orcamento> LeOrcamento(const QString &codigo);

/// Writes an estimate but for its items over the stored one, which is dated today by that. False where somebody has
/// deleted it meanwhile: nothing is written.
bool AlteraOrcamento(qint32 numero, const Orcamento &orcamento);

} // namespace estimates
