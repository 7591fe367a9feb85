#pragma once

#include "platform/dao/database.h"
#include "platform/jet/table.h"
#include "tools/importa/conversao.h"
#include "tools/importa/importa.h"

#include <optional>
#include <vector>

namespace importa
{

/// Where the values of a column of the target come from.
struct Fonte {
    int coluna; ///< of the source
    bool ehNumero;
    Conversor conversor;
};

/// A table of the source whose rows are taken over, and how.
struct Copia {
    std::size_t daOrigem = 0;
    std::size_t noResultado = 0; ///< its place among the tables of the result
    dao::TableDef destino;
    std::vector<std::optional<Fonte>> fontes; ///< one a column of the target
};

/// Whether the source is a database of postal codes, a workshop's, or neither, by the names of its tables.
enum class Conteudo { Oficina, Postais, Nenhum };
Conteudo ConteudoDe(const std::vector<jet::Table> &origem);

/// Makes the tables of the target by the program's own code, and those that the program does not know where all is
/// asked for. Tells in `resultado` what comes over and what is left out. Raises `Erro` for a table of the program that
/// can't be read.
std::vector<Copia> MontaEsquema(const std::shared_ptr<dao::Database> &banco, const std::vector<jet::Table> &origem,
                                const Pedido &pedido, Resultado &resultado);

} // namespace importa
