#pragma once

#include "reports/janelaselecao.h"
#include "reports/relatorio.h"

#include <span>

namespace reports
{

extern const Selecao selecaoDeOrdens;

/// The work orders by the day on which they were opened.
std::span<const Relatorio> relatoriosDeOrdens();

} // namespace reports
