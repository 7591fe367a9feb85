#include "reports/relavendidas.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "reports/pecasvendidas.h"
#include "reports/selecionado.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

const Selecao selecaoDePecas{
    .janela = u"frmRelaSelecaoPecas",
    .titulo = u" - [Relatório de Peças e Serviços]",
    .periodo = {.mesesAntes = 1},
    .modo = modoRelaPecasVendidas,
};

namespace
{

constexpr std::array colunas{
    ColunaLista{u"Código", 900},
    ColunaLista{u"Descrição", 5000},
    ColunaLista{u"Quantidade", 1500, {}, nullptr, Qt::AlignRight},
    ColunaLista{u"V. Unit.", 1500, {}, nullptr, Qt::AlignRight},
    ColunaLista{u"Total", 1500, {}, nullptr, Qt::AlignRight},
};
constexpr Lista vendidas{.colunas = colunas};

void avisaErro(const QString &texto)
{
    ui::MsgBox(texto, ui::Icon::Critical, NomeEmpresa);
}

/// What is no longer in the register counts in pieces.
QString quantidadeDe(const ItemVendido &item)
{
    const QString unidade = LocalizaCampo(u"UM"_s, u"Pecas"_s, u"Codigo = "_s + QString::number(item.codPeca));
    return FormataQuantidade(double{item.quantidade}, unidade.toInt());
}

void linhas(ui::ListView &lista, Andamento &obra)
{
    const Selecionado pedido(selecaoDePecas.janela);
    const auto quais = static_cast<ItensContados>(pedido.indice(u"cboTipo"));
    const auto itens = ItensVendidos(pedido.periodoSQL(), quais, obra, avisaErro);
    float total = 0;
    for (const ItemVendido &item : itens) {
        total = SaldoDepois(total, item.total);
        lista.addItem(runtime::Format(item.codPeca, mascaraCodigo),
                      {item.descricao, quantidadeDe(item), runtime::Format(item.unit, mascaraValor),
                       runtime::Format(item.total, mascaraValor)});
    }
    if (!itens.empty()) {
        lista.addItem({}, {u"TOTAL:"_s, u""_s, u""_s, runtime::Format(total, mascaraValor)});
    } else if (!obra.deixado()) {
        lista.addItem({}, {u"Registro não Localizado"_s});
    }
}

constexpr std::array campos{
    CampoDaLista{0},
    CampoDaLista{1},
    CampoDaLista{2, Lado::Direita},
    CampoDaLista{3, Lado::Direita},
    CampoDaLista{4, Lado::Direita},
};
constexpr std::array impressa{LinhaImpressa{
    u"COD.P/S - DESCRIÇÃO                                       - QUANTIDADE - V.UNIT.    - V.TOTAL   ", campos}};
constexpr Pagina pagina{.titulo = u"PEÇAS/SERVIÇOS VENDIDOS", .linhas = impressa};

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaPecasVendidas,
    .titulo = u" - [Relatório de Peças/Serviços Vendidos]",
    .lista = vendidas,
    .linhas = linhas,
    .pagina = unica<pagina>,
}};

} // namespace

std::span<const Relatorio> relatoriosDeVendidas()
{
    return relatorios;
}

} // namespace reports
