#pragma once

#include "estimates/cabecalhoorcamento.h"

namespace documents
{
class PainelItens;
}

namespace estimates
{

/// The estimate that stands in the two panels of a window. Code and date are the window's.
Orcamento OrcamentoDosPaineis(const CabecalhoOrcamento &cabecalho, const documents::PainelItens &itens);

/// What goes to paper has a vehicle and at least one item; a box tells what is missing.
bool PodeImprimir(const CabecalhoOrcamento &cabecalho, const documents::PainelItens &itens);

} // namespace estimates
