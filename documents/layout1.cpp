#include "workorders/layoutsos.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "documents/impressao.h"
#include "workorders/textopagto.h"

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace core;
using namespace documents;

namespace
{

constexpr int brancosAntesDoRodape = 3;

bool cabe(const printer::Surface &saida, qsizetype linhas)
{
    const double pontaDaFolha = (saida.Height() - 2 * printer::margin) / printer::twipsPerCentimetre;
    return CabeAcima(saida, pontaDaFolha, linhas);
}

void imprimeLinhas(printer::Surface &saida, const QStringList &linhas)
{
    for (const QString &linha : linhas) {
        saida.Print(linha);
    }
}

void imprimeTitulo(const OrdemMostrada &ordem, printer::Surface &saida)
{
    DefineFonte(saida, 12);
    saida.Print();
    DefineFonte(saida, 12, true);
    saida.Print(CentraTexto(u"ORDEM DE SERVIÇO Nº "_s + NumeroImpresso(ordem.codigo), colunasTamanho12));
    DefineFonte(saida, 10);
    saida.Print();
}

void imprimeItens(const OrdemMostrada &ordem, printer::Surface &saida)
{
    saida.Print(ColunasDosItens());
    for (const LinhaItem &linha : ordem.pecas) {
        if (!cabe(saida, 1)) {
            saida.NewPage();
            saida.Print(ColunasDosItens());
        }
        saida.Print(LinhaDoItem(linha));
    }
    saida.Print(LinhaDoTotal(u" VALOR TOTAL.....:"_s, ordem.total));
}

void imprimeObservacao(const QString &observacao, printer::Surface &saida)
{
    if (observacao.isEmpty()) {
        return;
    }
    QString rotulo = u"OBS: "_s;
    saida.Print();
    for (const QString &linha : EmLinhas(observacao, colunasTamanho10 - 5)) {
        saida.Print(rotulo + linha);
        rotulo = QString(rotulo.size(), u' ');
    }
}

void imprimeRodape(printer::Surface &saida)
{
    const QStringList linhas{NomeEmpresa, Config(u"Endereco"_s), Config(u"Bairro"_s), Config(u"Telefone"_s),
                             u"DATA: "_s + runtime::Format(runtime::Today(), mascaraData)};
    if (!cabe(saida, brancosAntesDoRodape + linhas.size())) {
        saida.NewPage();
    }
    imprimeLinhas(saida, QStringList(brancosAntesDoRodape));
    for (const QString &linha : linhas) {
        saida.Print(CentraTexto(linha, colunasTamanho10));
    }
}

} // namespace

void ImprimeLayout1(const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento)
{
    saida.FontName = u"Courier New"_s;
    saida.setScaleMode(printer::ScaleMode::Centimetres);
    imprimeTitulo(ordem, saida);
    ImprimeCabecalho(saida, CabecalhoDaOrdem(ordem, false), false);
    saida.Print();
    imprimeItens(ordem, saida);
    imprimeObservacao(ordem.observacao, saida);
    if (pagamento != nullptr) {
        saida.Print();
        imprimeLinhas(saida, TextoPagamento(*pagamento));
    }
    imprimeRodape(saida);
    saida.EndDoc();
}

} // namespace workorders
