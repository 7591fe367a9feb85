#include "reports/relapecas.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array<QStringView, 2> nenhuma{u"", u"Registro não Localizado"};

// --- the stock of all parts

constexpr std::array colunasDoEstoque{
    ColunaLista{u"Código", 900},
    ColunaLista{u"Descrição", 3200},
    ColunaLista{u"Aplicação", 2400},
    ColunaLista{u"Unid. Medida", 1500},
    ColunaLista{u"Estoque Mínimo", 1700, {}, nullptr, Qt::AlignRight},
    ColunaLista{u"Estoque Atual", 1500, {}, nullptr, Qt::AlignRight},
};
constexpr Lista listaDoEstoque{.colunas = colunasDoEstoque};

/// The balance of the part's newest row; "" for a part that has none.
QString estoqueAtual(const dao::Recordset &peca)
{
    const QString codigo = comoEsta(peca, peca.fieldPlace(u"Codigo"));
    const QString saldo =
        LocalizaCampo(u"estoque"_s, u"Estoque"_s, u"CodPeca = "_s + codigo + u" ORDER BY Codigo DESC"_s);
    const int unidade = comoEsta(peca, peca.fieldPlace(u"UM")).toInt();
    return saldo.isEmpty() ? QString() : FormataQuantidade(runtime::CDbl(saldo), unidade);
}

/// The balances are those of the moment of the filling, so the rows are texts.
void acrescentaEstoque(ui::ListView &lista, const dao::Recordset &peca)
{
    const auto texto = [&peca](Mostra mostra, QStringView coluna) { return mostra(peca, peca.fieldPlace(coluna)); };
    lista.addItem(texto(comoCodigo, u"Codigo"),
                  {texto(comoEsta, u"Nome"), texto(comoEsta, u"MarcaModelo"), texto(comoUnidade, u"UM"),
                   texto(comoQuantidade, u"EstoqueMinimo"), estoqueAtual(peca)});
}

void linhasDoEstoque(ui::ListView &lista, Andamento &obra)
{
    ParaCada(DBDados->OpenRecordset(u"SELECT * FROM PECAS WHERE ControlaEstoque = True ORDER BY Nome"_s), obra,
             [&lista](const dao::Recordset &peca) { acrescentaEstoque(lista, peca); });
    if (lista.count() == 0) {
        lista.addItem(nenhuma[0].toString(), {nenhuma[1].toString()});
    }
}

constexpr std::array camposDoEstoque{
    CampoDaLista{0},
    CampoDaLista{1},
    CampoDaLista{2},
    CampoDaLista{3},
    CampoDaLista{4, Lado::Direita},
    CampoDaLista{5, Lado::Direita},
};
constexpr std::array impressaDoEstoque{
    LinhaImpressa{u"CÓDIGO - DESCRIÇÃO                 - APLICAÇÃO            - UNID.MEDI. - E.MÍNIMO   - E. ATUAL  ",
                  camposDoEstoque}};
constexpr Pagina paginaDoEstoque{.titulo = u"LISTA DE ESTOQUE GERAL", .linhas = impressaDoEstoque};

// --- parts and services

constexpr std::array colunasDosPrecos{
    ColunaLista{u"Código", 760, u"Codigo", comoCodigo},
    ColunaLista{u"Descrição", 2500, u"Nome", comoEsta},
    ColunaLista{u"Aplicação", 2150, u"MarcaModelo", comoEsta},
    ColunaLista{u"Peça/Serviço", 1300, u"PS", comoEsta},
    ColunaLista{u"Valor de Custo", 1420, u"ValorCusto", comoValor, Qt::AlignRight},
    ColunaLista{u"Valor de Venda", 1450, u"ValorVenda", comoValor, Qt::AlignRight},
    ColunaLista{u"Estoque Mínimo", 1530, u"EstoqueMinimo", comoQuantidade, Qt::AlignRight},
    ColunaLista{u"Cont. Estoque", 1370, u"ControlaEstoque", comoSimNao},
};
constexpr Lista listaDosPrecos{.colunas = colunasDosPrecos, .vazia = nenhuma};

QString consultaDosPrecos()
{
    return u"SELECT * FROM PECAS ORDER BY PS, Nome, MarcaModelo"_s;
}

constexpr std::array camposComCusto{
    CampoDaLista{0},
    CampoDaLista{1},
    CampoDaLista{2},
    CampoDaLista{4, Lado::Direita},
    CampoDaLista{5, Lado::Direita},
    CampoDaLista{6, Lado::Direita},
    CampoDaLista{7},
};
constexpr std::array camposSemCusto{
    CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2}, CampoDaLista{5, Lado::Direita}, CampoDaLista{6, Lado::Direita},
    CampoDaLista{7},
};
constexpr std::array impressaComCusto{
    LinhaImpressa{u"CÓDIGO - DESCRIÇÃO              - APLICAÇÃO         - V. CUSTO   - V. VENDA   - EST. MIN.  - C.E",
                  camposComCusto}};
constexpr std::array impressaSemCusto{
    LinhaImpressa{u"CÓDIGO - DESCRIÇÃO              - APLICAÇÃO                      - V. VENDA   - EST. MIN.  - C.E",
                  camposSemCusto}};
constexpr Pagina paginaComCusto{.titulo = u"RELATÓRIO DE PEÇAS/SERVIÇOS", .linhas = impressaComCusto};
constexpr Pagina paginaSemCusto{.titulo = u"RELATÓRIO DE PEÇAS/SERVIÇOS", .linhas = impressaSemCusto};

/// A list for the customers' eyes goes without the costs.
const Pagina *paginaDosPrecos()
{
    return ui::Confirm(u"Imprimir Valor Custo"_s) ? &paginaComCusto : &paginaSemCusto;
}

// --- what is to be bought

constexpr std::array colunasDasCompras{
    ColunaLista{u"Código Peça", 1100, u"Codigo", comoCodigo},
    ColunaLista{u"Nome Peça", 5000, u"Nome", comoEsta},
    ColunaLista{u"Estoque Mínimo", 1600, u"EstoqueMinimo", comoQuantidade, Qt::AlignRight},
    ColunaLista{u"Estoque Atual", 1600, u"EstoqueAtual", comoQuantidade, Qt::AlignRight},
};
constexpr Lista listaDasCompras{.colunas = colunasDasCompras, .vazia = nenhuma};

QString consultaDasCompras()
{
    return u"SELECT Codigo, Nome, EstoqueMinimo, (Select last(estoque) from Estoque where CodPeca = Pecas.Codigo) As "
           "EstoqueAtual, UM FROM Pecas WHERE ControlaEstoque = True AND   (Select last(estoque) from Estoque where "
           "CodPeca = Pecas.Codigo) < EstoqueMinimo"_s;
}

constexpr std::array camposDasCompras{
    CampoDaLista{0},
    CampoDaLista{1},
    CampoDaLista{2, Lado::Direita},
    CampoDaLista{3, Lado::Direita},
};
constexpr std::array impressaDasCompras{
    LinhaImpressa{u"COD.PEÇ - NOME PEÇA                                - EST.MÍNIMO - EST. ATUAL - COMPRAR:         ",
                  camposDasCompras}};
constexpr Pagina paginaDasCompras{
    .titulo = u"LISTA DE COMPRAS", .linhas = impressaDasCompras, .fimDaLinha = u"   __________"};

constexpr std::array relatorios{
    Relatorio{.modo = modoRelaEstoqueGeral,
              .titulo = u" - [Relatório de Estoque Geral de Peças]",
              .lista = listaDoEstoque,
              .linhas = linhasDoEstoque,
              .pagina = unica<paginaDoEstoque>,
              .abertura = Abertura{u"frmMoviEstoque", modoEstoqueDeUmaPeca}},
    Relatorio{.modo = modoRelaPecas,
              .titulo = u" - [Relatório de Peças]",
              .lista = listaDosPrecos,
              .consulta = consultaDosPrecos,
              .pagina = paginaDosPrecos},
    Relatorio{.modo = modoRelaCompras,
              .titulo = u" - [Lista de Compras]",
              .lista = listaDasCompras,
              .consulta = consultaDasCompras,
              .pagina = unica<paginaDasCompras>},
};

} // namespace

std::span<const Relatorio> relatoriosDePecas()
{
    return relatorios;
}

} // namespace reports
