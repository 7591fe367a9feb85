#pragma once

#include "workorders/ordem.h"

#include "platform/runtime/value.h"

namespace workorders
{

/// The instalments of a value: simple interest on the whole, every row the same rounded amount, the first of several
/// due today and a single one in a month. `juros` is the setting's text ("0,03" for 3 %), `semJurosEmUma` its companion
/// for 30 days. No cent is adjusted on the last row, so the rows need not add up to the total.
std::vector<ParcelaOS> PlanoParcelas(const QString &valor, int parcelas, const QString &juros, bool semJurosEmUma,
                                     runtime::Date hoje);

} // namespace workorders
