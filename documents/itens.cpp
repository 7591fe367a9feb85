#include "documents/itens.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

#include <cmath>

namespace documents
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr double maiorValor = 1e15; // the digits that a number is shown with

/// The subtotal that a charged row counts in; a type without one counts in the total alone.
QString *subtotal(Totais &totais, Aba aba, const QString &tipo, bool compacto)
{
    if (!compacto) {
        const std::array porLista{&totais.pecas, &totais.servicos, &totais.terceiros};
        return porLista.at(aba);
    }
    if (tipo == u"P") {
        return &totais.pecas;
    }
    if (tipo == u"S") {
        return &totais.servicos;
    }
    return tipo == u"A" ? &totais.terceiros : nullptr;
}

} // namespace

bool ServeDeValor(const QString &texto)
{
    const auto numero = parseNumber(texto);
    return numero && std::abs(*numero) <= maiorValor;
}

QString ValorDaLinha(const QString &quantidade, const QString &valorUnit)
{
    return Format(CDbl(quantidade) * CDbl(valorUnit), mascaraValor);
}

Totais SomaItens(const ItensPorAba &itens, bool compacto)
{
    Totais totais;
    for (const Aba aba : abas) {
        if (aba == abaMaterial || (compacto && aba != abaPecas)) {
            continue;
        }
        for (const LinhaItem &linha : itens.at(aba)) {
            totais.total = SomaTexto(totais.total, linha.valorTotal);
            if (QString *parcial = subtotal(totais, aba, linha.tipo, compacto)) {
                *parcial = SomaTexto(*parcial, linha.valorTotal);
            }
        }
    }
    return totais;
}

QString PSADaLinha(Aba aba, const QString &tipo, bool compacto)
{
    if (aba == abaMaterial) {
        return u"K"_s;
    }
    if (compacto || aba == abaPecas) {
        return tipo;
    }
    if (aba == abaTercerizados) {
        return u"X"_s;
    }
    return tipo == u"S" ? tipo : u"Z"_s;
}

LinhaItem ParaGravar(LinhaItem linha, Aba aba, bool compacto)
{
    linha.tipo = PSADaLinha(aba, linha.tipo, compacto);
    if (aba == abaMaterial) {
        linha.valorUnit = u"0,00"_s;
    }
    return linha;
}

std::vector<LinhaItem> ParaGravar(const ItensPorAba &itens, bool compacto)
{
    std::vector<LinhaItem> linhas;
    for (const Aba aba : abas) {
        if (compacto && aba != abaPecas) {
            continue;
        }
        for (const LinhaItem &linha : itens.at(aba)) {
            linhas.push_back(ParaGravar(linha, aba, compacto));
        }
    }
    return linhas;
}

Aba AbaDoPSA(const QString &psa, bool compacto)
{
    if (psa == u"K") {
        return abaMaterial;
    }
    if (compacto) {
        return abaPecas;
    }
    if (psa == u"S" || psa == u"Z") {
        return abaServicos;
    }
    return psa == u"X" ? abaTercerizados : abaPecas;
}

QString TipoDoPSA(const QString &psa)
{
    return psa == u"Z" || psa == u"X" ? u"A"_s : psa;
}

} // namespace documents
