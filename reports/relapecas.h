#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// The reports of the price list: the stock of all parts, parts and services with their prices, what is to be bought.
std::span<const Relatorio> relatoriosDePecas();

} // namespace reports
