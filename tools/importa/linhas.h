#pragma once

#include "platform/jet/stream.h"
#include "tools/importa/apuracao.h"
#include "tools/importa/esquema.h"
#include "tools/importa/importa.h"

namespace importa
{

/// Takes the rows of the tables over, one table after the other, and tells of it.
class Linhas
{
public:
    Linhas(jet::Reader &leitor, dao::Database &banco, const Andamento &andamento, Resultado &resultado);

    /// So many rows there will be.
    void promete(qint64 total) { total_ = total; }

    /// Copies a table and gives what its rows come to in the source. Raises `Erro` where not all of them can be read.
    Apuracao copia(const Copia &copia);

private:
    void avisa(Passo::Fase fase, const QString &tabela);
    void confere(const Copia &copia, const jet::Reading &leitura) const;

    jet::Reader &leitor_;
    dao::Database &banco_;
    const Andamento &andamento_;
    Resultado &resultado_;
    qint64 linhas_ = 0;
    qint64 total_ = 0;
};

} // namespace importa
