#pragma once

#include "workorders/abertura.h"
#include "workorders/ordem.h"

#include <optional>

namespace workorders
{

/// What of an order waits for the confirmation of its alteration, texts as they stand in the fields.
struct CabecalhoAlterado {
    TextosOS textos;
    bool pago = false;
    bool emAberto = false;
    QString dataPagto;
    QString formaPagto;
};

/// A stored order as the altering window shows it; a Null is empty.
struct OrdemLida {
    VeiculoOS veiculo;
    CabecalhoAlterado cabecalho;
    QString valor;
};

/// The order of a number. One whose vehicle or customer is gone is not found.
std::optional<OrdemLida> LeOrdem(qint32 numero);

/// Writes the header, empty texts as Null; `Valor` follows the items. False where the order is gone.
bool AlteraOrdem(qint32 numero, const CabecalhoAlterado &cabecalho);

/// A customer as the order windows show him.
struct ClienteOS {
    QString codigo;
    QString nome;
    QString fone1;
    QString celular;
};

/// The customer of a code; empty where he does not exist.
ClienteOS LeCliente(qint32 codigo);

/// Gives the order to another customer, who need not exist. False where the order is gone.
bool MudaCliente(qint32 numero, qint32 codCliente);

} // namespace workorders
