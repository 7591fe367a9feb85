#include "finance/frmMoviCaixa.h"

#include "ui_frmMoviCaixa.h"

#include "core/banco.h"
#include "core/informacoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/pagina.h"
#include "core/recibo.h"
#include "finance/livro.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr QStringView inicioDeOrdem = u"O.S. "; ///< of a description, from before a row held its order

bool descreveOrdem(const dao::Recordset &linha)
{
    return NuloParaVazio(linha.value(u"Descricao")).startsWith(inicioDeOrdem);
}

int iconeDaLinha(const dao::Recordset &linha)
{
    return !runtime::IsNull(linha.value(u"CodOs")) || descreveOrdem(linha) ? 1 : 0;
}

QString tagDaLinha(const dao::Recordset &linha)
{
    return NuloParaVazio(linha.value(u"CodOs"));
}

constexpr Lista lancamentos{.colunas = colunasDoLivro, .icone = iconeDaLinha, .tag = tagDaLinha};

constexpr QStringView ordem = u" ORDER BY Data, Codigo";
constexpr std::array livros{
    TabelaMovimento{.tabela = u"Caixa",
                    .consulta = u"SELECT * FROM Caixa WHERE Data BETWEEN ",
                    .consultaFim = ordem,
                    .lista = lancamentos,
                    .razao = &razaoCaixa},
    TabelaMovimento{.tabela = u"Banco1",
                    .consulta = u"SELECT * FROM Banco1 WHERE Data BETWEEN ",
                    .consultaFim = ordem,
                    .lista = lancamentos,
                    .razao = &razaoBanco1},
    TabelaMovimento{.tabela = u"Banco2",
                    .consulta = u"SELECT * FROM Banco2 WHERE Data BETWEEN ",
                    .consultaFim = ordem,
                    .lista = lancamentos,
                    .razao = &razaoBanco2},
};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{.controle = u"txtData",
                .aceita = deHojeEmDiante,
                .mensagem = u"A data escolhida já passou",
                .soNaInclusao = true},
    Verificacao{u"txtDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Valor Inválido"},
};

constexpr Movimento movimento{
    .janela = u"frmMoviCaixa",
    .titulo = u" - [Livro Caixa]",
    .tabelas = livros,
    .campos = camposDoLivro,
    .verificacoes = verificacoes,
    .soAdministrador = true,
};

constexpr std::array camposImpressos{
    CampoDaLista{colunaData},
    CampoDaLista{colunaDescricao},
    CampoDaLista{colunaEntrada, Lado::Direita},
    CampoDaLista{colunaSaida, Lado::Direita},
    CampoDaLista{colunaSaldo, Lado::Direita},
};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"DATA       - DESCRIÇÃO                                    - ENTRADA    - SAÍDA      - SALDO     ",
                  camposImpressos}};
constexpr Pagina livroImpresso{.titulo = u"LIVRO CAIXA", .linhas = linhasImpressas};

} // namespace

frmMoviCaixa::frmMoviCaixa() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviCaixa>())
{
    ui_->setupUi(this);
    ligaMovimento();
    for (auto *conta : {ui_->optCaixa, ui_->optBanco1, ui_->optBanco2}) {
        onClick(conta, &frmMoviCaixa::conta_Click);
    }
    onClick(ui_->btnLocalizar, &frmMoviCaixa::btnLocalizar_Click);
    onClick(ui_->btnOSPrint, &frmMoviCaixa::btnOSPrint_Click);
    onClick(ui_->btnPrint, &frmMoviCaixa::btnPrint_Click);
    onClick(ui_->btnPrevisualizar, &frmMoviCaixa::btnPrevisualizar_Click);
    onClick(ui_->btnBack, &frmMoviCaixa::btnBack_Click);
    onChange(ui_->lblPrint, &frmMoviCaixa::lblPrint_Change);
}

frmMoviCaixa::~frmMoviCaixa() = default;

void frmMoviCaixa::Form_Load()
{
    JanelaMovimento::Form_Load();
    const bool relatorio = ModoChamada == modoRelaCaixa;
    ui_->painel->setVisible(!relatorio);
    for (auto *botao : {ui_->btnPrevisualizar, ui_->btnPrint, ui_->btnBack}) {
        botao->setVisible(relatorio);
    }
    if (relatorio) {
        setWindowTitle(captionOf(u" - [Relatório de Livro Caixa]"_s));
        ui_->txtDataInicio->setFocus();
    }
}

const TabelaMovimento &frmMoviCaixa::tabela() const
{
    if (ui_->optBanco1->isChecked()) {
        return livros[1];
    }
    return ui_->optBanco2->isChecked() ? livros[2] : livros[0];
}

void frmMoviCaixa::conta_Click()
{
    preenche();
}

void frmMoviCaixa::btnLocalizar_Click()
{
    LocalizaLista(ui_->Lista, ui_->txtTexto->text(), colunaDescricao + 1, true, true);
}

/// Rows from before the ledgers held an order name it at one of three places of their description. Where none is a
/// number the query opens on the order that was asked for last.
QString frmMoviCaixa::ordemDaLinha(const ui::ListItem &linha) const
{
    if (!linha.tag().isEmpty()) {
        return linha.tag();
    }
    const QString descricao = linha.subItem(colunaDescricao);
    for (const QString &pedaco : {descricao.right(4), descricao.mid(5, 4), descricao.mid(15, 4)}) {
        if (PodeSerCodigo(pedaco)) {
            return pedaco;
        }
    }
    return QString::number(CodigoConsulta);
}

// --- paper

/// What stands in the boxes, whether or not it is a row of the ledger.
void frmMoviCaixa::btnOSPrint_Click()
{
    const QString valor = ui_->txtValor->text();
    ImprimeRecibo({.valor = valor,
                   .linhas = {u"Valor Extenso.: "_s + runtime::UCase(ValorPorExtenso(valor, true)),
                              u"Descrição.....: "_s + ui_->txtDescricao->text(),
                              u"Data..........: "_s + runtime::Format(ui_->txtData->text(), mascaraData)}},
                  printer::printer());
}

void frmMoviCaixa::btnPrint_Click()
{
    imprime(Acao::Imprime);
}

/// The preview knows by this mode whom to ask for paper, whatever other windows have been opened meanwhile.
void frmMoviCaixa::btnPrevisualizar_Click()
{
    ModoChamada = modoRelaCaixa;
    imprime(Acao::PreVisualiza);
}

void frmMoviCaixa::btnBack_Click()
{
    Unload();
}

/// The preview asks for paper.
void frmMoviCaixa::lblPrint_Change()
{
    btnPrint_Click();
}

void frmMoviCaixa::imprime(Acao acao)
{
    const QString periodo = ui_->txtDataInicio->text() + u" à "_s + ui_->txtDataFim->text();
    ImprimeLista(acao, *ui_->Lista, livroImpresso, {.linhas = {{{u"Registros Entre..: "_s, periodo}}}});
}

} // namespace finance
