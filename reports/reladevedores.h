#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// The customers with a balance in their account of store credit.
std::span<const Relatorio> relatoriosDeDevedores();

} // namespace reports
