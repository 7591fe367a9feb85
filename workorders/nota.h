#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace workorders
{

/// The two notes of a workshop, each with a number of its own.
enum class TipoNota { Pecas, Servicos };

/// The most items that a note has room for.
inline constexpr int maximoDePecas = 23;
inline constexpr int maximoDeServicos = 39;

/// An order that goes on a note.
struct OrdemDaNota {
    QString codigo; ///< "0000"
    QString codCliente;
    QString placa;
};

/// The customer of a note, a Null as "". The document has its marks.
struct ClienteDaNota {
    QString codigo;
    QString nome;
    QString cpf;
    QString rg;
    QString endereco;
    QString numero;
    QString bairro;
    QString cep;
    QString cidade;
    QString estado;
    QString fone1;
};

/// An item as a note shows it. A service has neither tax columns nor a place for its code.
struct ItemDaNota {
    QString codigo = {};
    QString descricao = {};
    QString classFiscal = {};
    QString sitTrib = {}; ///< filled in by hand on paper
    QString unidade = {};
    QString quantidade = {};
    QString valorUnit = {};
    QString valorTotal = {};
    QString icms = {};
};

/// The charged items of an order by the note that they go on; what is outsourced and material go on none.
struct ItensDaNota {
    std::vector<ItemDaNota> pecas;
    std::vector<ItemDaNota> servicos;
};

std::optional<OrdemDaNota> ProcuraOrdemDaNota(qint32 numero);
std::optional<ClienteDaNota> ProcuraClienteDaNota(const QString &codigo);
ItensDaNota LeItensDaNota(qint32 numero);

/// The number that the next note gets, "000000".
QString ProximaNota(TipoNota tipo);

/// That number is taken: the next note gets the one behind it.
void AvancaNota(TipoNota tipo);

} // namespace workorders
