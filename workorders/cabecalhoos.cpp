#include "workorders/cabecalhoos.h"

#include "ui_cabecalhoos.h"

#include "core/caixalista.h"
#include "core/informacoes.h"
#include "core/limites.h"
#include "core/textolongo.h"
#include "platform/ui/form.h"
#include "platform/ui/reasons.h"

#include <array>

namespace workorders
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array caixas{
    CaixaDeTexto{u"txtKm", u"OrdemServico", u"KM"},
    CaixaDeTexto{u"txtObs", u"OrdemServico", u"Observacao"},
    CaixaDeTexto{u"txtServicos", u"OrdemServico", u"Descricao"},
    CaixaDeTexto{u"txtMecanico", u"OrdemServico", u"Mecanico"},
};

} // namespace

CabecalhoOS::CabecalhoOS(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::CabecalhoOS>())
{
    ui_->setupUi(this);
    // With a proxy inside, the tab stops of the window move the whole panel as one piece.
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(ui_->txtKm);
}

CabecalhoOS::~CabecalhoOS() = default;

void CabecalhoOS::liga(ui::Form &janela)
{
    mecanico_ = new CaixaDeLista(janela, ui_->txtMecanico, ListaCombo::Mecanicos, ui_->btnMecAdd, ui_->btnMecRemove);
    janela.onClick(ui_->btnInfoVeiculo, this, &CabecalhoOS::btnInfoVeiculo_Click);
    janela.onClick(ui_->btnInfoCliente, this, &CabecalhoOS::btnInfoCliente_Click);
    janela.onChange(ui_->lblCodVeiculo, this, &CabecalhoOS::habilitaInformacoes);
    janela.onChange(ui_->lblCodCliente, this, &CabecalhoOS::habilitaInformacoes);
    habilitaInformacoes();
}

void CabecalhoOS::monta()
{
    LimitaAosCampos(*this, caixas);
    mecanico_->carrega();
}

void CabecalhoOS::mostra(const VeiculoOS &veiculo)
{
    ui_->lblCodVeiculo->setText(veiculo.codigo);
    ui_->lblMarca->setText(veiculo.marca);
    ui_->lblPlacas->setText(veiculo.placas);
    ui_->lblCombustivel->setText(veiculo.combustivel);
    ui_->lblCor->setText(veiculo.cor);
    ui_->lblAno->setText(veiculo.ano);
    mostraCliente({veiculo.codCliente, veiculo.nome, veiculo.fone1, veiculo.celular});
}

void CabecalhoOS::mostraCliente(const ClienteOS &cliente)
{
    ui_->lblCodCliente->setText(cliente.codigo);
    ui_->lblNome->setText(cliente.nome);
    ui_->lblFone1->setText(cliente.fone1);
    ui_->lblCelular->setText(cliente.celular);
}

void CabecalhoOS::mostraTextos(const TextosOS &textos)
{
    ui_->txtKm->setText(textos.km);
    EscreveTexto(ui_->txtObs, textos.observacao);
    ui_->txtServicos->setPlainText(textos.servicos);
    mecanico_->escreve(textos.mecanico);
}

void CabecalhoOS::esqueceVeiculo()
{
    for (ui::Label *rotulo : {ui_->lblMarca, ui_->lblPlacas, ui_->lblCombustivel, ui_->lblCor, ui_->lblAno,
                              ui_->lblNome, ui_->lblFone1, ui_->lblCelular}) {
        rotulo->setText({});
    }
    ui_->txtKm->clear();
    ui_->txtObs->clear();
}

TextosOS CabecalhoOS::textos() const
{
    return {.km = ui_->txtKm->text(),
            .observacao = ui_->txtObs->text(),
            .servicos = ui_->txtServicos->toPlainText(),
            .mecanico = ui_->txtMecanico->currentText()};
}

QString CabecalhoOS::marca() const
{
    return ui_->lblMarca->text();
}

QString CabecalhoOS::codVeiculo() const
{
    return ui_->lblCodVeiculo->text();
}

QString CabecalhoOS::codCliente() const
{
    return ui_->lblCodCliente->text();
}

ui::Label *CabecalhoOS::nome() const
{
    return ui_->lblNome;
}

void CabecalhoOS::btnInfoVeiculo_Click()
{
    MostraInformacoes(TipoInformacao::Veiculo, ui_->lblCodVeiculo->text());
}

void CabecalhoOS::btnInfoCliente_Click()
{
    MostraInformacoes(TipoInformacao::Cliente, ui_->lblCodCliente->text());
}

void CabecalhoOS::habilitaInformacoes()
{
    const QString semVeiculo = u"Nenhum veículo foi informado"_s;
    ui::enableIf(!ui_->lblCodVeiculo->text().isEmpty(), ui_->btnInfoVeiculo, semVeiculo, ui_->txtKm);
    ui::enableIf(!ui_->lblCodCliente->text().isEmpty(), ui_->btnInfoCliente, semVeiculo, ui_->txtKm);
}

} // namespace workorders
