#include "core/mostra.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

/// A unit never written counts as 0.
int codigoDaUnidade(const dao::Recordset &linha, int lugar)
{
    return comoEsta(linha, lugar).toInt();
}

} // namespace

QString comoEsta(const dao::Recordset &linha, int lugar)
{
    return NuloParaVazio(linha.value(lugar));
}

QString comoCodigo(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), mascaraCodigo);
}

QString comoData(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), mascaraData);
}

QString comoDataHora(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), mascaraDataHora);
}

QString comoValor(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), mascaraValor);
}

QString comoValorOuBranco(const dao::Recordset &linha, int lugar)
{
    return runtime::IsNull(linha.value(lugar)) ? u" "_s : comoValor(linha, lugar);
}

QString comoSimNao(const dao::Recordset &linha, int lugar)
{
    return Verdadeiro(linha.value(lugar)) ? u"Sim"_s : u"Não"_s;
}

QString comoQuantidade(const dao::Recordset &linha, int lugar)
{
    const runtime::Value valor = linha.value(lugar);
    return runtime::IsNull(valor)
               ? QString()
               : FormataQuantidade(runtime::CDbl(valor), codigoDaUnidade(linha, linha.fieldPlace(u"UM")));
}

QString comoUnidade(const dao::Recordset &linha, int lugar)
{
    return NomeDaUnidade(codigoDaUnidade(linha, lugar));
}

} // namespace core
