#include "core/conversoes.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

namespace core
{

using namespace runtime;

std::optional<Value> comoTexto(const QString &texto, Gravacao /*gravacao*/)
{
    return texto;
}

std::optional<Value> ouNulo(const QString &texto, Gravacao /*gravacao*/)
{
    return ValorOuNulo(texto);
}

std::optional<Value> minusculas(const QString &texto, Gravacao /*gravacao*/)
{
    return ValorOuNulo(texto.toLower());
}

std::optional<Value> hojeNaInclusao(const QString & /*texto*/, Gravacao gravacao)
{
    if (gravacao == Gravacao::Alteracao) {
        return std::nullopt;
    }
    return Hoje();
}

bool naoVazio(const QString &texto)
{
    return !texto.isEmpty();
}

bool numerico(const QString &texto)
{
    return IsNumeric(texto);
}

bool numericoOuVazio(const QString &texto)
{
    return texto.isEmpty() || IsNumeric(texto);
}

bool dataValida(const QString &texto)
{
    return IsDate(texto);
}

bool dataOuVazia(const QString &texto)
{
    return texto.isEmpty() || IsDate(texto);
}

bool deHojeEmDiante(const QString &texto)
{
    return IsDate(texto) && DateDiff(u"d", Today(), CDate(texto)) >= 0;
}

} // namespace core
