#pragma once

#include "tools/amostra/oficina.h"

namespace amostra
{

/// Opens and closes the orders of two years and keeps the books between them, each at its own moment of the clock.
void IncluiOrdens(const Oficina &oficina, Resumo &resumo, const Progresso &progresso);

/// The days that the workshop was open, from the first of the two years to the day before `hoje`.
std::vector<runtime::Date> DiasAbertos(runtime::Date hoje);

/// A third as many as customers, at most 20,000.
int QuantasOrdens(int clientes);

} // namespace amostra
