#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// The customers whose birthday is in the present month.
std::span<const Relatorio> relatoriosDeAniversarios();

} // namespace reports
