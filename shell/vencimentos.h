#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <array>

namespace shell
{

/// What may fall due, in the order in which it is looked for.
enum class Vencimento { ContasPagar, ContasReceber, Cheques, Pendencias };

inline constexpr std::array vencimentos{Vencimento::ContasPagar, Vencimento::ContasReceber, Vencimento::Cheques,
                                        Vencimento::Pendencias};

/// The days that the notices look at.
struct PeriodoDosAvisos {
    runtime::Value inicio;
    runtime::Value fim;
};

/// From 15 days back to 15 days ahead of the present moment.
PeriodoDosAvisos PeriodoAtual();

/// The statement that finds what is unpaid and falls due in the period: what it is called by, its value, its day.
QString ConsultaDe(Vencimento qual, const PeriodoDosAvisos &periodo);

} // namespace shell
