#include "documents/impressao.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/runtime/format.h"
#include "platform/runtime/text.h"

#include <QRegularExpression>

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace core;
using namespace documents;

namespace
{

// A label takes 22 columns; with two fields on a line the second label begins at column 57 on every such line.
constexpr int larguraRotulo = 22;
constexpr int larguraValor = colunasTamanho10 - larguraRotulo;
constexpr int larguraPrimeiro = 35;
constexpr int larguraSegundo = 23;
constexpr int larguraTotal = 16;

constexpr auto entreColunas = u"   ";

QList<CampoImpresso> campo(const QString &rotulo, const QString &valor)
{
    return {{rotulo, runtime::Left(valor, larguraValor)}};
}

QList<CampoImpresso> campos(const QString &rotulo1, const QString &valor1, const QString &rotulo2,
                            const QString &valor2)
{
    return {{rotulo1, AlinhaEsquerda(valor1, larguraPrimeiro)}, {rotulo2, runtime::Left(valor2, larguraSegundo)}};
}

QString doCliente(const QString &coluna, const OrdemMostrada &ordem)
{
    return LocalizaCampo(coluna, u"Clientes"_s, u"Codigo = "_s + ordem.codCliente);
}

QString dataHora(const QString &texto)
{
    return runtime::Format(texto, mascaraDataHora);
}

} // namespace

Cabecalho CabecalhoDaOrdem(const OrdemMostrada &ordem, bool completo)
{
    Cabecalho linhas{
        campos(u"DATA ENTRADA........: "_s, dataHora(ordem.dataIn), u" DATA SAÍDA...: "_s, dataHora(ordem.dataOut)),
        campo(u"CÓD. / NOME CLIENTE.: "_s, NumeroImpresso(ordem.codCliente) + u" - "_s + ordem.nome),
        campos(u"FONE 1..............: "_s, doCliente(u"Fone1"_s, ordem), u" CELULAR......: "_s,
               doCliente(u"Celular"_s, ordem)),
        campo(u"VEÍCULO MARCA/MODELO: "_s, ordem.marca),
        campos(u"ANO.................: "_s, ordem.ano, u" PLACAS.......: "_s, ordem.placas),
    };
    if (completo && !ordem.chassi.isEmpty()) {
        linhas << campo(u"CHASSI..............: "_s, ordem.chassi);
    }
    linhas << campo(u"QUILOMETRAGEM.......: "_s, ordem.km);
    if (completo) {
        linhas << campo(u"MECÂNICO RESP.......: "_s, ordem.mecanico);
    }
    return linhas;
}

Cabecalho CabecalhoDaObservacao(const QString &observacao)
{
    Cabecalho linhas;
    if (observacao.isEmpty()) {
        return linhas;
    }
    QString rotulo = u"OBSERVAÇÕES.........: "_s;
    for (const QString &linha : EmLinhas(observacao, larguraValor)) {
        linhas << QList<CampoImpresso>{{rotulo, linha}};
        rotulo = QString(larguraRotulo, u' ');
    }
    return linhas;
}

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

QString LinhaDoTotal(const QString &rotulo, const QString &total)
{
    return AlinhaDireita(rotulo, colunasTamanho10 - larguraTotal) +
           AlinhaDireita(runtime::Format(total, mascaraValor), larguraTotal);
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

QString NumeroImpresso(const QString &codigo)
{
    return runtime::Format(codigo, mascaraCodigo);
}

void DefineFonte(printer::Surface &saida, double tamanho, bool negrito, bool sublinhado)
{
    saida.FontSize = tamanho;
    saida.FontBold = negrito;
    saida.FontUnderline = sublinhado;
}

bool CabeAcima(const printer::Surface &saida, double limite, qsizetype linhas)
{
    const double altura = printer::lineHeight({saida.FontName, saida.FontSize}) / printer::twipsPerCentimetre;
    return saida.CurrentY() + altura * static_cast<double>(linhas) <= limite;
}

} // namespace workorders
