#pragma once

#include "platform/printer/surface.h"
#include "workorders/ordem.h"

namespace workorders
{

class Folhas;

/// The three layouts of a printed order, each a whole document. Without `pagamento` it is the print of the query.

/// Plain text: header, items, total, observation, foot. The payment text stands in it whatever the settings say.
void ImprimeLayout1(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento);

/// Logo and frame on every sheet, at most 45 items a sheet.
void ImprimeLayout2(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento);

/// Logo and frame on every sheet, a section with its own total for parts, services and outsourced services.
void ImprimeLayout3(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento);

/// The payment text of the second and third layout, where the setting `PrintFormaPagto` wants it. It stays together on
/// one sheet if it fits on one.
void ImprimePagamento(Folhas &folhas, const PagamentoOS *pagamento);

} // namespace workorders
