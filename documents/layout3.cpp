#include "documents/folhas.h"

namespace documents
{

using namespace core;

namespace
{

// Centimetres from the top: a row that reaches the first ends the sheet, a section begins above the second, the total
// above the third.
constexpr double fimDasLinhas = 24.5;
constexpr double ultimoInicio = 23;
constexpr double ultimoTotal = 25;

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

void imprimeLinhas(Folhas &folhas, const Secao &secao)
{
    imprimeTitulo(secao, folhas.saida());
    for (const LinhaItem &linha : secao.linhas) {
        const bool virou = imprimeLinha(folhas, LinhaDoItem(linha));
        if (virou && &linha != &secao.linhas.back()) {
            imprimeTitulo(secao, folhas.saida());
        }
    }
}

void imprimeTexto(Folhas &folhas, const Secao &secao)
{
    if (secao.texto.isEmpty()) {
        return;
    }
    DefineFonte(folhas.saida(), 10, true);
    imprimeLinha(folhas, secao.rotuloTexto);
    DefineFonte(folhas.saida(), 10);
    for (const QString &linha : EmLinhas(secao.texto, colunasTamanho10)) {
        imprimeLinha(folhas, linha);
    }
}

void imprimeSecao(Folhas &folhas, const Secao &secao)
{
    if (secao.linhas.empty()) {
        return;
    }
    if (folhas.saida().CurrentY() >= ultimoInicio) {
        folhas.vira();
    }
    imprimeLinhas(folhas, secao);
    imprimeTexto(folhas, secao);
    folhas.saida().Print(LinhaDoTotal(secao));
    folhas.saida().Print();
}

void imprimeTotal(Folhas &folhas, const QString &total)
{
    if (folhas.saida().CurrentY() >= ultimoTotal) {
        folhas.vira();
    }
    DefineFonte(folhas.saida(), 12, true, true);
    folhas.saida().Print(total);
    DefineFonte(folhas.saida(), 10);
}

} // namespace

void ImprimeLayout3(const Documento &documento, printer::Surface &saida)
{
    Folhas folhas(saida, documento);
    folhas.abre();
    for (const Secao &secao : documento.secoes) {
        imprimeSecao(folhas, secao);
    }
    imprimeTotal(folhas, documento.totalGeral);
    folhas.imprime(documento.blocos);
    if (documento.comRodape) {
        folhas.fecha();
    }
    saida.EndDoc();
}

} // namespace documents
