#include "shell/frmSenha.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "shell/frmMDI.h"
#include "shell/operadores.h"
#include "ui_frmSenha.h"

#include <QCloseEvent>
#include <QRegularExpressionValidator>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace shell
{
namespace
{

constexpr int falhasPermitidas = 3;
constexpr int letrasDoCodigo = 2;
constexpr int letrasDaSenha = 6;
// Longer in sight than out of it: the button has to be hit.
constexpr auto aVista = 900ms;
constexpr auto escondido = 300ms;

/// A hidden control keeps its place while the notice blinks, so that the window does not jump.
void guardaLugar(QWidget *controle, bool guarda)
{
    QSizePolicy politica = controle->sizePolicy();
    politica.setRetainSizeWhenHidden(guarda);
    controle->setSizePolicy(politica);
}

} // namespace

frmSenha::frmSenha() : Form(u"frmSenha"_s), ui_(std::make_unique<Ui::frmSenha>()), tmrAnima_(new QTimer(this))
{
    ui_->setupUi(this);
    tmrAnima_->setObjectName(u"tmrAnima"_s);
    ui_->txtSenha->setMaxLength(maiorSenha);
    ui_->txtCodigo->setValidator(new QRegularExpressionValidator(QRegularExpression(u"\\d*"_s), this));

    filterKeys(ui_->txtCodigo, core::SoInteiros);
    onChange(ui_->txtCodigo, &frmSenha::txtCodigo_Change);
    onLostFocus(ui_->txtCodigo, &frmSenha::txtCodigo_LostFocus);
    onChange(ui_->txtSenha, &frmSenha::txtSenha_Change);
    onClick(ui_->btnOk, &frmSenha::btnOk_Click);
    onClick(ui_->btnCancelar, &frmSenha::btnCancelar_Click);
    onClick(ui_->btnManutencao, &frmSenha::btnManutencao_Click);
    connect(tmrAnima_, &QTimer::timeout, this, bound(&frmSenha::tmrAnima_Timer));
}

frmSenha::~frmSenha() = default;

void frmSenha::Form_Load()
{
    ui_->lblTitulo->setText(QString::fromUtf16(core::App::Title));
    ui_->lblVersao->setText(u"Versão: "_s + core::App::version());
    atualizaAviso();
    ui::CentraForm(*this, true);
}

void frmSenha::atualizaAviso()
{
    const QString quantos = core::LocalizaCampo(u"count(Codigo)"_s, u"Senha"_s, u"Codigo = Codigo"_s);
    const bool ninguem = runtime::Val(quantos) == 0;
    for (QWidget *controle : std::initializer_list<QWidget *>{ui_->btnManutencao, ui_->Rotulos_2, ui_->Rotulos_3}) {
        guardaLugar(controle, ninguem);
    }
    mostraAviso(ninguem);
    ui_->btnManutencao->setVisible(true);
    adjustSize();
    if (ninguem) {
        tmrAnima_->start(aVista);
    } else {
        tmrAnima_->stop();
    }
}

void frmSenha::mostraAviso(bool visivel)
{
    avisoVisivel_ = visivel;
    ui_->Rotulos_2->setVisible(visivel);
    ui_->Rotulos_3->setVisible(visivel);
}

void frmSenha::tmrAnima_Timer()
{
    mostraAviso(!avisoVisivel_);
    ui_->btnManutencao->setVisible(avisoVisivel_);
    tmrAnima_->start(avisoVisivel_ ? aVista : escondido);
}

/// A code that has been touched belongs to nobody until the field is left: a button can be pressed by its shortcut
/// before.
void frmSenha::txtCodigo_Change()
{
    esqueceOperador();
    if (ui_->txtCodigo->text().size() == letrasDoCodigo) {
        ui_->txtSenha->setFocus();
    }
}

void frmSenha::txtCodigo_LostFocus()
{
    if (ui_->txtCodigo->text().isEmpty()) {
        esqueceOperador();
        return;
    }
    ui_->txtCodigo->setText(runtime::Format(ui_->txtCodigo->text(), u"00"));
    const auto operador = leOperador(ui_->txtCodigo->text());
    if (!operador) {
        esqueceOperador();
        core::Recusa(u"Código de Operador não localizado"_s, ui_->txtCodigo);
        return;
    }
    temOperador_ = true;
    ui_->lblOperador->setText(operador->nome);
    ui::setTagOf(ui_->lblOperador, runtime::CStr(operador->admin));
    ui::setTagOf(ui_->txtSenha, operador->senha);
    ui_->txtSenha->setFocus();
}

void frmSenha::esqueceOperador()
{
    temOperador_ = false;
    ui_->lblOperador->setText({});
    ui::setTagOf(ui_->lblOperador, {});
    ui::setTagOf(ui_->txtSenha, {});
}

void frmSenha::txtSenha_Change()
{
    if (ui_->txtSenha->text().size() == letrasDaSenha) {
        btnOk_Click();
    }
}

/// Without an operator no password is right, the empty one neither.
bool frmSenha::senhaConfere()
{
    if (temOperador_ && ui_->txtSenha->text() == ui::tagOf(ui_->txtSenha)) {
        return true;
    }
    ui::MsgBox(u"Senha Incorreta"_s, ui::Icon::Exclamation);
    if (++falhas_ == falhasPermitidas) {
        ui::End();
    }
    core::SelecionaTexto(ui_->txtSenha);
    return false;
}

void frmSenha::btnOk_Click()
{
    if (!runtime::IsNumeric(ui_->txtCodigo->text())) {
        core::Recusa(u"Código do operador Inválido"_s, ui_->txtCodigo);
        return;
    }
    if (senhaConfere()) {
        entra();
    }
}

void frmSenha::entra()
{
    core::CodOperador = runtime::CInt(ui_->txtCodigo->text());
    principal().mostraOperador(core::CodOperador, ui_->lblOperador->text());
    for (const QString &janela : {u"frmSenhaManut"_s, u"frmSenha"_s, u"frmSplash"_s}) {
        ui::Forms::instance().Unload(janela);
    }
    principal().MDIForm_Load();
}

void frmSenha::btnCancelar_Click()
{
    ui::End();
}

void frmSenha::btnManutencao_Click()
{
    if (!haOperadores()) {
        abreManutencao();
        return;
    }
    if (!core::ValidaCampo(ui_->txtCodigo, u"Código do Operador Inválido"_s, core::TipoCampo::NaoVazio) ||
        !senhaConfere()) {
        return;
    }
    if (ui::tagOf(ui_->lblOperador) != u"True") {
        ui::MsgBox(u"Você não tem permissão para acessar Manuteção de Senhas"_s, ui::Icon::Information);
        return;
    }
    abreManutencao();
}

void frmSenha::abreManutencao()
{
    tmrAnima_->stop();
    ui::Forms::instance().ShowModal(u"frmSenhaManut"_s);
    atualizaAviso();
    core::SelecionaTexto(ui_->txtCodigo);
}

void frmSenha::closeEvent(QCloseEvent *event)
{
    if (!unloading()) {
        ui::Application::run([] { ui::End(); });
    }
    Form::closeEvent(event);
}

} // namespace shell
