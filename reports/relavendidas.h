#pragma once

#include "reports/janelaselecao.h"
#include "reports/relatorio.h"

#include <span>

namespace reports
{

extern const Selecao selecaoDePecas;

/// Parts and services sold in a period.
std::span<const Relatorio> relatoriosDeVendidas();

} // namespace reports
