#include "stock/frmMoviEstoque.h"

#include "ui_frmMoviEstoque.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/periodo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "stock/lancamento.h"

#include <QHeaderView>

#include <array>

namespace stock
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int marcaVenda = 1;      ///< the small picture of a row that opens an order
constexpr int larguraDaMarca = 20; ///< and its width in pixels

constexpr std::array campos{
    Campo{.controle = u"txtData", .coluna = u"Data", .data = RegrasDaData{.soDigitos = false}},
    Campo{.controle = u"txtDescricao", .coluna = u"Descricao"},
    Campo{.controle = u"txtValor", .coluna = {}},
};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{u"txtDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Quantidade Inválida"},
};

/// Quantities show by the unit of the part.
constexpr std::array colunas{
    ColunaLista{u"Código", 300, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Descrição", 3300, u"Descricao", comoEsta},
    ColunaLista{u"Entrada", 1400, u"Entrada", nullptr, Qt::AlignRight},
    ColunaLista{u"Saída", 1400, u"Saida", nullptr, Qt::AlignRight},
    ColunaLista{u"Estoque", 1400, u"Estoque", nullptr, Qt::AlignRight},
};

constexpr std::array<QStringView, 3> semLinhas{u" ", u"", u"Registro Não Localizado"};

QString ordemDaLinha(const dao::Recordset &linha)
{
    return OrdemDaVenda(comoEsta(linha, linha.fieldPlace(u"Descricao")));
}

int iconeDaLinha(const dao::Recordset &linha)
{
    return ordemDaLinha(linha).isEmpty() ? 0 : marcaVenda;
}

constexpr Lista movimentos{.colunas = colunas, .icone = iconeDaLinha, .tag = ordemDaLinha, .vazia = semLinhas};

QString quantidade(const Value &valor, int codigoUM)
{
    return IsNull(valor) ? u" "_s : FormataQuantidade(CDbl(valor), codigoUM);
}

/// A code is looked for by its number, in the notation of the statements; a text that is none can only be an external
/// code.
QString numeroDe(const QString &texto)
{
    return IsNumeric(texto) ? decimalText(CDbl(texto), 15) : u"0"_s;
}

QString consultaDaPeca(const QString &codigo)
{
    return u"SELECT * FROM Pecas WHERE Codigo = "_s + numeroDe(codigo) + u" OR CodExterno = '"_s + codigo + u"'"_s;
}

QStringView semControle(const dao::Recordset &peca)
{
    return Verdadeiro(peca.value(u"ControlaEstoque")) ? u"" : u"Peça/Serviço com controle de estoque indisponível";
}

} // namespace

frmMoviEstoque::frmMoviEstoque()
    : Form(u"frmMoviEstoque"_s), ui_(std::make_unique<Ui::frmMoviEstoque>()), movimento_(*this, campos, verificacoes)
{
    ui_->setupUi(this);
    ligaEventos();
}

frmMoviEstoque::~frmMoviEstoque() = default;

void frmMoviEstoque::ligaEventos()
{
    connect(this, &ui::Form::unloaded, this, bound(&frmMoviEstoque::Form_Unload));
    ligaPeca();
    movimento_.liga();
    onLostFocus(ui_->txtValor, &frmMoviEstoque::txtValor_LostFocus);
    onLostFocus(ui_->txtDataInicio, &frmMoviEstoque::txtDataInicio_LostFocus);
    onLostFocus(ui_->txtDataFim, &frmMoviEstoque::txtDataFim_LostFocus);
    onClick(ui_->btnPreenche, &frmMoviEstoque::btnPreenche_Click);
    onClick(ui_->btnIncluir, &frmMoviEstoque::btnIncluir_Click);
    onClick(ui_->btnExcluir, &frmMoviEstoque::btnExcluir_Click);
    onClick(ui_->btnVoltar, &frmMoviEstoque::btnVoltar_Click);
    onItemDoubleClick(ui_->Lista, &frmMoviEstoque::Lista_DblClick);
}

void frmMoviEstoque::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Movimentação de Estoque]"_s));
    montaLista();
    movimento_.limita(u"Estoque"_s);
    AbrePeriodo(*this, {.mesesAntes = 1});
    if (ModoChamada == modoEstoqueDeUmaPeca) {
        mostraSoAPeca();
    } else {
        SoAdministrador(u"Somente o administrador exclui registros"_s, {ui_->btnExcluir});
    }
}

void frmMoviEstoque::montaLista()
{
    MontaLista(*ui_->Lista, movimentos);
    // The first column's width is that of the mark alone; the code stands beside it.
    ui_->Lista->setColumnWidth(0, ui_->Lista->header()->sectionSizeHint(0) + larguraDaMarca);
}

void frmMoviEstoque::mostraSoAPeca()
{
    ui_->txtCodPeca->setText(Format(CodigoConsulta, mascaraCodigo));
    peca_->procura();
    ui_->txtCodPeca->setEnabled(false);
    ui::enableIf(false, ui_->btnPecaFind, u"A janela foi aberta para esta peça"_s);
}

/// The register of parts knows by this mode that a part it adds is for this window.
void frmMoviEstoque::Form_Unload()
{
    if (ModoChamada == modoEstoqueDeUmaPeca) {
        ModoChamada = modoIncluiPecaDoEstoque;
    }
}

// --- the part

void frmMoviEstoque::ligaPeca()
{
    peca_ = new CaixaDeCodigo(*this, ui_->txtCodPeca,
                              {.consulta = consultaDaPeca,
                               .naoLocalizado = u"Código não localizado",
                               .recusa = semControle,
                               .mostra = [this](const dao::Recordset &peca) { mostraPeca(peca); },
                               .esvazia = [this] { esvazia(); },
                               .cadastro = u"frmCadaPecas",
                               .procura = ui_->btnPecaFind,
                               .modoProcura = modoProcuraPecaDoEstoque});
}

void frmMoviEstoque::esvazia()
{
    LimpaForm(*this);
    ui_->Lista->clear();
}

void frmMoviEstoque::mostraPeca(const dao::Recordset &peca)
{
    const QString um = NuloParaVazio(peca.value(u"UM"));
    const Value minimo = peca.value(u"EstoqueMinimo");
    ui_->txtCodPeca->setText(Format(peca.value(u"Codigo"), mascaraCodigo));
    ui_->lblNome->setText(NuloParaVazio(peca.value(u"Nome")));
    ui::setTagOf(ui_->lblUM, um);
    ui_->lblUM->setText(NomeDaUnidade(codigoUM()));
    ui_->lblEstoqueMin->setText(IsNull(minimo) ? QString() : FormataQuantidade(CDbl(minimo), codigoUM()));
    ui_->txtData->setFocus();
}

/// A part without a unit counts in pieces.
int frmMoviEstoque::codigoUM() const
{
    const QString um = ui::tagOf(ui_->lblUM);
    return um.isEmpty() ? 0 : CInt(um);
}

bool frmMoviEstoque::temPeca()
{
    if (ui_->txtCodPeca->text().isEmpty() || ui_->lblNome->text().isEmpty()) {
        Recusa(u"Código da Peça/Serviço Inválido"_s, ui_->txtCodPeca);
        return false;
    }
    return true;
}

// --- a movement

void frmMoviEstoque::txtValor_LostFocus()
{
    const QString valor = ui_->txtValor->text();
    if (IsNumeric(valor)) {
        ui_->txtValor->setText(FormataQuantidade(CDbl(valor), codigoUM()));
    }
}

Operacao frmMoviEstoque::operacao() const
{
    if (ui_->optEntrada->isChecked()) {
        return Operacao::Entrada;
    }
    return ui_->optSaida->isChecked() ? Operacao::Saida : Operacao::Conferencia;
}

void frmMoviEstoque::btnIncluir_Click()
{
    if (!temPeca() || !movimento_.confere(Gravacao::Inclusao) || !ui::Confirm(u"Confirma Inclusão"_s, NomeEmpresa)) {
        return;
    }
    LancaNoRazao(razaoEstoque,
                 {.dono = ui_->txtCodPeca->text(),
                  .data = ui_->txtData->text(),
                  .descricao = ui_->txtDescricao->text(),
                  .valor = ui_->txtValor->text(),
                  .operacao = operacao()},
                 {SaldoAnterior::Busca});
    movimento_.limpa();
    movimento_.foca();
}

void frmMoviEstoque::btnExcluir_Click()
{
    if (temPeca() && ui::Confirm(u"Excluir o Último Registro dessa Peça/Serviço"_s, NomeEmpresa)) {
        ExcluiUltimo(ui_->txtCodPeca->text());
    }
}

// --- the list

void frmMoviEstoque::txtDataInicio_LostFocus()
{
    btnPreenche_Click();
}

void frmMoviEstoque::txtDataFim_LostFocus()
{
    btnPreenche_Click();
}

/// The way past the dates leads through here with no part chosen yet, too: nothing is there to be filled in then.
void frmMoviEstoque::btnPreenche_Click()
{
    ui_->Lista->clear();
    const QString codigo = ui_->txtCodPeca->text();
    if (codigo.isEmpty()) {
        return;
    }
    EncheLista(
        *ui_->Lista, LinhasDoPeriodo(codigo, PeriodoSQL(*this)), movimentos,
        [um = codigoUM()](const dao::Recordset &linha, int lugar) { return quantidade(linha.value(lugar), um); });
}

/// A sale opens its order. A description typed by hand may begin as a sale's and name none.
void frmMoviEstoque::Lista_DblClick(int linha)
{
    const ui::ListItem item = ui_->Lista->item(linha);
    if (item.smallIcon() != marcaVenda) {
        return;
    }
    const bool umaPeca = ModoChamada == modoEstoqueDeUmaPeca;
    MostraOrdem(item.tag());
    if (umaPeca) {
        ModoChamada = modoEstoqueDeUmaPeca;
    }
}

void frmMoviEstoque::btnVoltar_Click()
{
    Unload();
}

} // namespace stock
