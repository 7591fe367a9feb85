#pragma once

#include "platform/dao/tabledef.h"
#include "tools/cep/csv.h"

#include <functional>

namespace ceps
{

/// The table of a postal-code database.
dao::TableDef Tabela();

/// What is to be made out of what.
struct Pedido {
    QString entrada; ///< the text file
    QString saida;   ///< the database
    Codificacao codificacao = Codificacao::Utf8;
    bool substitui = false; ///< whether a database that stands there already gives way
};

/// Is told now and then how far the work is (percent of the file, postal codes so far). False stops it.
using Andamento = std::function<bool(int porcento, qint64 ceps)>;

/// Makes the postal-code database of the registers: the table CEPS out of lines CEP, Tipo, Rua, Bairro, Cidade, Estado
/// (a heading line may stand first; a CEP is eight digits, with or without the hyphen behind the fifth; an empty
/// column is Null). The database takes its name only when it is whole. Returns the number of postal codes. Raises
/// `Erro` for a file or line that can't be taken over, runtime::RuntimeError for what happens to the database.
qint64 fazBanco(const Pedido &pedido, const Andamento &andamento);

} // namespace ceps
