#include "core/papel.h"

namespace core
{

void ImprimeCabecalho(printer::Surface &saida, const Cabecalho &cabecalho, bool rotulosEmNegrito)
{
    for (const auto &linha : cabecalho) {
        for (const CampoImpresso &impresso : linha) {
            DefineFonte(saida, 10, rotulosEmNegrito);
            saida.Print(impresso.rotulo, false);
            DefineFonte(saida, 10);
            saida.Print(impresso.valor, &impresso == &linha.back());
        }
    }
}

void DefineFonte(printer::Surface &saida, double tamanho, bool negrito, bool sublinhado)
{
    saida.FontSize = tamanho;
    saida.FontBold = negrito;
    saida.FontUnderline = sublinhado;
}

} // namespace core
