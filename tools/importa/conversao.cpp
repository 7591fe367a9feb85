#include "tools/importa/conversao.h"

#include "platform/dao/fields.h"
#include "platform/dao/types.h"
#include "platform/runtime/runtime.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

using dao::FieldType;
using runtime::Value;

constexpr double primeiroDia = -657434; // 1 January 100
constexpr double fimDosDias = 2958466;  // the day behind 31 December 9999

constexpr std::array tiposIguais{FieldType::Boolean,  FieldType::Byte,   FieldType::Integer, FieldType::Long,
                                 FieldType::Currency, FieldType::Single, FieldType::Double,  FieldType::Date,
                                 FieldType::Text,     FieldType::Memo};

/// What is half of a character of two halves becomes the sign for a character that is not known.
void trocaMetades(QString &texto)
{
    for (qsizetype i = 0; i < texto.size(); ++i) {
        if (texto[i].isHighSurrogate() && i + 1 < texto.size() && texto[i + 1].isLowSurrogate()) {
            ++i;
        } else if (texto[i].isSurrogate()) {
            texto[i] = QChar::ReplacementCharacter;
        }
    }
}

/// Never between the halves of a character.
QString cortado(const QString &texto, int tamanho)
{
    const bool noMeio = texto[tamanho - 1].isHighSurrogate() && texto[tamanho].isLowSurrogate();
    return texto.left(noMeio ? tamanho - 1 : tamanho);
}

/// The number that a value is or tells; none for a text that tells none.
std::optional<double> numeroDe(const Value &valor)
{
    if (const auto *const data = std::get_if<runtime::Date>(&valor)) {
        return data->serial;
    }
    try {
        return runtime::CDbl(valor);
    } catch (const runtime::RuntimeError &) {
        return std::nullopt;
    }
}

/// With the digits that a Single shows: 10.1 in 32 bits is another number than 10.1 in 64, and the same amount.
bool mesmoValor(double antes, const Value &depois)
{
    const double numero = numeroDe(depois).value_or(0);
    if (numero == antes || !std::holds_alternative<float>(depois)) {
        return numero == antes;
    }
    constexpr int deSingle = 7;
    constexpr int deDouble = 15;
    return runtime::decimalText(numero, deSingle).toDouble() == runtime::decimalText(antes, deDouble).toDouble();
}

bool ehVerdade(double numero)
{
    return numero == 0 || std::abs(numero) == 1;
}

} // namespace

std::optional<FieldType> TipoDe(int tipoNaOrigem)
{
    const auto *const igual = std::find(tiposIguais.begin(), tiposIguais.end(), static_cast<FieldType>(tipoNaOrigem));
    return igual != tiposIguais.end() ? std::optional(*igual) : std::nullopt;
}

Conversor::Conversor(FieldType origem, dao::Field destino)
    : destino_(std::move(destino)),
      mesmoTipo_(origem == destino_.type || (dao::valueType(origem) == dao::valueType(destino_.type) &&
                                             destino_.type != FieldType::Byte)) // which holds less than it is read as
{
}

std::optional<Mudanca> Conversor::converte(Value &valor) const
{
    if (runtime::IsNull(valor)) {
        if (destino_.type == FieldType::Boolean) {
            valor = false;
        }
        return std::nullopt;
    }
    return mesmoTipo_ ? cabe(valor) : deOutroTipo(valor);
}

std::optional<Mudanca> Conversor::nada(Value &valor, Mudanca mudanca) const
{
    valor = destino_.type == FieldType::Boolean ? Value(false) : Value(runtime::Null());
    return mudanca;
}

/// A value of the column's own type: a file may hold what no program writes.
std::optional<Mudanca> Conversor::cabe(Value &valor) const
{
    if (auto *const texto = std::get_if<QString>(&valor)) {
        return cabeTexto(*texto);
    }
    if (const auto *const data = std::get_if<runtime::Date>(&valor)) {
        const bool dia = data->serial >= primeiroDia && data->serial < fimDosDias;
        return dia ? std::nullopt : nada(valor, Mudanca::SemLugar);
    }
    const auto *const simples = std::get_if<float>(&valor);
    const auto *const duplo = std::get_if<double>(&valor);
    const bool semNumero = (simples != nullptr && std::isnan(*simples)) || (duplo != nullptr && std::isnan(*duplo));
    return semNumero ? nada(valor, Mudanca::SemSentido) : std::nullopt;
}

std::optional<Mudanca> Conversor::cabeTexto(QString &texto) const
{
    std::optional<Mudanca> mudanca;
    if (!texto.isValidUtf16()) {
        trocaMetades(texto);
        mudanca = Mudanca::Caractere;
    }
    if (destino_.type == FieldType::Text && texto.size() > destino_.size) {
        texto = cortado(texto, destino_.size);
        mudanca = Mudanca::Cortado;
    }
    return mudanca;
}

/// As the program reads what is typed into a box: by the regional settings.
std::optional<Mudanca> Conversor::deOutroTipo(Value &valor) const
{
    const auto *const texto = std::get_if<QString>(&valor);
    if (texto != nullptr && texto->isEmpty()) { // an empty text told no number: nothing is lost
        valor = destino_.type == FieldType::Boolean ? Value(false) : Value(runtime::Null());
        return std::nullopt;
    }
    if (dao::valueType(destino_.type) == FieldType::Text) {
        return paraTexto(valor);
    }
    const bool deTexto = texto != nullptr;
    const std::optional<double> numero = numeroDe(valor);
    try {
        valor = dao::convertForField(valor, destino_);
    } catch (const runtime::RuntimeError &) {
        return nada(valor, deTexto && !numero ? Mudanca::SemSentido : Mudanca::SemLugar);
    }
    if (!numero) { // a text that tells a day, or a truth
        return std::nullopt;
    }
    const bool igual = destino_.type == FieldType::Boolean ? ehVerdade(*numero) : mesmoValor(*numero, valor);
    return igual ? std::nullopt : std::optional(Mudanca::Arredondado);
}

/// The digits of a number that does not fit would be another number.
std::optional<Mudanca> Conversor::paraTexto(Value &valor) const
{
    const QString texto = runtime::CStr(valor).rightJustified(algarismos_, u'0');
    if (destino_.type == FieldType::Text && texto.size() > destino_.size) {
        return nada(valor, Mudanca::SemLugar);
    }
    valor = texto;
    return std::nullopt;
}

} // namespace importa
