#pragma once

#include "workorders/ordem.h"

#include <QtGlobal>

namespace workorders {

/// A new order as the opening window holds it, texts as they stand in its fields.
struct NovaOrdem {
    QString codCliente;
    QString codVeiculo;
    QString km;
    QString observacao;
    QString valor;
    QString servicos;
    QString mecanico;
    std::vector<LinhaOS> itens; ///< `tipo` is the PSA code that goes to the table
};

/// Writes the order, then its items, and gives its number. No transaction: what was written before a failure stays.
qint32 AbreOrdem(const NovaOrdem &ordem);

} // namespace workorders
