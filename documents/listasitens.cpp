#include "documents/listasitens.h"

#include "core/config.h"
#include "core/lista.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"

#include <QTabBar>
#include <QVBoxLayout>

#include <span>

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array colunasItens{
    ColunaLista{u"Código", 1000},
    ColunaLista{u"Tipo", 700},
    ColunaLista{.titulo = u"Quantidade", .largura = 1300, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Descrição", 5000},
    ColunaLista{.titulo = u"V. Unit.", .largura = 1600, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"V. Total", .largura = 1600, .alinhamento = Qt::AlignRight},
};

constexpr std::array colunasMaterial{
    ColunaLista{u"Código", 1000},
    ColunaLista{.titulo = u"Quantidade", .largura = 1300, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Descrição", 8900},
};

/// What of an item stands in the columns.
using Texto = QString LinhaItem::*;
constexpr std::array<Texto, colunasItens.size()> textosItens{&LinhaItem::codigo,     &LinhaItem::tipo,
                                                             &LinhaItem::quantidade, &LinhaItem::descricao,
                                                             &LinhaItem::valorUnit,  &LinhaItem::valorTotal};
constexpr std::array<Texto, colunasMaterial.size()> textosMaterial{&LinhaItem::codigo, &LinhaItem::quantidade,
                                                                   &LinhaItem::descricao};

std::span<const ColunaLista> colunasDe(Aba aba)
{
    return aba == abaMaterial ? std::span<const ColunaLista>(colunasMaterial) : colunasItens;
}

std::span<const Texto> textosPorColuna(Aba aba)
{
    return aba == abaMaterial ? std::span<const Texto>(textosMaterial) : textosItens;
}

QStringList textosDe(Aba aba, const LinhaItem &linha)
{
    QStringList textos;
    for (const Texto texto : textosPorColuna(aba)) {
        textos << linha.*texto;
    }
    return textos;
}

} // namespace

FormaListas FormaDoLayout()
{
    return runtime::Val(Config(u"LayoutOS"_s)) <= 2 ? FormaListas::Compacta : FormaListas::Completa;
}

ListasItens::ListasItens(QWidget *parent)
    : QTabWidget(parent), listas_{novaPagina(u"Lista"_s, u"Peças"_s), novaPagina(u"lstServicos"_s, u"Serviços"_s),
                                  novaPagina(u"lstTercerizados"_s, u"Serviços Tercerizados"_s),
                                  novaPagina(u"lstMaterial"_s, u"Material"_s)}
{
}

ui::ListView *ListasItens::novaPagina(const QString &nome, const QString &titulo)
{
    constexpr int margem = 4;
    auto *pagina = new QWidget;
    auto *lista = new ui::ListView(pagina);
    lista->setObjectName(nome);
    lista->setAccessibleName(titulo);
    auto *caixa = new QVBoxLayout(pagina);
    caixa->setContentsMargins(margem, margem, margem, margem);
    caixa->addWidget(lista);
    addTab(pagina, titulo);
    return lista;
}

QString ListasItens::listaDePecas() const
{
    return lista(abaPecas).objectName();
}

void ListasItens::setListaDePecas(const QString &nome)
{
    lista(abaPecas).setObjectName(nome);
}

void ListasItens::monta(FormaListas forma)
{
    QWidget *anterior = this;
    for (const Aba aba : abas) {
        MontaLista(lista(aba), {.colunas = colunasDe(aba)});
        setTabOrder(anterior, &lista(aba));
        anterior = &lista(aba);
    }
    if (forma == FormaListas::Completa) {
        return;
    }
    setTabVisible(abaServicos, false);
    setTabVisible(abaTercerizados, false);
    setTabText(abaPecas, u"Peças e Serviços"_s);
    if (forma == FormaListas::UmaLista) {
        setTabVisible(abaMaterial, false);
        tabBar()->hide();
    }
}

bool ListasItens::compacto() const
{
    return !isTabVisible(abaServicos);
}

std::optional<Aba> ListasItens::ativa() const
{
    const int indice = currentIndex();
    return indice >= abaPecas && indice <= abaMaterial ? std::optional(static_cast<Aba>(indice)) : std::nullopt;
}

std::optional<PosicaoItem> ListasItens::selecionado() const
{
    const auto aba = ativa();
    const int linha = aba ? lista(*aba).selectedRow() : -1;
    return linha >= 0 ? std::optional(PosicaoItem{*aba, linha}) : std::nullopt;
}

PosicaoItem ListasItens::acrescenta(Aba aba, const LinhaItem &linha, const QString &chave)
{
    QStringList textos = textosDe(aba, linha);
    const QString codigo = textos.takeFirst();
    ui::ListItem item = lista(aba).addItem(codigo, textos);
    item.setKey(chave);
    lista(aba).ensureVisible(item.row());
    return {aba, item.row()};
}

void ListasItens::mostra(const std::vector<ItemGravado> &itens)
{
    for (const ItemGravado &item : itens) {
        acrescenta(AbaDoPSA(item.psa, compacto()), item.linha, item.chave);
    }
}

LinhaItem ListasItens::linha(const PosicaoItem &posicao) const
{
    const ui::ListItem item = lista(posicao.aba).item(posicao.linha);
    LinhaItem linha;
    int lugar = 0;
    for (const Texto texto : textosPorColuna(posicao.aba)) {
        linha.*texto = item.subItem(lugar++);
    }
    return linha;
}

QString ListasItens::chave(const PosicaoItem &posicao) const
{
    return lista(posicao.aba).item(posicao.linha).key();
}

void ListasItens::setChave(const PosicaoItem &posicao, const QString &chave)
{
    lista(posicao.aba).item(posicao.linha).setKey(chave);
}

void ListasItens::escreve(const PosicaoItem &posicao, const LinhaItem &linha)
{
    ui::ListItem item = lista(posicao.aba).item(posicao.linha);
    int lugar = 0;
    for (const QString &texto : textosDe(posicao.aba, linha)) {
        item.setSubItem(lugar++, texto);
    }
}

void ListasItens::remove(const PosicaoItem &posicao)
{
    lista(posicao.aba).removeRow(posicao.linha);
}

ItensPorAba ListasItens::itens() const
{
    ItensPorAba itens;
    for (const Aba aba : abas) {
        for (int i = 0; i < lista(aba).count(); ++i) {
            itens.at(aba).push_back(linha({aba, i}));
        }
    }
    return itens;
}

void ListasItens::limpa()
{
    for (const Aba aba : abas) {
        lista(aba).clear();
    }
}

ListasItens &ListasDe(const QString &janela)
{
    auto *listas = qobject_cast<ListasItens *>(ui::Forms::instance().control(janela, u"tabItems"_s));
    Q_ASSERT_X(listas != nullptr, "documents::ListasDe", qPrintable(janela));
    return *listas;
}

} // namespace documents
