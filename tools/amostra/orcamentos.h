#pragma once

#include "tools/amostra/oficina.h"

namespace amostra
{

/// Writes the estimates of two years, each at its own moment of the clock. Three of ten are for people who came in once
/// and are in no register.
void IncluiOrcamentos(const Oficina &oficina, Resumo &resumo, const Progresso &progresso);

/// A fourth as many as customers, at most 15,000.
int QuantosOrcamentos(int clientes);

} // namespace amostra
