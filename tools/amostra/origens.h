#pragma once

#include "tools/amostra/oficina.h"

namespace amostra
{

/// The origin book of the last months, a row a day or so; its table has to be there. Gives how many rows it wrote.
int IncluiOrigens(const Oficina &oficina);

} // namespace amostra
