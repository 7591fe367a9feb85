#pragma once

#include "documents/documento.h"

namespace estimates
{

/// How a customer may pay this value, as the settings of estimates say: in cash, in 30 days, in instalments, and the
/// two closing lines. Empty where they are not to be shown.
documents::Bloco CondicoesDePagamento(const QString &valor);

} // namespace estimates
