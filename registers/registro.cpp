#include "registers/registro.h"

#include "core/banco.h"
#include "platform/dao/recordset.h"

namespace registers
{

qint32 IncluiRegistro(const Registro &registro, const TextoDoControle &texto)
{
    return core::AcrescentaLinha(registro.tabela.toString(), [&](dao::Recordset &linha) {
        core::GravaCampos(linha, registro.campos, Gravacao::Inclusao, texto);
    });
}

} // namespace registers
