#include "workorders/layoutsos.h"

#include "documents/folhas.h"

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace documents;

namespace
{

constexpr int itensPorFolha = 45; // below one column line

void imprimeColunas(printer::Surface &saida)
{
    DefineFonte(saida, 10, true, true);
    saida.Print(ColunasDosItens());
    DefineFonte(saida, 10);
}

/// An observation of four lines and more leaves room for fewer items than a sheet may hold.
void imprimeItens(Folhas &folhas, const std::vector<LinhaItem> &itens)
{
    int naFolha = 0;
    imprimeColunas(folhas.saida());
    for (const LinhaItem &item : itens) {
        if (naFolha == itensPorFolha || !folhas.cabe()) {
            folhas.vira();
            imprimeColunas(folhas.saida());
            naFolha = 0;
        }
        folhas.saida().Print(LinhaDoItem(item));
        ++naFolha;
    }
}

void imprimeTotal(Folhas &folhas, const QString &total)
{
    if (!folhas.cabe()) {
        folhas.vira();
    }
    folhas.saida().Print(LinhaDoTotal(u" VALOR TOTAL.....:"_s, total));
}

} // namespace

void ImprimeLayout2(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento)
{
    Folhas folhas(saida, u"ORDEM DE SERVIÇO Nº "_s + NumeroImpresso(ordem.codigo),
                  CabecalhoDaOrdem(ordem, false) + CabecalhoDaObservacao(ordem.observacao), itensPorFolha + 1);
    folhas.abre();
    imprimeItens(folhas, ordem.pecas);
    imprimeTotal(folhas, ordem.total);
    ImprimePagamento(folhas, pagamento);
    folhas.fecha();
    saida.EndDoc();
}

} // namespace workorders
