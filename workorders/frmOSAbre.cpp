#include "workorders/frmOSAbre.h"

#include "ui_frmOSAbre.h"

#include "core/caixacodigo.h"
#include "core/caixalista.h"
#include "core/config.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/boxes.h"
#include "platform/ui/reasons.h"

#include <array>

namespace workorders
{

using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array aAlteracao{Devolucao{modoAbreOSParaAlterar, u"frmOSAltera", u"txtCodOS"}};
constexpr std::array aoCadastroRapido{Devolucao{modoNormal, u"frmCadaFast", u"txtPlaca", u"txtCodVeiculo"}};

constexpr std::array caixas{
    CaixaDeTexto{u"txtKm", u"OrdemServico", u"KM"},
    CaixaDeTexto{u"txtObs", u"OrdemServico", u"Observacao"},
    CaixaDeTexto{u"txtServicos", u"OrdemServico", u"Descricao"},
    CaixaDeTexto{u"txtMecanico", u"OrdemServico", u"Mecanico"},
};

} // namespace

frmOSAbre::frmOSAbre() : ui::Form(u"frmOSAbre"_s), ui_(std::make_unique<Ui::frmOSAbre>())
{
    ui_->setupUi(this);

    onGotFocus(ui_->txtCodVeiculo, &frmOSAbre::txtCodVeiculo_GotFocus);
    onLostFocus(ui_->txtCodVeiculo, &frmOSAbre::txtCodVeiculo_LostFocus);
    new CaixaDeCodigo(*this, ui_->txtCodVeiculo,
                      {.cadastro = u"frmCadaVeiculos",
                       .procura = ui_->btnVeiculoFind,
                       .modoProcura = modoProcuraVeiculo,
                       .inclui = ui_->btnVeiculoAdd,
                       .modoInclui = modoIncluiVeiculo});
    mecanico_ = new CaixaDeLista(*this, ui_->txtMecanico, ListaCombo::Mecanicos, ui_->btnMecAdd, ui_->btnMecRemove);
    onClick(ui_->btnInfoVeiculo, &frmOSAbre::btnInfoVeiculo_Click);
    onClick(ui_->btnInfoCliente, &frmOSAbre::btnInfoCliente_Click);
    onClick(ui_->btnIncluir, &frmOSAbre::btnIncluir_Click);
    onClick(ui_->btnCancelar, &frmOSAbre::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmOSAbre::btnVoltar_Click);
    onChange(ui_->lblCodVeiculo, &frmOSAbre::habilitaInformacoes);
    onChange(ui_->lblCodCliente, &frmOSAbre::habilitaInformacoes);
    habilitaInformacoes();
    ui_->painelItens->liga(*this);
}

frmOSAbre::~frmOSAbre() = default;

std::vector<Devolucoes> frmOSAbre::devolucoes()
{
    return {{Ocasiao::Inclusao, aAlteracao}, {Ocasiao::Preenchimento, aoCadastroRapido}};
}

void frmOSAbre::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Abrir Ordem de Serviço]"_s));
    ui::setTagOf(this, QString::number(ModoChamada));
    ui_->painelItens->monta(FormaDoLayout());
    ui_->painelItens->ofereceTrabalhos(Config(u"Personalizacao"_s) == u"1-1");
    LimitaAosCampos(*this, caixas);
    mecanico_->carrega();
}

void frmOSAbre::txtCodVeiculo_GotFocus()
{
    SelecionaTexto(ui_->txtCodVeiculo);
}

void frmOSAbre::txtCodVeiculo_LostFocus()
{
    const QString texto = ui_->txtCodVeiculo->text();
    if (texto.isEmpty()) {
        return;
    }
    if (const auto veiculo = ProcuraVeiculo(texto)) {
        mostraVeiculo(*veiculo);
    } else {
        veiculoDesconhecido();
    }
    // The windows that were opened meanwhile have left their own mode behind.
    ModoChamada = runtime::CInt(ui::tagOf(this));
}

void frmOSAbre::mostraVeiculo(const VeiculoOS &veiculo)
{
    ui_->txtCodVeiculo->setText(veiculo.codigo);
    ui_->lblCodVeiculo->setText(veiculo.codigo);
    ui_->lblMarca->setText(veiculo.marca);
    ui_->lblPlacas->setText(veiculo.placas);
    ui_->lblCombustivel->setText(veiculo.combustivel);
    ui_->lblCor->setText(veiculo.cor);
    ui_->lblAno->setText(veiculo.ano);
    ui_->lblCodCliente->setText(veiculo.codCliente);
    ui_->lblNome->setText(veiculo.nome);
    ui_->lblFone1->setText(veiculo.fone1);
    ui_->lblCelular->setText(veiculo.celular);
}

void frmOSAbre::habilitaInformacoes()
{
    const QString semVeiculo = u"Nenhum veículo foi informado"_s;
    ui::enableIf(!ui_->lblCodVeiculo->text().isEmpty(), ui_->btnInfoVeiculo, semVeiculo, ui_->txtCodVeiculo);
    ui::enableIf(!ui_->lblCodCliente->text().isEmpty(), ui_->btnInfoCliente, semVeiculo, ui_->txtCodVeiculo);
}

void frmOSAbre::veiculoDesconhecido()
{
    if (ui::Confirm(u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s)) {
        cadastraVeiculo();
        return;
    }
    SelecionaTexto(ui_->txtCodVeiculo);
    limpaVeiculo();
}

void frmOSAbre::cadastraVeiculo() const
{
    const QString cadastro = u"frmCadaFast"_s;
    auto &janelas = ui::Forms::instance();
    janelas.Load(cadastro);
    Preenche(*this, cadastro);
    janelas.ShowModal(cadastro);
}

void frmOSAbre::limpaVeiculo()
{
    for (ui::Label *rotulo : {ui_->lblMarca, ui_->lblPlacas, ui_->lblCombustivel, ui_->lblCor, ui_->lblAno,
                              ui_->lblNome, ui_->lblFone1, ui_->lblCelular}) {
        rotulo->setText({});
    }
    ui_->txtKm->clear();
    ui_->txtObs->clear();
}

void frmOSAbre::btnInfoVeiculo_Click()
{
    MostraInformacoes(TipoInformacao::Veiculo, ui_->lblCodVeiculo->text());
}

void frmOSAbre::btnInfoCliente_Click()
{
    MostraInformacoes(TipoInformacao::Cliente, ui_->lblCodCliente->text());
}

void frmOSAbre::btnIncluir_Click()
{
    if (confere() && ui::Confirm(u"Confirma Inclusão"_s, NomeEmpresa)) {
        depoisDeGravar(AbreOrdem(ordem()));
    }
}

bool frmOSAbre::confere()
{
    if (ui_->lblMarca->text().isEmpty() || ui_->txtCodVeiculo->text().isEmpty()) {
        Recusa(u"Código de Veículo Inválido"_s, ui_->txtCodVeiculo);
        return false;
    }
    if (ui_->lblCodCliente->text().isEmpty()) {
        Recusa(u"Código do Cliente Inválido"_s, ui_->txtCodVeiculo);
        return false;
    }
    return true;
}

NovaOrdem frmOSAbre::ordem() const
{
    const ListasItens &listas = ui_->painelItens->listas();
    return {.codCliente = ui_->lblCodCliente->text(),
            .codVeiculo = ui_->txtCodVeiculo->text(),
            .km = ui_->txtKm->text(),
            .observacao = ui_->txtObs->text(),
            .valor = ui_->painelItens->total(),
            .servicos = ui_->txtServicos->toPlainText(),
            .mecanico = ui_->txtMecanico->currentText(),
            .itens = ParaGravar(listas.itens(), listas.compacto())};
}

void frmOSAbre::depoisDeGravar(qint32 numero)
{
    if (Devolve(*this, Ocasiao::Inclusao, QString::number(numero))) {
        return;
    }
    btnCancelar_Click();
    ui_->painelItens->limpa();
}

void frmOSAbre::btnCancelar_Click()
{
    LimpaForm(*this);
    ui_->txtCodVeiculo->setFocus();
}

void frmOSAbre::btnVoltar_Click()
{
    Unload();
}

} // namespace workorders
