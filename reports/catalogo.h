#pragma once

#include "reports/relatorio.h"

#include <span>

namespace reports
{

/// All reports of `frmRelatorio`. Where two have one mode, the first counts.
std::span<const Relatorio> Catalogo();

} // namespace reports
