#pragma once

#include "platform/printer/surface.h"
#include "workorders/ordem.h"

namespace workorders
{

/// Prints an order with layout 1, 2 or 3; any other number prints nothing. With `pagamento` it is the print of the
/// closing window, with its payment text; without, the query's.
void ImprimeOrdem(int layout, const OrdemMostrada &ordem, printer::Surface &saida,
                  const PagamentoOS *pagamento = nullptr);

} // namespace workorders
