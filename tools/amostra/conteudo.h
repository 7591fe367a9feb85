#pragma once

#include "tools/amostra/oficina.h"
#include "tools/amostra/sorteio.h"
#include "workorders/abertura.h"

namespace amostra
{

/// An order for a vehicle as a clerk would type it: complaint, mechanic, services, the parts that they take.
workorders::NovaOrdem NovaOrdemPara(const Veiculo &veiculo, const Oficina &oficina, Sorteio &sorteio);

} // namespace amostra
