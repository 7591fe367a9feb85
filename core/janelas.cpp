#include "core/janelas.h"

#include "core/banco.h"
#include "core/embaralha.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"
#include "platform/ui/reasons.h"
#include "platform/ui/units.h"
#include "platform/ui/wait.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr auto propDinheiro = "dinheiro";

void selecionaTudo(QWidget *controle)
{
    if (auto *linha = qobject_cast<QLineEdit *>(controle)) {
        linha->selectAll();
    } else if (auto *caixa = qobject_cast<QPlainTextEdit *>(controle)) {
        caixa->selectAll();
    } else if (auto *combo = qobject_cast<QComboBox *>(controle); combo != nullptr && combo->lineEdit() != nullptr) {
        combo->lineEdit()->selectAll();
    }
}

// --- clearing

/// The inner boxes of compound controls are no controls of the window.
bool interno(const QWidget *controle)
{
    const QWidget *pai = controle->parentWidget();
    return qobject_cast<const QComboBox *>(pai) != nullptr || qobject_cast<const QAbstractSpinBox *>(pai) != nullptr;
}

bool fixo(const QLabel *rotulo)
{
    const QString nome = rotulo->objectName();
    return nome.isEmpty() || nome.startsWith(u"qt_") || nome.startsWith(u"Rotulos");
}

void limpaTextos(const ui::Form &form)
{
    for (auto *linha : form.findChildren<QLineEdit *>()) {
        if (!interno(linha)) {
            linha->clear();
        }
    }
    for (auto *caixa : form.findChildren<QPlainTextEdit *>()) {
        caixa->clear();
    }
}

void limpaRotulos(const ui::Form &form)
{
    for (auto *rotulo : form.findChildren<QLabel *>()) {
        if (!fixo(rotulo)) {
            // Through the platform's setter: hidden labels tell of their change.
            ui::setTextOf(rotulo, rotulo->property(propDinheiro).toBool() ? u"0,00"_s : QString());
        }
    }
}

void limpaCombos(const ui::Form &form, const Limpeza &o)
{
    for (auto *combo : form.findChildren<QComboBox *>()) {
        if (o.listaCombos) {
            combo->clear();
        }
        if (o.textoCombos && combo->isEditable()) {
            combo->setEditText({});
        }
    }
}

template<class Botao>
void desmarca(const ui::Form &form)
{
    for (auto *botao : form.findChildren<Botao *>()) {
        const bool exclusivo = botao->autoExclusive();
        botao->setAutoExclusive(false); // or the last one set can't be taken back
        botao->setChecked(false);
        botao->setAutoExclusive(exclusivo);
    }
}

bool valido(const QString &texto, TipoCampo tipo)
{
    switch (tipo) {
    case TipoCampo::Data:
        return runtime::IsDate(texto);
    case TipoCampo::Numerico:
        return runtime::IsNumeric(texto);
    case TipoCampo::NaoVazio:
        return !texto.isEmpty();
    }
    return true;
}

bool aceita(QLineEdit *controle, const QString &mensagem, bool serve)
{
    if (!serve) {
        Recusa(mensagem, controle);
    }
    return serve;
}

/// Once for all that one paste brings.
void apita()
{
    static bool apitou = false;
    if (!std::exchange(apitou, true)) {
        QApplication::beep();
        QMetaObject::invokeMethod(
            qApp, [] { apitou = false; }, Qt::QueuedConnection);
    }
}

} // namespace

void LigaPerguntas()
{
    setPerguntaBase64(
        [](const QString &texto, const QString &titulo) { return ui::ConfirmOk(texto, ui::Icon::Exclamation, titulo); },
        [](const QString &texto, const QString &titulo) { ui::MsgBox(texto, ui::Icon::Exclamation, titulo); });
}

void LigaBanco()
{
    ui::setUnits({dao::Unit::enter, dao::Unit::leave, dao::Unit::pause, dao::Unit::resume});
    dao::DBEngine::SetWaitNotice([](bool espera) {
        static std::optional<ui::Hourglass> ampulheta;
        espera ? static_cast<void>(ampulheta.emplace()) : ampulheta.reset();
    });
}

void SelecionaTexto(QWidget *controle)
{
    selecionaTudo(controle);
    if (controle->isVisible() && controle->isEnabled()) {
        controle->setFocus();
    }
}

bool ValidaCampo(QLineEdit *controle, const QString &mensagem, TipoCampo tipo)
{
    return aceita(controle, mensagem, valido(controle->text(), tipo));
}

bool ValidaCampo(QLineEdit *controle, const QString &mensagem, bool (*serve)(const QString &texto))
{
    return aceita(controle, mensagem, serve(controle->text()));
}

void LimpaForm(ui::Form &form, const Limpeza &o)
{
    if (o.textos) {
        limpaTextos(form);
    }
    if (o.rotulos) {
        limpaRotulos(form);
    }
    limpaCombos(form, o);
    if (o.opcoes) {
        desmarca<QRadioButton>(form);
    }
    if (o.checks) {
        desmarca<QCheckBox>(form);
    }
}

void SoAdministrador(const QString &motivo, std::initializer_list<QWidget *> botoes)
{
    if (Administrador()) {
        return;
    }
    for (QWidget *botao : botoes) {
        ui::enableIf(false, botao, motivo);
    }
}

void Recusa(const QString &mensagem, QWidget *controle)
{
    ui::MsgBox(mensagem, ui::Icon::Exclamation, NomeEmpresa);
    SelecionaTexto(controle);
}

QChar SoDigitos(QChar tecla, bool comDecimais)
{
    const bool digito = tecla >= u'0' && tecla <= u'9';
    const bool decimal = comDecimais && (tecla == u',' || tecla == u'.');
    if (digito || decimal || tecla == u'\b') {
        return tecla;
    }
    apita();
    return {};
}

} // namespace core
