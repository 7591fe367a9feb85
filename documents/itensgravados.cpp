#include "documents/itensgravados.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "documents/pecas.h"
#include "platform/runtime/runtime.h"

namespace documents
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// A number of an item as text, by which its total is worked out.
QString numero(const Value &valor)
{
    return IsNull(valor) ? u"0"_s : CStr(valor);
}

LinhaItem linhaDe(const dao::Recordset &item)
{
    const QString quantidade = numero(item.value(u"Quantidade"));
    const QString valorUnit = numero(item.value(u"ValorUnit"));
    const qint32 codPeca = CLng(numero(item.value(u"CodPeca")));
    return {.codigo = Format(codPeca, mascaraCodigo),
            .tipo = TipoDoPSA(NuloParaVazio(item.value(u"PSA"))),
            .quantidade = QuantidadeDaPeca(CDbl(quantidade), codPeca),
            .descricao = NuloParaVazio(item.value(u"Descricao")),
            .valorUnit = Format(valorUnit, mascaraValor),
            .valorTotal = ValorDaLinha(quantidade, valorUnit)};
}

} // namespace

std::vector<ItemGravado> LeItens(const QString &consulta)
{
    std::vector<ItemGravado> itens;
    for (auto item = DBDados->OpenRecordset(consulta); !item.Eof(); item.MoveNext()) {
        itens.push_back({NuloParaVazio(item.value(u"PSA")), linhaDe(item), CStr(item.value(u"Codigo"))});
    }
    return itens;
}

void GravaColunas(dao::Recordset &item, const LinhaItem &linha)
{
    item[u"CodPeca"] = linha.codigo;
    item[u"Quantidade"] = linha.quantidade;
    item[u"Descricao"] = ValorOuNulo(linha.descricao);
    item[u"ValorUnit"] = linha.valorUnit;
    item[u"PSA"] = ValorOuNulo(linha.tipo);
}

QString GravaItem(dao::Recordset &itens, QStringView coluna, qint32 numero, const LinhaItem &linha)
{
    itens.AddNew();
    QString chave = CStr(itens[u"Codigo"].Value());
    itens[coluna] = numero;
    GravaColunas(itens, linha);
    itens.Update();
    return chave;
}

} // namespace documents
