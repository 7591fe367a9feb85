#include "documents/painelitens.h"

#include "ui_painelitens.h"

#include "core/janelas.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <array>

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

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

constexpr QStringView acrescenta = u"Add";
constexpr QStringView remove = u"Remove";

std::unique_ptr<Ui::PainelItens> controlesEm(QWidget *painel)
{
    auto controles = std::make_unique<Ui::PainelItens>();
    controles->setupUi(painel);
    return controles;
}

} // namespace

PainelItens::PainelItens(QWidget *parent)
    : QWidget(parent), ui_(controlesEm(this)),
      entrada_({ui_->txtCodPeca, ui_->txtQuantidade, ui_->txtDescricao, ui_->txtValor, ui_->btnPecaFind,
                ui_->btnPecaAdd, ui_->btnMarcaAdd, ui_->btnMarcaRemove})
{
    // With a proxy inside, the tab stops of the window move the whole panel as one piece. The policy comes first: the
    // proxy would take it over, and a click would no longer reach it.
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(ui_->txtCodPeca);
    ofereceTrabalhos(false);
}

PainelItens::~PainelItens() = default;

QString PainelItens::botoesDaDescricao() const
{
    return ui_->btnMarcaAdd->objectName().chopped(acrescenta.size());
}

void PainelItens::setBotoesDaDescricao(const QString &inicio)
{
    ui_->btnMarcaAdd->setObjectName(inicio + acrescenta);
    ui_->btnMarcaRemove->setObjectName(inicio + remove);
}

void PainelItens::liga(ui::Form &janela, UsoDoPainel uso)
{
    uso_ = std::move(uso);
    entrada_.liga(janela);
    janela.onClick(ui_->btnItemAdd, this, &PainelItens::btnItemAdd_Click);
    janela.onClick(ui_->btnItemRemove, this, &PainelItens::btnItemRemove_Click);
    janela.onClick(ui_->btnLimpa, this, &PainelItens::btnLimpa_Click);
    janela.onClick(ui_->btnAdicionar, this, &PainelItens::btnAdicionar_Click);
    janela.onTab(ui_->tabItems, this, &PainelItens::habilitaBotoes);
    for (const Aba aba : abas) {
        janela.onSelection(&listas().lista(aba), this, &PainelItens::habilitaBotoes);
    }
    for (const Aba aba : uso_.abasComTeclas) {
        janela.onKey(&listas().lista(aba), Qt::Key_Delete, this, &PainelItens::btnItemRemove_Click);
        janela.onKey(&listas().lista(aba), Qt::Key_Insert, this, &PainelItens::Lista_Insert);
    }
    ui_->btnLimpa->setVisible(uso_.limpaLista);
    habilitaBotoes();
}

void PainelItens::monta(FormaListas forma)
{
    listas().monta(forma);
    if (listas().compacto()) {
        // All that is one-off counts here, outsourced or not.
        ui_->Rotulos_37->setText(u"T.A."_s);
    }
    for (QWidget *parcial : std::initializer_list<QWidget *>{ui_->Rotulos_35, ui_->lblTotalP, ui_->Rotulos_36,
                                                             ui_->lblTotalS, ui_->Rotulos_37, ui_->lblTotalT}) {
        parcial->setVisible(forma != FormaListas::UmaLista);
    }
    entrada_.monta();
}

void PainelItens::ofereceTrabalhos(bool sim)
{
    ui_->btnAdicionar->setVisible(sim);
}

void PainelItens::trava(const QString &motivo)
{
    travado_ = motivo;
    habilitaBotoes();
}

/// The button removes what is selected.
void PainelItens::habilitaBotoes()
{
    const bool fica = material() && !uso_.removeMaterial;
    const QString semRemocao = fica ? u"O material lançado não pode ser removido"_s : u"Escolha um item na lista"_s;
    const QString semLista = u"Escolha uma lista de itens"_s;
    ui::enableIf(travado_.isEmpty() && listas().ativa(), ui_->btnItemAdd, travado_.isEmpty() ? semLista : travado_,
                 ui_->txtCodPeca);
    ui::enableIf(travado_.isEmpty() && listas().selecionado() && !fica, ui_->btnItemRemove,
                 travado_.isEmpty() ? semRemocao : travado_, ui_->txtCodPeca);
}

/// Moves the entry row to the list that it belongs to. Nothing is added where a check fails or the register names no
/// kind.
void PainelItens::btnItemAdd_Click()
{
    if (!travado_.isEmpty() || !listas().ativa() || !entrada_.confere()) {
        return;
    }
    if (material() && entrada_.avulso()) {
        Recusa(u"Somente Peças podem ser lançado aqui"_s, ui_->txtCodPeca);
        return;
    }
    if (const auto aba = destino()) {
        const PosicaoItem nova = listas().acrescenta(*aba, entrada_.linha());
        if (*aba != abaMaterial) {
            recalcula();
        }
        if (uso_.acrescentado) {
            uso_.acrescentado(nova);
        }
    }
    entrada_.esvazia();
}

/// The register decides on the tab of a registered item, not the operator; only a one-off item goes where he stands.
std::optional<Aba> PainelItens::destino() const
{
    if (material()) {
        return abaMaterial;
    }
    if (listas().compacto()) {
        return abaPecas;
    }
    if (entrada_.avulso()) {
        return listas().ativa();
    }
    const QString tipo = entrada_.linha().tipo;
    if (tipo == u"P") {
        return abaPecas;
    }
    return tipo == u"S" ? std::optional(abaServicos) : std::nullopt;
}

void PainelItens::btnItemRemove_Click()
{
    const auto posicao = listas().selecionado();
    if (!posicao || !travado_.isEmpty() || (posicao->aba == abaMaterial && !uso_.removeMaterial)) {
        return;
    }
    const QString chave = listas().chave(*posicao);
    listas().remove(*posicao);
    recalcula();
    if (uso_.removido) {
        uso_.removido(chave);
    }
}

void PainelItens::Lista_Insert()
{
    const auto posicao = listas().selecionado();
    if (!posicao || !travado_.isEmpty()) {
        return;
    }
    listas().escreve(*posicao, PedeLinha(listas().linha(*posicao)));
    recalcula();
    if (uso_.editado) {
        uso_.editado(*posicao);
    }
}

/// The totals go to zero although the other lists may hold rows; the next change adds up all that stands there.
void PainelItens::btnLimpa_Click()
{
    if (const auto aba = listas().ativa()) {
        listas().lista(*aba).clear();
        mostraTotais({});
    }
}

/// The job values that a workshop without a register of services asks for one by one: each numeric answer is an item.
void PainelItens::btnAdicionar_Click()
{
    for (const Trabalho &trabalho : trabalhos) {
        const QString resposta = ui::InputBox(trabalho.pergunta.toString());
        if (runtime::IsNumeric(resposta)) {
            entrada_.preencheAvulso(trabalho.descricao.toString(), resposta);
            btnItemAdd_Click();
        }
    }
}

void PainelItens::recalcula()
{
    mostraTotais(listas().totais());
}

void PainelItens::limpa()
{
    listas().limpa();
    mostraTotais({});
}

void PainelItens::mostraTotais(const Totais &totais)
{
    ui_->lblTotal->setText(totais.total);
    ui_->lblTotalP->setText(totais.pecas);
    ui_->lblTotalS->setText(totais.servicos);
    ui_->lblTotalT->setText(totais.terceiros);
}

void PainelItens::mostraTotal(const QString &total)
{
    ui_->lblTotal->setText(total);
}

QString PainelItens::total() const
{
    return ui_->lblTotal->text();
}

ListasItens &PainelItens::listas() const
{
    return *ui_->tabItems;
}

} // namespace documents
