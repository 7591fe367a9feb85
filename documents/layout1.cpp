#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "documents/impressao.h"

namespace documents
{

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

constexpr int brancosAntesDoRodape = 3;

double pontaDaFolha(const printer::Surface &saida)
{
    return (saida.Height() - 2 * printer::margin) / printer::twipsPerCentimetre;
}

bool cabe(const printer::Surface &saida, qsizetype linhas)
{
    return CabeAcima(saida, pontaDaFolha(saida), linhas);
}

void imprimeTitulo(const QString &titulo, printer::Surface &saida)
{
    DefineFonte(saida, 12);
    saida.Print();
    DefineFonte(saida, 12, true);
    saida.Print(CentraTexto(titulo, colunasTamanho12));
    DefineFonte(saida, 10);
    saida.Print();
}

void imprimeItens(const Secao &secao, printer::Surface &saida)
{
    saida.Print(ColunasDosItens());
    for (const LinhaItem &linha : secao.linhas) {
        if (!cabe(saida, 1)) {
            saida.NewPage();
            saida.Print(ColunasDosItens());
        }
        saida.Print(LinhaDoItem(linha));
    }
    saida.Print(LinhaDoTotal(secao));
}

void imprimeBlocos(const QList<Bloco> &blocos, printer::Surface &saida)
{
    for (const Bloco &bloco : blocos) {
        if (!CabeAcima(saida, pontaDaFolha(saida), bloco)) {
            saida.NewPage();
        }
        for (const LinhaFinal &linha : bloco) {
            DefineFonte(saida, linha.tamanho);
            saida.Print(linha.texto);
        }
    }
    DefineFonte(saida, 10);
}

void imprimeRodape(printer::Surface &saida)
{
    const QStringList linhas{NomeEmpresa, Config(u"Endereco"_s), Config(u"Bairro"_s), Config(u"Telefone"_s),
                             u"DATA: "_s + Hoje()};
    if (!cabe(saida, brancosAntesDoRodape + linhas.size())) {
        saida.NewPage();
    }
    for (int branco = 0; branco < brancosAntesDoRodape; ++branco) {
        saida.Print();
    }
    for (const QString &linha : linhas) {
        saida.Print(CentraTexto(linha, colunasTamanho10));
    }
}

} // namespace

void ImprimeLayout1(const Documento &documento, printer::Surface &saida)
{
    saida.FontName = u"Courier New"_s;
    saida.setScaleMode(printer::ScaleMode::Centimetres);
    imprimeTitulo(documento.titulo, saida);
    ImprimeCabecalho(saida, documento.cabecalho, false);
    saida.Print();
    imprimeItens(documento.secoes.front(), saida);
    imprimeBlocos(documento.blocos, saida);
    imprimeRodape(saida);
    saida.EndDoc();
}

} // namespace documents
