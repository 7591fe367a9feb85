#pragma once

#include "tools/amostra/sorteio.h"
#include "workorders/abertura.h"
#include "workorders/fechamento.h"

namespace amostra
{

/// What the payment window would hold when this order is closed by this form, on the clock's day.
workorders::Fechamento FechamentoDe(const workorders::NovaOrdem &ordem, qint32 codigo, workorders::FormaPagamento forma,
                                    Sorteio &sorteio);

/// The forms of `quantas` orders in a mixed order: shares of the table below, each form at least once.
///
/// | cash | post-dated cheque | payment book | cheques | store credit | custom plan |
/// |------|-------------------|--------------|---------|--------------|-------------|
/// | 45 % | 12 %              | 15 %         | 10 %    | 12 %         | 6 %         |
std::vector<workorders::FormaPagamento> FormasSorteadas(int quantas, Sorteio &sorteio);

} // namespace amostra
