#include "finance/frmMoviContasPR.h"

#include "ui_frmMoviContasPR.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "finance/pagamentoconta.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"

#include <array>
#include <map>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr QStringView janelaDeBaixa = u"frmMoviContasPRBaixa";

// --- the rows

constexpr qsizetype maiorSemOrdem = 10; ///< a description that names an order is longer
constexpr qsizetype algarismosDaOrdem = 4;
constexpr qsizetype fimDaParcela = 3; ///< of an instalment, as in "0012/03"

/// The order that a description ends in, with or without an instalment; "" for none.
QString ordemDaLinha(const dao::Recordset &linha)
{
    const QString descricao = NuloParaVazio(linha.value(u"Descricao"));
    if (descricao.size() <= maiorSemOrdem) {
        return {};
    }
    for (const QString &inicio : {descricao.chopped(fimDaParcela), descricao}) {
        if (QString pedaco = inicio.right(algarismosDaOrdem); PodeSerCodigo(pedaco)) {
            return pedaco;
        }
    }
    return {};
}

int iconeDaLinha(const dao::Recordset &linha)
{
    return ordemDaLinha(linha).isEmpty() ? 0 : 1;
}

constexpr std::array colunas{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Descrição", 3200, u"Descricao", comoEsta},
    ColunaLista{u"Valor", 1200, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Dia Pagto.", 1300, u"DataPagto", comoData},
};
constexpr int colunaData = 1;
constexpr int colunaDescricao = 2;
constexpr int colunaValor = 3;
constexpr int colunaVencimento = 4;
constexpr int colunaDiaPagto = 6;

constexpr std::array somasDasContas{Soma{u"Valor"}, Soma{u"Valor", EstaPago}, Soma{u"Valor", NaoEstaPago}};
constexpr std::array<QStringView, 3> semContas{u"", u"", u"Registro Não Localizado"};
constexpr Lista listaDeContas{
    .colunas = colunas, .icone = iconeDaLinha, .tag = ordemDaLinha, .somas = somasDasContas, .vazia = semContas};

// --- what is told by tab

using Totais = std::array<QStringView, somasDasContas.size()>;
constexpr std::array totais{
    Totais{u"Total de Contas:", u"Total de Contas Recebidas:", u"Total de Contas à Receber:"},
    Totais{u"Total de Contas:", u"Total de Contas Pagas:", u"Total de Contas à Pagar:"},
};

constexpr QStringView porVencimento = u" ORDER BY Vencimento, Codigo";
constexpr std::array tabelas{
    TabelaMovimento{.tabela = u"ContasReceber",
                    .consulta = u"SELECT * FROM ContasReceber WHERE Vencimento BETWEEN ",
                    .consultaFim = porVencimento,
                    .lista = listaDeContas,
                    .controleLista = u"Lista_0"},
    TabelaMovimento{.tabela = u"ContasPagar",
                    .consulta = u"SELECT * FROM ContasPagar WHERE Vencimento BETWEEN ",
                    .consultaFim = porVencimento,
                    .lista = listaDeContas,
                    .controleLista = u"Lista_1"},
};

// --- the boxes

constexpr RegrasDaData dataDaConta{.saida = SaidaDaData::FormataDatas};
constexpr RegrasDaData dataDeVencimento{.mesesDoF1 = 1, .saida = SaidaDaData::FormataDatas};

constexpr std::array camposDaConta{
    Campo{.controle = u"txtData", .coluna = u"Data", .grava = comoTexto, .data = dataDaConta},
    Campo{
        .controle = u"txtDescricao", .coluna = u"Descricao", .grava = comoTexto, .lista = ListaCombo::DescricaoContas},
    Campo{.controle = u"txtValor",
          .coluna = u"Valor",
          .grava = comoTexto,
          .tecla = SoDecimais,
          .mascara = TipoMascara::Valor},
    Campo{.controle = u"txtVencimento", .coluna = u"Vencimento", .grava = comoTexto, .data = dataDeVencimento},
};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{u"txtDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Valor Inválido"},
    Verificacao{u"txtVencimento", dataValida, u"Data de Vencimento Inválida"},
    Verificacao{u"txtVencimento", deHojeEmDiante, u"Data de Vencimento Já Passou"},
};

constexpr Movimento movimento{
    .janela = u"frmMoviContasPR",
    .titulo = u" - [Contas a Pagar/Receber]",
    .tabelas = tabelas,
    .campos = camposDaConta,
    .verificacoes = verificacoes,
    .periodo = Periodo{.diasAntes = 15, .diasDepois = 15},
    .travado = u"tabContas",
    .soAdministrador = true,
    .teclaP = true,
};

// --- what closing an order wrote, and what stands there with the customer's name

struct Apelido {
    QStringView inicio;
    QStringView comNome;
};
constexpr std::array apelidos{
    Apelido{u"CHEQUE CÓD ", u"CHEQUE CLIENTE: "},
    Apelido{u"O.S. PENDENTE", u"O.S. PENDENTE: "},
};

/// A text that stands for no order stays.
void mostraNome(ui::ListItem linha)
{
    if (linha.smallIcon() != 1) {
        return;
    }
    for (const auto &[inicio, comNome] : apelidos) {
        if (linha.subItem(colunaDescricao).startsWith(inicio)) {
            linha.setSubItem(colunaDescricao, comNome + NomeDoCliente(ClienteDaOrdem(linha.tag())));
            return;
        }
    }
}

constexpr std::array aBaixa{
    Devolucao{modoNormal, janelaDeBaixa, u"lblData"},      Devolucao{modoNormal, janelaDeBaixa, u"lblVencimento"},
    Devolucao{modoNormal, janelaDeBaixa, u"lblDescricao"}, Devolucao{modoNormal, janelaDeBaixa, u"lblValor"},
    Devolucao{modoNormal, janelaDeBaixa, u"lblCodOS"},     Devolucao{modoNormal, janelaDeBaixa, u"lblCodCliente"},
    Devolucao{modoNormal, janelaDeBaixa, u"lblNome"},
};

} // namespace

frmMoviContasPR::frmMoviContasPR() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviContasPR>())
{
    ui_->setupUi(this);
    ligaMovimento();
    for (auto *lista : {ui_->Lista_0, ui_->Lista_1}) {
        onKey(lista, Qt::Key_A, &frmMoviContasPR::Lista_A);
    }
}

frmMoviContasPR::~frmMoviContasPR() = default;

std::vector<Devolucoes> frmMoviContasPR::devolucoes()
{
    return {{Ocasiao::Preenchimento, aBaixa}};
}

TabelaContas frmMoviContasPR::contas() const
{
    return ui_->tabContas->currentIndex() == 0 ? TabelaContas::Receber : TabelaContas::Pagar;
}

const TabelaMovimento &frmMoviContasPR::tabela() const
{
    return tabelas.at(static_cast<std::size_t>(contas()));
}

// --- the lists

void frmMoviContasPR::preencheAoAbrir()
{
    for (const int aba : {1, 0}) {
        ui_->tabContas->setCurrentIndex(aba);
        preenche();
    }
}

QString frmMoviContasPR::consulta() const
{
    QString instrucao = JanelaMovimento::consulta();
    const QString criterio =
        ui_->chkFiltrar->isChecked() ? ui::InputBox(u"Digite seu critério de pesquisa"_s, NomeEmpresa) : QString();
    if (!criterio.isEmpty()) {
        instrucao.replace(u" WHERE "_s, u" WHERE Descricao LIKE '*"_s + criterio + u"*' AND "_s);
    }
    return instrucao;
}

void frmMoviContasPR::depoisDePreencher(const Somas &somas, bool vazia)
{
    if (vazia) {
        return;
    }
    const Totais &nomes = totais.at(static_cast<std::size_t>(contas()));
    for (std::size_t i = 0; i < somas.size(); ++i) {
        lista().addItem({}, {{}, nomes.at(i).toString(), runtime::Format(somas[i], mascaraValor)});
    }
}

/// A change of what is shown alone; the next filling brings the descriptions back.
void frmMoviContasPR::Lista_A()
{
    for (const Apelido &apelido : apelidos) {
        for (const int linha : lista().rowsWhere(
                 colunaDescricao, [&](const QString &descricao) { return descricao.startsWith(apelido.inicio); })) {
            mostraNome(lista().item(linha));
        }
    }
}

void frmMoviContasPR::inclui()
{
    const Campos &caixas = campos();
    IncluiConta(contas(), {.data = caixas.texto(u"txtData"),
                           .descricao = caixas.texto(u"txtDescricao"),
                           .valor = caixas.texto(u"txtValor"),
                           .vencimento = caixas.texto(u"txtVencimento")});
}

// --- settled and open again

void frmMoviContasPR::teclaP(const ui::ListItem &linha)
{
    if (contas() == TabelaContas::Receber) {
        recebe(linha);
    } else {
        paga(linha);
    }
}

void frmMoviContasPR::recebe(const ui::ListItem &linha)
{
    if (linha.subItem(colunaDiaPagto).isEmpty()) {
        abreBaixa(linha);
        return;
    }
    if (Administrador()) {
        ReabreConta(TabelaContas::Receber, linha.text());
    }
    preenche();
}

/// The settling window fills the list itself, where it settles.
void frmMoviContasPR::abreBaixa(const ui::ListItem &linha)
{
    const QString ordem = linha.tag();
    const QString codCliente = runtime::Format(ClienteDaOrdem(ordem), mascaraCodigo);
    const std::map<QStringView, QString> textos{
        {u"lblData", linha.subItem(colunaData)},
        {u"lblVencimento", runtime::Format(linha.subItem(colunaVencimento), mascaraData)},
        {u"lblDescricao", linha.subItem(colunaDescricao)},
        {u"lblValor", runtime::Format(linha.subItem(colunaValor), mascaraValor)},
        {u"lblCodOS", runtime::Format(ordem, mascaraCodigo)},
        {u"lblCodCliente", codCliente},
        {u"lblNome", NomeDoCliente(codCliente)},
    };
    auto &janelas = ui::Forms::instance();
    const QString baixa = janelaDeBaixa.toString();
    ui::setTagOf(janelas.Load(baixa), linha.text());
    Preenche(*this, baixa, [&](QStringView controle) { return textos.at(controle); });
    janelas.ShowModal(baixa);
}

void frmMoviContasPR::paga(const ui::ListItem &linha)
{
    const QString codigo = linha.text();
    const QString descricao = linha.subItem(colunaDescricao);
    const auto situacao = Situacao(TabelaContas::Pagar, codigo);
    if (!situacao) {
        return;
    }
    if (situacao->paga) {
        if (Administrador()) {
            ReabreConta(TabelaContas::Pagar, codigo);
            preenche();
        }
        return;
    }
    const QString dia = ui::InputBox(u"Digite a Data do Pagamento/Recebimento"_s, NomeEmpresa, Hoje());
    if (!dataValida(dia)) {
        return;
    }
    const QString valor =
        ui::InputBox(u"Digite o Valor Pago"_s, NomeEmpresa, runtime::Format(situacao->valor, mascaraValor));
    if (numerico(valor)) {
        PagaConta({.codigo = codigo, .data = dia, .valor = valor, .descricao = descricao});
        preenche();
    }
}

} // namespace finance
