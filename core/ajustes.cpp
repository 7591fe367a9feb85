#include "core/ajustes.h"

#include "core/config.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"

#include <cmath>

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

QString textoDaPergunta(const Ajuste &ajuste)
{
    const QString pergunta = ajuste.pergunta.toString();
    return ajuste.resposta == Resposta::SimNao ? pergunta + u"\nS - Sim\nN - Não"_s : pergunta;
}

QString valorMostrado(const Ajuste &ajuste)
{
    return ajuste.mostrado != nullptr ? ajuste.mostrado() : Config(ajuste.chave.toString());
}

bool aceita(const Ajuste &ajuste, const QString &resposta)
{
    switch (ajuste.resposta) {
    case Resposta::SimNao:
        return resposta == u"S" || resposta == u"N";
    case Resposta::Numero:
        return NumeroValido(resposta);
    case Resposta::Texto:
        break;
    }
    return true;
}

void recusa(const Ajuste &ajuste)
{
    if (!ajuste.recusa.isEmpty()) {
        ui::MsgBox(ajuste.recusa.toString(), ui::Icon::Exclamation, NomeEmpresa);
    }
}

bool grava(const Ajuste &ajuste, const QString &resposta)
{
    if (ajuste.grava != nullptr) {
        return ajuste.grava(resposta);
    }
    const QString valor = ajuste.gravado != nullptr ? ajuste.gravado(resposta) : resposta;
    GravaINI(u"Config"_s, ajuste.chave.toString(), valor, true);
    return true;
}

} // namespace

void PerguntaAjuste(const Ajuste &ajuste)
{
    QString resposta = ui::InputBox(textoDaPergunta(ajuste), NomeEmpresa, valorMostrado(ajuste));
    if (ajuste.resposta == Resposta::SimNao) {
        resposta = resposta.toUpper();
    }
    if (resposta.isEmpty()) {
        return;
    }
    if (!aceita(ajuste, resposta)) {
        recusa(ajuste);
        return;
    }
    if (!grava(ajuste, resposta)) {
        return;
    }
    if (ajuste.depois != nullptr) {
        ajuste.depois(resposta);
    }
    ui::MsgBox(u"Gravação Concluída com Sucesso"_s, ui::Icon::Information, NomeEmpresa);
}

bool NumeroValido(const QString &texto)
{
    const auto numero = runtime::parseNumber(texto);
    return numero && std::isfinite(*numero);
}

QString TaxaGravada(const QString &resposta)
{
    return u"0,"_s + runtime::Format(runtime::CDbl(resposta), u"00"_s);
}

} // namespace core
