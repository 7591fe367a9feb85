#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <optional>

/// How the texts of controls become columns, and what may be written.
namespace core
{

enum class Gravacao { Inclusao, Alteracao };

/// What a control's text is written as; none where the column is not written.
using Converte = std::optional<runtime::Value> (*)(const QString &texto, Gravacao gravacao);

std::optional<runtime::Value> comoTexto(const QString &texto, Gravacao gravacao);      ///< the text as it stands
std::optional<runtime::Value> ouNulo(const QString &texto, Gravacao gravacao);         ///< Null for an empty text
std::optional<runtime::Value> minusculas(const QString &texto, Gravacao gravacao);     ///< the same in lower case
std::optional<runtime::Value> hojeNaInclusao(const QString &texto, Gravacao gravacao); ///< and never again

// --- checked
bool naoVazio(const QString &texto);
bool numerico(const QString &texto);
bool numericoOuVazio(const QString &texto);
bool dataValida(const QString &texto);
bool dataOuVazia(const QString &texto);
bool deHojeEmDiante(const QString &texto); ///< a date that has not passed

} // namespace core
