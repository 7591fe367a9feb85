#pragma once

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"
#include "tools/amostra/amostra.h"

/// What the tests of the sample workshop share: the smallest one, at 15/05/2024, and what stands in its tables.
namespace oficina
{

inline constexpr quint64 semente = 7;

inline runtime::Date moment()
{
    return runtime::CDate(QStringLiteral("15/05/2024 10:30:00"));
}

inline amostra::Tamanho size(quint64 seed = semente)
{
    return {.clientes = 50, .semente = seed, .relogio = moment()};
}

inline int count(const support::Program &program, const QString &source)
{
    return runtime::CLng(program.value(QStringLiteral("SELECT count(Codigo) FROM ") + source));
}

inline float single(const runtime::Value &value)
{
    return runtime::IsNull(value) ? 0.0F : runtime::CSng(value);
}

} // namespace oficina
