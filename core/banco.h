#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <functional>

namespace dao
{
class Recordset;
}

namespace core
{

/// The first field of the first row of "SELECT campo FROM tabela WHERE condicao" as text; "" for no row, for Null and
/// for any error. `campo` may be an expression such as "count(Codigo)".
QString LocalizaCampo(const QString &campo, const QString &tabela, const QString &condicao);

/// Appends a row to `tabela`: `preenche` sets its fields in the order of the caller.
/// The new row's counter is returned, 0 for a table without one.
qint32 AcrescentaLinha(const QString &tabela, const std::function<void(dao::Recordset &)> &preenche);

/// A text for a field: Null when it is empty, since the tables take no empty text.
runtime::Value ValorOuNulo(const QString &texto);

/// A field's value as text, "" for Null and Empty.
QString NuloParaVazio(const runtime::Value &valor);

/// A yes/no column of any type (Boolean, or an Integer of -1 and 0) as a truth value; Null is False.
bool Verdadeiro(const runtime::Value &valor);

/// Whether that operator is an administrator; without a code, the one logged in.
bool Administrador(const QString &operador);
bool Administrador();

} // namespace core
