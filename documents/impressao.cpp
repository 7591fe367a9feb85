#include "documents/impressao.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "platform/runtime/format.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/text.h"

#include <QRegularExpression>

namespace documents
{

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

// A label takes 22 columns; with two fields on a line the second label begins at column 57 on every such line.
constexpr int larguraRotulo = 22;
constexpr int larguraValor = colunasTamanho10 - larguraRotulo;
constexpr int larguraPrimeiro = 35;
constexpr int larguraSegundo = 23;
constexpr int larguraTotal = 16;

constexpr auto entreColunas = u"   ";

double altura(const printer::Surface &saida, double tamanho)
{
    return printer::lineHeight({saida.FontName, tamanho}) / printer::twipsPerCentimetre;
}

} // namespace

LinhaCabecalho UmCampo(const QString &rotulo, const QString &valor)
{
    return {{rotulo, runtime::Left(valor, larguraValor)}};
}

LinhaCabecalho DoisCampos(const QString &rotulo1, const QString &valor1, const QString &rotulo2, const QString &valor2)
{
    return {{rotulo1, AlinhaEsquerda(valor1, larguraPrimeiro)}, {rotulo2, runtime::Left(valor2, larguraSegundo)}};
}

Cabecalho CabecalhoEmLinhas(const QString &rotulo, const QString &valor)
{
    Cabecalho linhas;
    if (valor.isEmpty()) {
        return linhas;
    }
    for (const QString &linha : EmLinhas(valor, larguraValor)) {
        linhas << LinhaCabecalho{{linhas.isEmpty() ? rotulo : QString(larguraRotulo, u' '), linha}};
    }
    return linhas;
}

Cabecalho CabecalhoDaObservacao(const QString &observacao)
{
    return CabecalhoEmLinhas(u"OBSERVAÇÕES.........: "_s, observacao);
}

Bloco BlocoDe(const QStringList &linhas, double tamanho)
{
    Bloco bloco;
    for (const QString &linha : linhas) {
        bloco << LinhaFinal{linha, tamanho};
    }
    return bloco;
}

Bloco BlocoDaObservacao(const QString &observacao)
{
    if (observacao.isEmpty()) {
        return {};
    }
    QString rotulo = u"OBS: "_s;
    QStringList linhas{QString()};
    for (const QString &linha : EmLinhas(observacao, static_cast<int>(colunasTamanho10 - rotulo.size()))) {
        linhas << rotulo + linha;
        rotulo = QString(rotulo.size(), u' ');
    }
    return BlocoDe(linhas);
}

QString ColunasDosItens()
{
    return u"CÓDIGO - T -     QUANT. - DESCRIÇÃO                                    -   V. UNIT. -   V. TOTAL"_s;
}

QString LinhaDoItem(const LinhaItem &linha)
{
    const QStringList colunas{AlinhaEsquerda(linha.codigo, 6),     AlinhaEsquerda(linha.tipo, 1),
                              AlinhaDireita(linha.quantidade, 10), AlinhaEsquerda(linha.descricao, 44),
                              AlinhaDireita(linha.valorUnit, 10),  AlinhaDireita(linha.valorTotal, 10)};
    return colunas.join(QStringView(entreColunas));
}

QString LinhaDoTotal(const Secao &secao)
{
    return AlinhaDireita(secao.rotuloTotal, colunasTamanho10 - larguraTotal) +
           AlinhaDireita(runtime::Format(secao.total, mascaraValor), larguraTotal);
}

QStringList EmLinhas(const QString &texto, int largura)
{
    static const QRegularExpression quebraDeLinha(u"\\r\\n|\\r|\\n"_s);
    QStringList linhas;
    for (const QString &paragrafo : texto.split(quebraDeLinha)) {
        linhas += QuebraTexto(paragrafo, largura);
    }
    return linhas;
}

bool CabeAcima(const printer::Surface &saida, double limite, qsizetype linhas)
{
    return saida.CurrentY() + altura(saida, saida.FontSize) * static_cast<double>(linhas) <= limite;
}

bool CabeAcima(const printer::Surface &saida, double limite, const Bloco &bloco)
{
    double fim = saida.CurrentY();
    for (const LinhaFinal &linha : bloco) {
        fim += altura(saida, linha.tamanho);
    }
    return fim <= limite;
}

int LayoutDeImpressao()
{
    return static_cast<int>(runtime::Val(Config(u"LayoutOS"_s)));
}

bool TemPreVisualizacao(int layout)
{
    return layout == 2 || layout == 3;
}

void ImprimeDocumento(int layout, const Documento &documento, printer::Surface &saida)
{
    switch (layout) {
    case 1:
        return ImprimeLayout1(documento, saida);
    case 2:
        return ImprimeLayout2(documento, saida);
    case 3:
        return ImprimeLayout3(documento, saida);
    default:
        return;
    }
}

} // namespace documents
