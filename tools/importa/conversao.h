#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"
#include "tools/importa/importa.h"

#include <optional>

namespace importa
{

/// The type that a column of a Jet file has in a database of the program; none for pictures, bytes and the like.
std::optional<dao::FieldType> TipoDe(int tipoNaOrigem);

/// Brings the values of a column of the source into the width of a column of the target. What the program's column
/// can't hold is cut, rounded or left Null, and told.
class Conversor
{
public:
    Conversor(dao::FieldType origem, dao::Field destino);

    /// Numbers become texts of so many digits: a postal code that was a number has lost its zeros.
    void completaComZeros(int algarismos) { algarismos_ = algarismos; }

    std::optional<Mudanca> converte(runtime::Value &valor) const;

private:
    std::optional<Mudanca> cabe(runtime::Value &valor) const;
    std::optional<Mudanca> cabeTexto(QString &texto) const;
    std::optional<Mudanca> deOutroTipo(runtime::Value &valor) const;
    std::optional<Mudanca> paraTexto(runtime::Value &valor) const;
    std::optional<Mudanca> nada(runtime::Value &valor, Mudanca mudanca) const;

    dao::Field destino_;
    bool mesmoTipo_;
    int algarismos_ = 0;
};

} // namespace importa
