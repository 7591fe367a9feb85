#include "registers/registro.h"

#include "core/banco.h"
#include "platform/dao/recordset.h"

namespace registers
{

void GravaCampos(dao::Recordset &linha, std::span<const Campo> campos, Gravacao gravacao, const TextoDoControle &texto)
{
    for (const Campo &campo : campos) {
        if (campo.grava == nullptr) {
            continue;
        }
        if (const auto valor = campo.grava(texto(campo.controle), gravacao)) {
            linha[campo.coluna] = *valor;
        }
    }
}

qint32 IncluiRegistro(const Registro &registro, const TextoDoControle &texto)
{
    return core::AcrescentaLinha(registro.tabela.toString(), [&](dao::Recordset &linha) {
        GravaCampos(linha, registro.campos, Gravacao::Inclusao, texto);
    });
}

} // namespace registers
