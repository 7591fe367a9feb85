#include "reports/relacheques.h"

#include "core/financas.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "reports/selecionado.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

const Selecao selecaoDeCheques{
    .janela = u"frmRelaSelecaoCheques",
    .titulo = u" - [Relatório de Cheques]",
    .periodo = {.mesesAntes = 1, .mesesDepois = 1},
    .modo = modoRelaCheques,
};

namespace
{

Selecionado selecionado()
{
    return Selecionado(selecaoDeCheques.janela);
}

constexpr std::array colunas{
    ColunaLista{u"Cód. O.S.", 950, u"CodOs", comoCodigo},
    ColunaLista{u"Data", 1250, u"Data", comoData},
    ColunaLista{u"Banco", 3400, u"Banco", comoEsta},
    ColunaLista{u"Conta", 1750, u"Conta", comoEsta},
    ColunaLista{u"Número", 1400, u"Numero", comoEsta},
    ColunaLista{u"Valor", 1250, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1250, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Observações", 3000, u"Observacoes", comoEsta},
};
constexpr std::array somas{Soma{u"Valor"}, Soma{u"Valor", EstaPago}, Soma{u"Valor", NaoEstaPago}};
constexpr std::array<QStringView, 3> nenhum{u"", u"", u"Registro Não Localizado"};

/// The list begins with the order; on paper the cheque's own code stands in front of it.
QString codigoDoCheque(const dao::Recordset &linha)
{
    return comoCodigo(linha, linha.fieldPlace(u"Codigo"));
}

constexpr Lista cheques{.colunas = colunas, .tag = codigoDoCheque, .somas = somas, .vazia = nenhum};

QString consulta()
{
    constexpr std::array<QStringView, 3> porSituacao{
        u"SELECT * FROM Cheques WHERE Pago = True AND Vencimento BETWEEN ",
        u"SELECT * FROM Cheques WHERE Pago = false AND Vencimento BETWEEN ",
        u"SELECT * FROM Cheques WHERE Vencimento BETWEEN ",
    };
    const Selecionado pedido = selecionado();
    return porSituacao.at(std::size_t(pedido.indice(u"cboPago"))) + pedido.periodoSQL() + u" ORDER BY Codigo"_s;
}

void totais(ui::ListView &lista, const Somas &valores)
{
    constexpr std::array<QStringView, 3> rotulos{u"Total de Cheques:", u"Total de Cheques Compensados:",
                                                 u"Total de Cheques não Compensados:"};
    for (std::size_t i = 0; i < rotulos.size(); ++i) {
        lista.addItem({}, {u""_s, rotulos[i].toString(), u""_s, u""_s, runtime::Format(valores[i], mascaraValor)});
    }
}

constexpr std::array camposImpressos{
    CampoDaLista{tagDaLinha},       CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2}, CampoDaLista{3}, CampoDaLista{4},
    CampoDaLista{5, Lado::Direita}, CampoDaLista{6}, CampoDaLista{7}, CampoDaLista{8},
};
constexpr std::array linhasImpressas{LinhaImpressa{
    u"Cod.Ch - O.S.   - Data       - Banco                - Conta           - Número Cheque - Valor      - "
    "Vencimento - Pago - Observações                                   ",
    camposImpressos}};
constexpr Pagina pagina{
    .titulo = u"RELAÇÃO DE CHEQUES", .linhas = linhasImpressas, .porPagina = 38, .tamanho = 8, .deitada = true};

TextosDaPagina textos()
{
    const Selecionado pedido = selecionado();
    return {.linhas = {{{u"Cheques Entre....: "_s, pedido.periodo()},
                        {u"          Situação......: "_s, pedido.texto(u"cboPago")}}}};
}

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaCheques,
    .titulo = u" - [Relatório de Cheques]",
    .lista = cheques,
    .consulta = consulta,
    .completa = totais,
    .pagina = unica<pagina>,
    .textos = textos,
}};

} // namespace

std::span<const Relatorio> relatoriosDeCheques()
{
    return relatorios;
}

} // namespace reports
