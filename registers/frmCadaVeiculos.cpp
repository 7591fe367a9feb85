#include "registers/frmCadaVeiculos.h"

#include "ui_frmCadaVeiculos.h"
#include "ui_painelcadastro.h"

#include "registers/avisos.h"
#include "registers/painelcadastro.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"

#include <array>

namespace registers
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// What "Limpar Campos" empties. The chassis number is not among them.
constexpr std::array<QStringView, 9> limpos{u"lblCodigo", u"txtCodCliente",  u"lblNomeCliente",
                                            u"cboMarca",  u"txtAno",         u"txtCor",
                                            u"txtPlaca",  u"txtCombustivel", u"txtObservacoes"};

} // namespace

frmCadaVeiculos::frmCadaVeiculos() : Cadastro(registroVeiculos()), ui_(std::make_unique<Ui::frmCadaVeiculos>())
{
    ui_->setupUi(this);
    ligaCadastro(*ui_->painelCadastro);
    ligaCliente();
    onKey(ui_->txtCodCliente, Qt::Key_F2, &frmCadaVeiculos::btnClienteAdd_Click);
    onLostFocus(ui_->txtPlaca, &frmCadaVeiculos::txtPlaca_LostFocus);
    onClick(ui_->btnClienteAdd, &frmCadaVeiculos::btnClienteAdd_Click);
    onClick(ui_->btnClienteInfo, &frmCadaVeiculos::btnClienteInfo_Click);

    painel().btnLocalizar->setToolTip(u"Clique aqui para Localizar um Registro na Lista Acima Somente por NOME"_s);
}

frmCadaVeiculos::~frmCadaVeiculos() = default;

void frmCadaVeiculos::ligaCliente()
{
    new CaixaDeCodigo(*this, ui_->txtCodCliente,
                      {.consulta = [](const QString &codigo) -> QString {
                           return u"SELECT Nome FROM Clientes WHERE Codigo = "_s + codigo;
                       },
                       .naoLocalizado = u"Código do Cliente não Localizado ou não Cadastrado",
                       .mostra =
                           [this](const dao::Recordset &cliente) {
                               ui_->lblNomeCliente->setText(NuloParaVazio(cliente.value(u"Nome")));
                           },
                       .esvazia = [this] { ui_->lblNomeCliente->setText({}); },
                       .voltaOFoco = false,
                       .cadastro = u"frmCadaCliente",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcuraClienteDoVeiculo});
}

void frmCadaVeiculos::txtPlaca_LostFocus()
{
    AvisaSeHa(u"SELECT Placas FROM Veiculos WHERE Placas = '"_s + ui_->txtPlaca->text() + u"'"_s,
              u"Placa já cadastrada"_s);
}

/// The order that asked for a new vehicle is still waiting for it: its mode is kept.
void frmCadaVeiculos::btnClienteAdd_Click()
{
    Chama(u"frmCadaCliente"_s, ModoChamada == modoIncluiVeiculo ? modoIncluiVeiculo : modoIncluiClienteDoVeiculo);
}

void frmCadaVeiculos::btnClienteInfo_Click()
{
    MostraInformacoes(TipoInformacao::Cliente, ui_->txtCodCliente->text());
}

void frmCadaVeiculos::limpa()
{
    campos().esvazia(limpos);
    ui_->txtCodCliente->setFocus();
}

} // namespace registers
