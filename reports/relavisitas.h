#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// How often customers and vehicles came, by their orders.
std::span<const Relatorio> relatoriosDeVisitas();

} // namespace reports
