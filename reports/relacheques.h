#pragma once

#include "reports/janelaselecao.h"
#include "reports/relatorio.h"

#include <span>

namespace reports
{

extern const Selecao selecaoDeCheques;

/// The cheques by their due dates.
std::span<const Relatorio> relatoriosDeCheques();

} // namespace reports
