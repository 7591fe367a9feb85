#include "workorders/layouts.h"

#include "core/config.h"
#include "documents/folhas.h"
#include "workorders/layoutsos.h"
#include "workorders/textopagto.h"

namespace workorders
{

using namespace Qt::StringLiterals;

void ImprimePagamento(Folhas &folhas, const PagamentoOS *pagamento)
{
    if (pagamento == nullptr || core::Config(u"PrintFormaPagto"_s) != u"S"_s) {
        return;
    }
    const QStringList linhas = QStringList{QString()} + TextoPagamento(*pagamento);
    DefineFonte(folhas.saida(), 10);
    if (!folhas.cabe(linhas.size())) {
        folhas.vira();
    }
    for (const QString &linha : linhas) {
        if (!folhas.cabe()) {
            folhas.vira();
        }
        folhas.saida().Print(linha);
    }
}

void ImprimeOrdem(int layout, const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento)
{
    switch (layout) {
    case 1:
        return ImprimeLayout1(ordem, saida, pagamento);
    case 2:
        return ImprimeLayout2(ordem, saida, pagamento);
    case 3:
        return ImprimeLayout3(ordem, saida, pagamento);
    default:
        return;
    }
}

} // namespace workorders
