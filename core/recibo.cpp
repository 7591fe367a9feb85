#include "core/recibo.h"

#include "core/figuras.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/papel.h"

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int larguraDaAssinatura = 44;

void pulaLinhas(printer::Surface &saida, int linhas)
{
    for (int linha = 0; linha < linhas; ++linha) {
        saida.Print();
    }
}

void imprimeTitulo(const Recibo &recibo, printer::Surface &saida)
{
    DefineFonte(saida, 18, true);
    saida.setCurrentY(2);
    saida.setCurrentX(12);
    saida.Print(u"  RECIBO R$ "_s + recibo.valor);
    if (!recibo.segundoTitulo.isEmpty()) {
        saida.setCurrentX(12);
        saida.Print(recibo.segundoTitulo);
    }
}

void imprimeAssinatura(printer::Surface &saida)
{
    pulaLinhas(saida, 5);
    saida.Print(CentraTexto(QString(larguraDaAssinatura, u'_'), colunasTamanho10));
    saida.Print(CentraTexto(u"ASSINATURA"_s, colunasTamanho10));
}

} // namespace

void ImprimeRecibo(const Recibo &recibo, printer::Surface &saida)
{
    saida.ColorMode = printer::ColorMode::Color;
    saida.FontName = u"Courier New"_s;
    saida.setScaleMode(printer::ScaleMode::Centimetres);
    saida.PaintPicture(LeFigura(ArquivoLogo), 0, 1, 12, 3.5);
    imprimeTitulo(recibo, saida);
    DefineFonte(saida, 10);
    saida.setCurrentY(4);
    pulaLinhas(saida, 2);
    for (const QString &linha : recibo.linhas) {
        ImprimeQuebrado(linha, colunasTamanho10 + 1, saida); // the words of an amount must not end at the paper's edge
    }
    imprimeAssinatura(saida);
    saida.EndDoc();
}

} // namespace core
