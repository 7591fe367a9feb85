#pragma once

#include "registers/registro.h"

/// How the registers' columns become texts of the screen, and the texts columns again.
namespace registers
{

// --- shown
using core::comoCodigo;
using core::comoData;
using core::comoEsta;
using core::comoSimNao;
using core::comoValor;

// --- written
std::optional<runtime::Value> comoTexto(const QString &texto, Gravacao gravacao);      ///< the text as it stands
std::optional<runtime::Value> ouNulo(const QString &texto, Gravacao gravacao);         ///< Null for an empty text
std::optional<runtime::Value> minusculas(const QString &texto, Gravacao gravacao);     ///< the same in lower case
std::optional<runtime::Value> hojeNaInclusao(const QString &texto, Gravacao gravacao); ///< and never again

// --- checked
bool naoVazio(const QString &texto);
bool numerico(const QString &texto);
bool numericoOuVazio(const QString &texto);
bool dataOuVazia(const QString &texto);

} // namespace registers
