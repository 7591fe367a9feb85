#include "workorders/calculo.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

QString soma(const QString &total, float parcela)
{
    return Format(CSng(total) + parcela, mascaraValor);
}

QString produto(const QString &um, const QString &outro)
{
    return Format(CDbl(um) * CDbl(outro), mascaraValor);
}

/// A part that is no longer registered, or without a cost, costs nothing.
float custoDaLinha(const LinhaItem &linha)
{
    const QString custo = LocalizaCampo(u"valorcusto"_s, u"Pecas"_s, u"Codigo = "_s + linha.codigo);
    return IsNumeric(custo) ? CSng(CDbl(custo) * CDbl(linha.quantidade)) : 0.0F;
}

QString custoDasPecas(const std::vector<LinhaItem> &lista)
{
    QString custo = u"0,00"_s;
    for (const LinhaItem &linha : lista) {
        if (linha.tipo == u"P") {
            custo = soma(custo, custoDaLinha(linha));
        }
    }
    return custo;
}

QString parte(const QString &total, const QString &taxa)
{
    return Percentual(CDbl(total), CDbl(taxa));
}

} // namespace

bool ServeDeTaxa(const QString &texto)
{
    return ServeDeValor(texto) && CDbl(texto) >= 0;
}

Calculo Calcula(const DadosDoCalculo &dados, const std::vector<LinhaItem> &lista)
{
    Calculo c;
    c.totalMO = produto(dados.horas, dados.valorHora);
    c.custoPecas = ServeDeValor(dados.custoPecas) ? dados.custoPecas : custoDasPecas(lista);
    c.custoTotal = soma(c.custoPecas, CSng(c.totalMO));
    c.despesas = parte(c.custoTotal, dados.despesas);
    c.custoTotal = soma(c.custoTotal, CSng(c.despesas));
    c.lucro = parte(c.custoTotal, dados.lucro);
    c.custoTotal = soma(c.custoTotal, CSng(c.lucro));
    c.iss = parte(c.custoTotal, dados.iss);
    c.simples = parte(c.custoTotal, dados.simples);
    c.custoTotal = soma(soma(c.custoTotal, CSng(c.iss)), CSng(c.simples));
    return c;
}

} // namespace workorders
