#include "documents/folhas.h"

namespace documents
{

using namespace core;

namespace
{

constexpr int itensPorFolha = 45; // below one column line

void imprimeColunas(printer::Surface &saida)
{
    DefineFonte(saida, 10, true, true);
    saida.Print(ColunasDosItens());
    DefineFonte(saida, 10);
}

/// A long header leaves room for fewer items than a sheet may hold.
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

void imprimeTotal(Folhas &folhas, const Secao &secao)
{
    if (!folhas.cabe()) {
        folhas.vira();
    }
    folhas.saida().Print(LinhaDoTotal(secao));
}

} // namespace

void ImprimeLayout2(const Documento &documento, printer::Surface &saida)
{
    Folhas folhas(saida, documento, itensPorFolha + 1);
    folhas.abre();
    imprimeItens(folhas, documento.secoes.front().linhas);
    imprimeTotal(folhas, documento.secoes.front());
    folhas.imprime(documento.blocos);
    folhas.fecha();
    saida.EndDoc();
}

} // namespace documents
