#pragma once

#include "core/andamento.h"
#include "core/esquema.h"

#include <QString>

#include <vector>

/// The rules of the report of parts and services sold; it needs no window.
namespace reports
{

/// The lines that count, in the order in which the user is offered them.
enum class ItensContados { Todos, Pecas, Servicos };

/// What was sold of a part or service; the unit price and the description are those of its first line.
struct ItemVendido {
    qint32 codPeca = 0;
    QString descricao;
    float quantidade = 0;
    float unit = 0;
    float total = 0;
};

/// Adds up the lines of the orders of a period (the literals behind BETWEEN), in 32-bit floats and in the order of the
/// orders and of their lines; what sold most comes first. With `Todos` every line of service there is counts once for
/// each order of the period, as its condition stands without brackets. When the user leaves `obra` the sums are those
/// of the orders so far. A scratch table stands in the database meanwhile; `aviso` tells where it can't be made.
std::vector<ItemVendido> ItensVendidos(const QString &periodo, ItensContados quais, core::Andamento &obra,
                                       const core::AvisoCritico &aviso);

} // namespace reports
