#include "workorders/frmOSAbre.h"

#include "ui_frmOSAbre.h"

#include "core/caixacodigo.h"
#include "core/config.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/boxes.h"

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
    onClick(ui_->btnIncluir, &frmOSAbre::btnIncluir_Click);
    onClick(ui_->btnCancelar, &frmOSAbre::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmOSAbre::btnVoltar_Click);
    ui_->cabecalho->liga(*this);
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
    ui_->cabecalho->monta();
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
        ui_->txtCodVeiculo->setText(veiculo->codigo);
        ui_->cabecalho->mostra(*veiculo);
    } else {
        veiculoDesconhecido();
    }
    // The windows that were opened meanwhile have left their own mode behind.
    ModoChamada = runtime::CInt(ui::tagOf(this));
}

void frmOSAbre::veiculoDesconhecido()
{
    if (ui::Confirm(u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s)) {
        cadastraVeiculo();
        return;
    }
    SelecionaTexto(ui_->txtCodVeiculo);
    ui_->cabecalho->esqueceVeiculo();
}

void frmOSAbre::cadastraVeiculo() const
{
    const QString cadastro = u"frmCadaFast"_s;
    auto &janelas = ui::Forms::instance();
    janelas.Load(cadastro);
    Preenche(*this, cadastro);
    janelas.ShowModal(cadastro);
}

void frmOSAbre::btnIncluir_Click()
{
    if (confere() && ui::Confirm(u"Confirma Inclusão"_s, NomeEmpresa)) {
        depoisDeGravar(AbreOrdem(ordem()));
    }
}

/// What stands in the box may be an unknown plate beside the vehicle that was found before it: that is no vehicle, and
/// the order is not the other one's.
bool frmOSAbre::confere()
{
    const QString veiculo = ui_->txtCodVeiculo->text();
    if (ui_->cabecalho->marca().isEmpty() || veiculo.isEmpty() || veiculo != ui_->cabecalho->codVeiculo()) {
        Recusa(u"Código de Veículo Inválido"_s, ui_->txtCodVeiculo);
        return false;
    }
    if (ui_->cabecalho->codCliente().isEmpty()) {
        Recusa(u"Código do Cliente Inválido"_s, ui_->txtCodVeiculo);
        return false;
    }
    return true;
}

NovaOrdem frmOSAbre::ordem() const
{
    const ListasItens &listas = ui_->painelItens->listas();
    const TextosOS textos = ui_->cabecalho->textos();
    return {.codCliente = ui_->cabecalho->codCliente(),
            .codVeiculo = ui_->txtCodVeiculo->text(),
            .km = textos.km,
            .observacao = textos.observacao,
            .valor = ui_->painelItens->total(),
            .servicos = textos.servicos,
            .mecanico = textos.mecanico,
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
