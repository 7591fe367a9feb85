#pragma once

#include "reports/janelaselecao.h"
#include "reports/relatorio.h"

#include <span>

namespace reports
{

extern const Selecao selecaoDeNotas;

/// The notes of a supplier.
std::span<const Relatorio> relatoriosDeNotas();

} // namespace reports
