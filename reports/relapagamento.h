#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// How one closed order is paid: its instalments or cheques. Lists without paper.
std::span<const Relatorio> relatoriosDePagamento();

} // namespace reports
