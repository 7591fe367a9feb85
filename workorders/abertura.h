#pragma once

#include "documents/itens.h"

#include <QtGlobal>

#include <optional>

namespace dao
{
class Recordset;
}

namespace workorders
{

/// A new order as the opening window holds it, texts as they stand in its fields.
struct NovaOrdem {
    QString codCliente;
    QString codVeiculo;
    QString km;
    QString observacao;
    QString valor;
    QString servicos;
    QString mecanico;
    std::vector<documents::LinhaItem> itens; ///< `tipo` is the PSA code that goes to the table
};

/// Writes the order, then its items, and gives its number. No transaction: what was written before a failure stays.
qint32 AbreOrdem(const NovaOrdem &ordem);

/// A vehicle and its owner, as the order windows show them. The vehicle's code is "0000", a Null is empty.
struct VeiculoOS {
    QString codigo;
    QString marca;
    QString placas;
    QString combustivel;
    QString cor;
    QString ano;
    QString codCliente;
    QString nome;
    QString fone1;
    QString celular;
};

/// The same of a row that brings the columns of both.
VeiculoOS VeiculoDe(const dao::Recordset &linha);

/// The vehicle of a text: a number is a code, any other text a plate, and what is neither is tried as a chassis number.
/// A plate of digits only is therefore never found. An apostrophe in the text is error 3075.
std::optional<VeiculoOS> ProcuraVeiculo(const QString &texto);

} // namespace workorders
