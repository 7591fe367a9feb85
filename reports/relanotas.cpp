#include "reports/relanotas.h"

#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/modos.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "reports/selecionado.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

const Selecao selecaoDeNotas{
    .janela = u"frmRelaSelecaoNotasEntradas",
    .titulo = u" - [Relatório Notas Entrada]",
    .periodo = {.mesesAntes = 1},
    .modo = modoRelaNotasFornecedor,
};

namespace
{

Selecionado selecionado()
{
    return Selecionado(selecaoDeNotas.janela);
}

QString fornecedor()
{
    return selecionado().texto(u"lblFornecedor");
}

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Valor", 1300, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Observações", 5000, u"Observacoes", comoEsta},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
};
constexpr std::array somas{Soma{u"Valor"}};

/// Every note can be opened, as the mark tells.
int icone(const dao::Recordset & /*nota*/)
{
    return 1;
}

constexpr Lista notas{.colunas = colunas, .icone = icone, .somas = somas};

/// A text that is no code finds no note.
QString consulta()
{
    constexpr std::array<QStringView, 3> porSituacao{u" AND Pago = True ORDER BY Codigo",
                                                     u" AND Pago = False ORDER BY Codigo", u" ORDER BY Codigo"};
    const Selecionado pedido = selecionado();
    const qint32 codigo = CodigoDoTexto(pedido.texto(u"txtCodForn")).value_or(0);
    return u"SELECT * FROM NotasEntradas WHERE CodForn = "_s + QString::number(codigo) + u" AND Data BETWEEN "_s +
           pedido.periodoSQL() + porSituacao.at(std::size_t(pedido.indice(u"cboPago")));
}

void total(ui::ListView &lista, const Somas &valores)
{
    lista.addItem({}, {u"Total: "_s, runtime::Format(valores.front(), mascaraValor)});
}

constexpr std::array camposImpressos{
    CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2, Lado::Direita}, CampoDaLista{4}, CampoDaLista{3},
};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"CÓDIGO - DATA       - VALOR      - PAGO - OBSERVAÇÕES                                           ",
                  camposImpressos}};
constexpr Pagina pagina{
    .titulo = u"NOTAS DE ENTRADA DE FORNECEDOR", .linhas = linhasImpressas, .rotuloData = u"Data.......: "};

TextosDaPagina textos()
{
    const Selecionado pedido = selecionado();
    return {.linhas = {{{u"Fornecedor.: "_s, pedido.texto(u"lblFornecedor")}},
                       {{u"Período....: "_s, u"de "_s + pedido.periodo(u" até ")}},
                       {{u"Situação...: "_s, pedido.texto(u"cboPago")}}}};
}

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaNotasFornecedor,
    .titulo = u" - [Relatório de Notas de Entrada do Fornecedor: %1]",
    .detalhe = fornecedor,
    .lista = notas,
    .consulta = consulta,
    .completa = total,
    .aviso = u"Nenhum Registro Localizado com sua pesquisa",
    .pagina = unica<pagina>,
    .textos = textos,
    .abertura = Abertura{u"frmMoviEntradaPecaConsulta", modoRelaNotasFornecedor, true},
}};

} // namespace

std::span<const Relatorio> relatoriosDeNotas()
{
    return relatorios;
}

} // namespace reports
