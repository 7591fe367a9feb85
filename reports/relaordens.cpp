#include "reports/relaordens.h"

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

const Selecao selecaoDeOrdens{
    .janela = u"frmRelaSelecaoOS",
    .titulo = u" - [Relatório de Ordens de Serviços]",
    .periodo = {.mesesAntes = 1},
    .modo = modoRelaOrdens,
};

namespace
{

Selecionado selecionado()
{
    return Selecionado(selecaoDeOrdens.janela);
}

int abreOrdem(const dao::Recordset & /*linha*/)
{
    return 1;
}

constexpr std::array colunas{
    ColunaLista{u"Código", 1200, u"Codigo", comoCodigo},
    ColunaLista{u"Cliente", 2800, u"Nome", comoEsta},
    ColunaLista{u"Veículo", 2400, u"MarcaModelo", comoEsta},
    ColunaLista{u"Placa", 1150, u"Placas", comoEsta},
    ColunaLista{u"Data Entrada", 2300, u"DataIn", comoDataHora},
    ColunaLista{u"Data Saída", 2300, u"DataOut", comoDataHora},
    ColunaLista{u"KM", 900, u"KM", comoEsta, Qt::AlignRight},
    ColunaLista{u"Valor", 1150, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Em Aberto", 950, u"EmAberto", comoSimNao},
    ColunaLista{u"Pago", 620, u"Pago", comoSimNao},
    ColunaLista{u"Data Pagto.", 2300, u"DataPagto", comoDataHora},
    ColunaLista{u"Forma Pagto.", 2400, u"FormaPagto", comoEsta},
    ColunaLista{u"Observações", 3000, u"Observacao", comoEsta},
};
constexpr std::array somas{Soma{u"Valor"}};
constexpr std::array<QStringView, 2> nenhuma{u"", u"Registro Não Localizado"};
constexpr Lista ordens{.colunas = colunas, .icone = abreOrdem, .somas = somas, .vazia = nenhuma};

QString consulta()
{
    constexpr std::array<QStringView, 3> porSituacao{u" AND OrdemServico.Pago = True",
                                                     u" AND OrdemServico.Pago = False", u""};
    const Selecionado pedido = selecionado();
    return u"SELECT OrdemServico.*, Clientes.Nome, Veiculos.MarcaModelo, Veiculos.Placas FROM OrdemServico, Clientes, "
           "Veiculos WHERE Clientes.Codigo = OrdemServico.CodCliente AND Veiculos.Codigo = OrdemServico.CodVeiculo "
           "AND OrdemServico.DataIn between "_s +
           pedido.periodoSQL() + porSituacao.at(std::size_t(pedido.indice(u"cboPago")));
}

void total(ui::ListView &lista, const Somas &valores)
{
    lista.addItem({}, {u"TOTAL:"_s, u""_s, u""_s, u""_s, u""_s, u""_s, runtime::Format(valores.front(), mascaraValor)});
}

/// On paper an order is two lines without the odometer, and its dates lose their times.
constexpr std::array camposDeCima{
    CampoDaLista{0},
    CampoDaLista{1},
    CampoDaLista{2},
    CampoDaLista{3},
    CampoDaLista{4},
    CampoDaLista{5},
    CampoDaLista{7, Lado::Direita},
};
constexpr std::array camposDeBaixo{CampoDaLista{8}, CampoDaLista{9}, CampoDaLista{10}, CampoDaLista{11},
                                   CampoDaLista{12}};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"C.O.S. - CLIENTE                        - VEÍCULO                      - PLACAS   - DATA ENTR. - "
                  "DATA SAÍDA - VALOR     ",
                  camposDeCima},
    LinhaImpressa{u"ABERTA -  PAGO  - DATA PAGTO - FORMA PAGTO                    - OBSERVAÇÕES                        "
                  "                     ",
                  camposDeBaixo},
};
constexpr Pagina pagina{
    .titulo = u"RELATÓRIO DE ORDENS DE SERVIÇOS", .linhas = linhasImpressas, .porPagina = 28, .tamanho = 8};

TextosDaPagina textos()
{
    const Selecionado pedido = selecionado();
    return {.linhas = {{{u"O.S. Entre.......: "_s, pedido.periodo()},
                        {u"          Situação.........: "_s, pedido.texto(u"cboPago")}}}};
}

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaOrdens,
    .titulo = u" - [Relatório de Ordens de Serviços]",
    .lista = ordens,
    .consulta = consulta,
    .completa = total,
    .pagina = unica<pagina>,
    .textos = textos,
    .abertura = Abertura{u"frmOSConsulta", modoUmaOS, true, modoRelaOrdens},
}};

} // namespace

std::span<const Relatorio> relatoriosDeOrdens()
{
    return relatorios;
}

} // namespace reports
