#include "documents/painelitens.h"

#include "ui_painelitens.h"

#include "core/combos.h"
#include "core/janelas.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <QItemSelectionModel>

#include <array>

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array abas{abaPecas, abaServicos, abaTercerizados, abaMaterial};

struct Trabalho {
    QStringView pergunta;
    QStringView descricao;
};

constexpr std::array trabalhos{
    Trabalho{u"Digite o Valor de Funilaria", u"FUNILARIA"},
    Trabalho{u"Digite o Valor de Pintura", u"PINTURA"},
    Trabalho{u"Digite o Valor de Tapeceiro/Vidraceiro", u"TAP./VID."},
    Trabalho{u"Digite o Valor de Elétrica", u"ELÉTRICA"},
    Trabalho{u"Digite o Valor de Mecânica", u"MECÂNICA"},
    Trabalho{u"Digite o Valor de Serv. Tercerizados", u"SERVIÇOS TERCERIZADOS"},
};

std::unique_ptr<Ui::PainelItens> controlesEm(QWidget *painel)
{
    auto controles = std::make_unique<Ui::PainelItens>();
    controles->setupUi(painel);
    return controles;
}

void poeIcones(const Ui::PainelItens &c)
{
    c.btnPecaFind->setIcon(ui::icon(u"edit-find"_s));
    c.btnPecaAdd->setIcon(ui::icon(u"document-new"_s));
    c.btnMarcaAdd->setIcon(ui::icon(u"bookmark-new"_s));
    c.btnMarcaRemove->setIcon(ui::icon(u"edit-delete"_s));
    c.btnItemAdd->setIcon(ui::icon(u"list-add"_s));
    c.btnItemRemove->setIcon(ui::icon(u"list-remove"_s));
    c.btnLimpa->setIcon(ui::icon(u"edit-clear-all"_s));
    c.btnAdicionar->setIcon(ui::icon(u"edit-table-insert-row-below"_s));
}

} // namespace

PainelItens::PainelItens(QWidget *parent)
    : QWidget(parent), ui_(controlesEm(this)),
      entrada_({ui_->txtCodPeca, ui_->txtQuantidade, ui_->txtDescricao, ui_->txtValor})
{
    poeIcones(*ui_);
    // With a proxy inside, the tab stops of the window move the whole panel as one piece. The policy comes first: the
    // proxy would take it over, and a click would no longer reach it.
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(ui_->txtCodPeca);
    LigaBotoesDaLista(ui_->txtDescricao, ui_->btnMarcaAdd, ui_->btnMarcaRemove);
    ligaRemocao();
}

PainelItens::~PainelItens() = default;

void PainelItens::monta()
{
    for (const Aba aba : abas) {
        MontaColunas(lista(aba), aba);
    }
    if (LayoutCompacto()) {
        ui_->tabItems->setTabVisible(abaServicos, false);
        ui_->tabItems->setTabVisible(abaTercerizados, false);
        ui_->tabItems->setTabText(abaPecas, u"Peças e Serviços"_s);
        // All that is one-off counts here, outsourced or not.
        ui_->Rotulos_37->setText(u"T.A."_s);
    }
    AtualizaCombo(ui_->txtDescricao, ListaCombo::DescricaoItens, ModoCombo::Carrega);
}

bool PainelItens::compacto() const
{
    return !ui_->tabItems->isTabVisible(abaServicos);
}

std::optional<Aba> PainelItens::abaAtiva() const
{
    const int indice = ui_->tabItems->currentIndex();
    return indice >= abaPecas && indice <= abaMaterial ? std::optional(static_cast<Aba>(indice)) : std::nullopt;
}

std::optional<PosicaoItem> PainelItens::selecionado() const
{
    const auto aba = abaAtiva();
    const int linha = aba ? lista(*aba).selectedRow() : -1;
    return linha >= 0 ? std::optional(PosicaoItem{*aba, linha}) : std::nullopt;
}

void PainelItens::ligaRemocao()
{
    for (const Aba aba : abas) {
        connect(lista(aba).selectionModel(), &QItemSelectionModel::selectionChanged, this,
                &PainelItens::habilitaRemocao);
        connect(lista(aba).model(), &QAbstractItemModel::rowsRemoved, this, &PainelItens::habilitaRemocao);
        connect(lista(aba).model(), &QAbstractItemModel::modelReset, this, &PainelItens::habilitaRemocao);
    }
    connect(ui_->tabItems, &QTabWidget::currentChanged, this, &PainelItens::habilitaRemocao);
    habilitaRemocao();
}

/// The button removes what is selected; the material stands in the list for good.
void PainelItens::habilitaRemocao()
{
    const auto posicao = selecionado();
    const bool material = abaAtiva() == abaMaterial;
    ui::enableIf(posicao && !material, ui_->btnItemRemove,
                 material ? u"O material lançado não pode ser removido"_s : u"Escolha um item na lista"_s,
                 ui_->txtCodPeca);
}

std::optional<PosicaoItem> PainelItens::acrescenta()
{
    if (!abaAtiva() || !entrada_.confere()) {
        return std::nullopt;
    }
    if (abaAtiva() == abaMaterial && entrada_.avulso()) {
        Recusa(u"Somente Peças podem ser lançado aqui"_s, ui_->txtCodPeca);
        return std::nullopt;
    }
    std::optional<PosicaoItem> nova;
    if (const auto aba = destino()) {
        nova = PosicaoItem{*aba, AcrescentaItem(lista(*aba), *aba, entrada_.linha())};
    }
    if (nova && nova->aba != abaMaterial) {
        recalcula();
    }
    entrada_.esvazia();
    return nova;
}

/// The register decides on the tab of a registered item, not the operator; only a one-off item goes where he stands.
std::optional<Aba> PainelItens::destino() const
{
    if (abaAtiva() == abaMaterial) {
        return abaMaterial;
    }
    if (compacto()) {
        return abaPecas;
    }
    if (entrada_.avulso()) {
        return abaAtiva();
    }
    const QString tipo = entrada_.linha().tipo;
    if (tipo == u"P") {
        return abaPecas;
    }
    return tipo == u"S" ? std::optional(abaServicos) : std::nullopt;
}

void PainelItens::remove(const PosicaoItem &posicao)
{
    lista(posicao.aba).removeRow(posicao.linha);
    recalcula();
}

void PainelItens::edita(const PosicaoItem &posicao)
{
    const LinhaItem linha = PedeLinha(LinhaDe(lista(posicao.aba), posicao.aba, posicao.linha));
    EscreveLinha(lista(posicao.aba), posicao.linha, linha);
    recalcula();
}

void PainelItens::pedeValores(const std::function<void()> &adiciona)
{
    for (const Trabalho &trabalho : trabalhos) {
        const QString resposta = ui::InputBox(trabalho.pergunta.toString());
        if (runtime::IsNumeric(resposta)) {
            entrada_.preencheAvulso(trabalho.descricao.toString(), resposta);
            adiciona();
        }
    }
}

void PainelItens::ofereceTrabalhos(bool sim)
{
    ui_->btnAdicionar->setVisible(sim);
}

void PainelItens::recalcula()
{
    mostraTotais(compacto() ? SomaItens(*ui_->Lista, nullptr, nullptr)
                            : SomaItens(*ui_->Lista, ui_->lstServicos, ui_->lstTercerizados));
}

void PainelItens::zeraTotais()
{
    mostraTotais({});
}

void PainelItens::mostraTotais(const Totais &totais)
{
    ui_->lblTotal->setText(totais.total);
    ui_->lblTotalP->setText(totais.pecas);
    ui_->lblTotalS->setText(totais.servicos);
    ui_->lblTotalT->setText(totais.terceiros);
}

void PainelItens::limpa(Aba aba)
{
    lista(aba).clear();
}

void PainelItens::limpaListas()
{
    for (const Aba aba : abas) {
        limpa(aba);
    }
}

std::vector<LinhaItem> PainelItens::itensParaGravar() const
{
    std::vector<LinhaItem> itens;
    for (const Aba aba : abas) {
        if (compacto() && aba != abaPecas) {
            continue;
        }
        for (LinhaItem &linha : LinhasDe(lista(aba), aba)) {
            itens.push_back(ParaGravar(linha, aba, compacto()));
        }
    }
    return itens;
}

QString PainelItens::total() const
{
    return ui_->lblTotal->text();
}

ui::ListView &PainelItens::lista(Aba aba) const
{
    const std::array listas{ui_->Lista, ui_->lstServicos, ui_->lstTercerizados, ui_->lstMaterial};
    return *listas.at(aba);
}

} // namespace documents
