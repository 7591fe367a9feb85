#pragma once

#include "reports/janelaselecao.h"
#include "reports/relatorio.h"

#include <span>

namespace reports
{

extern const Selecao selecaoDeContas;

/// The accounts payable, or those receivable, by their due dates.
std::span<const Relatorio> relatoriosDeContas();

} // namespace reports
