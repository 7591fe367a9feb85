#pragma once

#include "workorders/ordem.h"

#include <QStringList>

namespace workorders
{

/// The lines that tell on a printed order how it is paid, by the payment form; the heading is the first of them.
/// Cash is centred in 96 columns, the rows of a plan stand under their column line.
QStringList TextoPagamento(const PagamentoOS &pagamento);

} // namespace workorders
