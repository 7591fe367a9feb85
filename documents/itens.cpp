#include "documents/itens.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <array>

namespace documents
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// A column's title and its width in twips.
struct Coluna {
    const char16_t *titulo;
    int largura;
    Qt::Alignment alinhamento;
};

const std::array colunasItens{
    Coluna{u"Código", 1000, Qt::AlignLeft},      Coluna{u"Tipo", 700, Qt::AlignLeft},
    Coluna{u"Quantidade", 1300, Qt::AlignRight}, Coluna{u"Descrição", 5000, Qt::AlignLeft},
    Coluna{u"V. Unit.", 1600, Qt::AlignRight},   Coluna{u"V. Total", 1600, Qt::AlignRight},
};

const std::array colunasMaterial{
    Coluna{u"Código", 1000, Qt::AlignLeft},
    Coluna{u"Quantidade", 1300, Qt::AlignRight},
    Coluna{u"Descrição", 8900, Qt::AlignLeft},
};

template<std::size_t N>
void acrescentaColunas(ui::ListView &lista, const std::array<Coluna, N> &colunas)
{
    for (const Coluna &coluna : colunas) {
        lista.addColumn(QString::fromUtf16(coluna.titulo), coluna.largura, coluna.alinhamento);
    }
}

QStringList subItensDe(Aba aba, const LinhaItem &linha)
{
    if (aba == abaMaterial) {
        return {linha.quantidade, linha.descricao};
    }
    return {linha.tipo, linha.quantidade, linha.descricao, linha.valorUnit, linha.valorTotal};
}

/// Adds every row of a list to the total and to the subtotal that `subtotal` gives for its type, if any.
template<class Subtotal>
void somaLista(const ui::ListView &lista, Totais &totais, Subtotal subtotal)
{
    for (int linha = 0; linha < lista.count(); ++linha) {
        const ui::ListItem item = lista.item(linha);
        const QString valor = item.subItem(colValorTotal);
        totais.total = SomaTexto(totais.total, valor);
        if (QString *parcial = subtotal(item.subItem(colTipo))) {
            *parcial = SomaTexto(*parcial, valor);
        }
    }
}

QString *subtotalDoTipo(Totais &totais, const QString &tipo)
{
    if (tipo == u"P") {
        return &totais.pecas;
    }
    if (tipo == u"S") {
        return &totais.servicos;
    }
    return tipo == u"A" ? &totais.terceiros : nullptr;
}

} // namespace

void MontaColunas(ui::ListView &lista, Aba aba)
{
    if (aba == abaMaterial) {
        acrescentaColunas(lista, colunasMaterial);
    } else {
        acrescentaColunas(lista, colunasItens);
    }
}

int AcrescentaItem(ui::ListView &lista, Aba aba, const LinhaItem &linha)
{
    const int nova = lista.addItem(linha.codigo, subItensDe(aba, linha)).row();
    lista.ensureVisible(nova);
    return nova;
}

LinhaItem LinhaDe(const ui::ListView &lista, Aba aba, int linha)
{
    const ui::ListItem item = lista.item(linha);
    if (aba == abaMaterial) {
        return {item.text(), {}, item.subItem(colMaterialQuantidade), item.subItem(colMaterialDescricao), {}, {}};
    }
    return {item.text(),
            item.subItem(colTipo),
            item.subItem(colQuantidade),
            item.subItem(colDescricao),
            item.subItem(colValorUnit),
            item.subItem(colValorTotal)};
}

std::vector<LinhaItem> LinhasDe(const ui::ListView &lista, Aba aba)
{
    std::vector<LinhaItem> linhas;
    linhas.reserve(static_cast<std::size_t>(lista.count()));
    for (int linha = 0; linha < lista.count(); ++linha) {
        linhas.push_back(LinhaDe(lista, aba, linha));
    }
    return linhas;
}

void EscreveLinha(ui::ListView &lista, int linha, const LinhaItem &item)
{
    ui::ListItem destino = lista.item(linha);
    destino.setText(item.codigo);
    const QStringList subItens = subItensDe(abaPecas, item);
    for (int coluna = 0; coluna < subItens.size(); ++coluna) {
        destino.setSubItem(coluna + 1, subItens.at(coluna));
    }
}

QString ValorDaLinha(const QString &quantidade, const QString &valorUnit)
{
    return Format(CDbl(quantidade) * CDbl(valorUnit), mascaraValor);
}

Totais SomaItens(const ui::ListView &pecas, const ui::ListView *servicos, const ui::ListView *tercerizados)
{
    Totais totais;
    if (!servicos || !tercerizados) {
        somaLista(pecas, totais, [&](const QString &tipo) { return subtotalDoTipo(totais, tipo); });
        return totais;
    }
    somaLista(pecas, totais, [&](const QString &) { return &totais.pecas; });
    somaLista(*servicos, totais, [&](const QString &) { return &totais.servicos; });
    somaLista(*tercerizados, totais, [&](const QString &) { return &totais.terceiros; });
    return totais;
}

bool LayoutCompacto()
{
    return Val(Config(u"LayoutOS"_s)) <= 2;
}

QString PSADaLinha(Aba aba, const QString &tipo, bool compacto)
{
    if (aba == abaMaterial) {
        return u"K"_s;
    }
    if (compacto || aba == abaPecas) {
        return tipo;
    }
    if (aba == abaTercerizados) {
        return u"X"_s;
    }
    return tipo == u"S" ? tipo : u"Z"_s;
}

LinhaItem ParaGravar(LinhaItem linha, Aba aba, bool compacto)
{
    linha.tipo = PSADaLinha(aba, linha.tipo, compacto);
    if (aba == abaMaterial) {
        linha.valorUnit = u"0,00"_s;
    }
    return linha;
}

Aba AbaDoPSA(const QString &psa, bool compacto)
{
    if (psa == u"K") {
        return abaMaterial;
    }
    if (compacto) {
        return abaPecas;
    }
    if (psa == u"S" || psa == u"Z") {
        return abaServicos;
    }
    return psa == u"X" ? abaTercerizados : abaPecas;
}

QString TipoDoPSA(const QString &psa)
{
    return psa == u"Z" || psa == u"X" ? u"A"_s : psa;
}

QString QuantidadeDaPeca(double quantidade, qint32 codPeca)
{
    auto peca = DBDados->OpenRecordset(u"SELECT UM FROM Pecas WHERE Codigo = "_s + QString::number(codPeca));
    const Value um = peca.Eof() ? Value{} : peca[u"UM"].Value();
    return FormataQuantidade(quantidade, IsNull(um) || IsEmpty(um) ? 0 : CInt(um));
}

} // namespace documents
