#pragma once

#include "estimates/orcamento.h"
#include "platform/printer/surface.h"

namespace estimates
{

/// Prints an estimate with layout 1, 2 or 3, with the conditions of payment behind it; any other number prints nothing.
/// One that was never written has no number in its title. All its items stand in one list, so the third layout is drawn
/// as the second.
void ImprimeOrcamento(int layout, const Orcamento &orcamento, printer::Surface &saida);

} // namespace estimates
