#pragma once

#include "documents/itens.h"
#include "tools/amostra/oficina.h"
#include "tools/amostra/sorteio.h"
#include "workorders/abertura.h"

namespace amostra
{

/// A row of a document's items at a unit value in cents.
documents::LinhaItem LinhaDoItem(const Item &item, const QString &tipo, double quanto, int unitario);

/// What the rows come to, as their window sums them.
QString SomaDasLinhas(const std::vector<documents::LinhaItem> &itens);

/// An order for a vehicle as a clerk would type it: complaint, mechanic, services, the parts that they take.
workorders::NovaOrdem NovaOrdemPara(const Veiculo &veiculo, const Oficina &oficina, Sorteio &sorteio);

} // namespace amostra
