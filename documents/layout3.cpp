#include "workorders/layoutsos.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "platform/runtime/format.h"
#include "documents/folhas.h"

#include <array>

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace core;
using namespace documents;

namespace
{

// Centimetres from the top: a row that reaches the first ends the sheet, a section begins above the second, the total
// above the third.
constexpr double fimDasLinhas = 24.5;
constexpr double ultimoInicio = 23;
constexpr double ultimoTotal = 25;

struct Secao {
    QString titulo;
    std::vector<LinhaItem> OrdemMostrada::*linhas;
    QString OrdemMostrada::*executados; ///< text below the rows, or none
    QString rotuloTotal;
    QString OrdemMostrada::*total;
};

const std::array secoes{
    Secao{u"RELAÇÃO DE PEÇAS:"_s, &OrdemMostrada::pecas, nullptr, u" VALOR TOTAL PEÇAS....:"_s,
          &OrdemMostrada::totalPecas},
    Secao{u"RELAÇÃO DE SERVIÇOS:"_s, &OrdemMostrada::servicos, &OrdemMostrada::servicosExecutados,
          u" VALOR TOTAL SERVIÇOS.:"_s, &OrdemMostrada::totalServicos},
    Secao{u"SERVIÇOS TERCERIZADOS:"_s, &OrdemMostrada::tercerizados, nullptr, u" VALOR TOTAL TERCERIZADOS.:"_s,
          &OrdemMostrada::totalTercerizados},
};

void imprimeTitulo(const Secao &secao, printer::Surface &saida)
{
    DefineFonte(saida, 12, true, true);
    saida.Print(secao.titulo);
    DefineFonte(saida, 10, true, true);
    saida.Print(ColunasDosItens());
    DefineFonte(saida, 10);
}

/// Prints a row; true when the sheet ended with it.
bool imprimeLinha(Folhas &folhas, const QString &linha)
{
    folhas.saida().Print(linha);
    if (folhas.saida().CurrentY() < fimDasLinhas) {
        return false;
    }
    folhas.vira();
    return true;
}

void imprimeLinhas(Folhas &folhas, const Secao &secao, const std::vector<LinhaItem> &linhas)
{
    imprimeTitulo(secao, folhas.saida());
    for (const LinhaItem &linha : linhas) {
        const bool virou = imprimeLinha(folhas, LinhaDoItem(linha));
        if (virou && &linha != &linhas.back()) {
            imprimeTitulo(secao, folhas.saida());
        }
    }
}

void imprimeExecutados(Folhas &folhas, const QString &texto)
{
    if (texto.isEmpty()) {
        return;
    }
    DefineFonte(folhas.saida(), 10, true);
    imprimeLinha(folhas, u"Descrição dos Serviços Executados:"_s);
    DefineFonte(folhas.saida(), 10);
    for (const QString &linha : EmLinhas(texto, colunasTamanho10)) {
        imprimeLinha(folhas, linha);
    }
}

void imprimeSecao(Folhas &folhas, const Secao &secao, const OrdemMostrada &ordem)
{
    const std::vector<LinhaItem> &linhas = ordem.*secao.linhas;
    if (linhas.empty()) {
        return;
    }
    if (folhas.saida().CurrentY() >= ultimoInicio) {
        folhas.vira();
    }
    imprimeLinhas(folhas, secao, linhas);
    if (secao.executados != nullptr) {
        imprimeExecutados(folhas, ordem.*secao.executados);
    }
    folhas.saida().Print(LinhaDoTotal(secao.rotuloTotal, ordem.*secao.total));
    folhas.saida().Print();
}

void imprimeTotal(Folhas &folhas, const QString &total)
{
    if (folhas.saida().CurrentY() >= ultimoTotal) {
        folhas.vira();
    }
    DefineFonte(folhas.saida(), 12, true, true);
    folhas.saida().Print(u"TOTAL O.S....: "_s + runtime::Format(total, mascaraValor));
    DefineFonte(folhas.saida(), 10);
}

/// One workshop prints on paper that carries its address already; the query leaves it out for them.
bool papelComEndereco(const PagamentoOS *pagamento)
{
    return pagamento == nullptr && Config(u"Personalizacao"_s) == u"2-2"_s;
}

} // namespace

void ImprimeLayout3(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento)
{
    Folhas folhas(saida, u"ORDEM DE SERVIÇO Nº "_s + NumeroImpresso(ordem.codigo),
                  CabecalhoDaOrdem(ordem, true) + CabecalhoDaObservacao(ordem.observacao));
    folhas.abre();
    for (const Secao &secao : secoes) {
        imprimeSecao(folhas, secao, ordem);
    }
    imprimeTotal(folhas, ordem.total);
    ImprimePagamento(folhas, pagamento);
    if (!papelComEndereco(pagamento)) {
        folhas.fecha();
    }
    saida.EndDoc();
}

} // namespace workorders
