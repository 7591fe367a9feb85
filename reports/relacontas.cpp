#include "reports/relacontas.h"

#include "core/financas.h"
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

const Selecao selecaoDeContas{
    .janela = u"frmRelaSelecaoContasPR",
    .titulo = u" - [Relatório de Contas a Pagar/Receber]",
    .periodo = {.diasAntes = 15, .diasDepois = 15},
    .modo = modoRelaContas,
};

namespace
{

Selecionado selecionado()
{
    return Selecionado(selecaoDeContas.janela);
}

constexpr int colunaDescricao = 1;
constexpr std::array colunas{
    ColunaLista{u"Data", 1450, u"Data", comoData},
    ColunaLista{u"Descricao", 4500, u"Descricao", comoEsta},
    ColunaLista{u"Valor", 1350, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1450, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Data Pagto.", 1450, u"DataPagto", comoData},
};
constexpr std::array somas{Soma{u"Valor"}, Soma{u"Valor", EstaPago}, Soma{u"Valor", NaoEstaPago}};
constexpr std::array<QStringView, 2> nenhuma{u"", u"Registro Não Localizado"};
constexpr Lista contas{.colunas = colunas, .somas = somas, .vazia = nenhuma};

// --- what is told by side

constexpr std::array camposImpressos{
    CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2, Lado::Direita}, CampoDaLista{3}, CampoDaLista{4}, CampoDaLista{5},
};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"DATA       - DESCRIÇÃO                             - VALOR      - VENCIM.    - PAGO - DATA PGTO.",
                  camposImpressos}};

struct DeUmLado {
    QStringView verbo;
    QStringView consulta;
    std::array<QStringView, somas.size()> totais;
    Pagina pagina;
};

/// By the entry of `cboContas`.
constexpr std::array lados{
    DeUmLado{.verbo = u"Pagar",
             .consulta = u"SELECT * FROM ContasPagar WHERE Vencimento BETWEEN ",
             .totais = {u"Total de Contas:", u"Total de Contas Pagas:", u"Total de Contas à Pagar:"},
             .pagina = {.titulo = u"CONTAS À PAGAR", .linhas = linhasImpressas}},
    DeUmLado{.verbo = u"Receber",
             .consulta = u"SELECT * FROM ContasReceber WHERE Vencimento BETWEEN ",
             .totais = {u"Total de Contas:", u"Total de Contas Recebidas:", u"Total de Contas à Receber:"},
             .pagina = {.titulo = u"CONTAS À RECEBER", .linhas = linhasImpressas}},
};

const DeUmLado &ladoDe(const Selecionado &pedido)
{
    return lados.at(std::size_t(pedido.indice(u"cboContas")));
}

// --- the report

QString detalhe()
{
    const Selecionado pedido = selecionado();
    return ladoDe(pedido).verbo + u" de: "_s + pedido.periodo();
}

QString consulta()
{
    constexpr std::array<QStringView, 3> porSituacao{u" AND Pago = true", u" AND Pago = false", u""};
    constexpr std::array<QStringView, 4> porOrdem{u" ORDER BY Codigo", u" ORDER BY Vencimento", u" ORDER BY Valor",
                                                  u" ORDER BY Pago"};
    const Selecionado pedido = selecionado();
    return ladoDe(pedido).consulta + pedido.periodoSQL() + porSituacao.at(std::size_t(pedido.indice(u"cboExibir"))) +
           porOrdem.at(std::size_t(pedido.indice(u"cboOrdem")));
}

void totais(ui::ListView &lista, const Somas &valores)
{
    const auto &rotulos = ladoDe(selecionado()).totais;
    for (std::size_t i = 0; i < rotulos.size(); ++i) {
        lista.addItem({}, {rotulos[i].toString(), runtime::Format(valores[i], mascaraValor)});
    }
}

bool eDeCheque(const QString &descricao)
{
    return descricao.startsWith(u"CHEQUE CÓD ");
}

/// A description that names no order behind its "/" stays: there is nobody to be told instead.
void mostraCliente(ui::ListItem conta)
{
    const QString numero = conta.subItem(colunaDescricao).section(u'/', 1, 1).section(u'-', 0, 0);
    if (const auto ordem = CodigoDoTexto(numero)) {
        const QString nome = NomeDoCliente(ClienteDaOrdem(QString::number(*ordem)));
        conta.setSubItem(colunaDescricao, u"CHEQUE CLIENTE: "_s + nome);
    }
}

/// The names are looked up once, at the filling: what is shown later is what stood there then.
void trocaCheques(ui::ListView &lista, Andamento &obra)
{
    if (!selecionado().marcado(u"chkNome")) {
        return;
    }
    for (const int linha : lista.rowsWhere(colunaDescricao, eDeCheque)) {
        if (obra.deixado()) {
            return;
        }
        mostraCliente(lista.item(linha));
        obra.avanca();
    }
}

const Pagina *pagina()
{
    return &ladoDe(selecionado()).pagina;
}

TextosDaPagina textos()
{
    const Selecionado pedido = selecionado();
    return {.linhas = {{{u"Contas Entre.....: "_s, pedido.periodo()}}},
            .juntoAosRegistros = {{u"             Exibindo....: "_s, pedido.texto(u"cboExibir")}}};
}

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaContas,
    .titulo = u" - [Relatório de Contas a %1]",
    .detalhe = detalhe,
    .lista = contas,
    .consulta = consulta,
    .linhas = trocaCheques,
    .completa = totais,
    .pagina = pagina,
    .textos = textos,
}};

} // namespace

std::span<const Relatorio> relatoriosDeContas()
{
    return relatorios;
}

} // namespace reports
