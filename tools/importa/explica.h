#pragma once

#include "tools/importa/importa.h"

namespace importa
{

/// Why nothing was imported and what to do about it, in words for the user.
QString Explica(const Erro &erro, const Pedido &pedido);

/// "1 linha", "12.345 linhas".
QString Quantos(qint64 n, QStringView um, QStringView varios);

} // namespace importa
