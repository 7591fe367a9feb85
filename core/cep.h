#pragma once

#include <QString>

#include <optional>

namespace core
{

/// The address of a postal code, as the registers take it over.
struct EnderecoCEP {
    QString endereco; ///< street type and street
    QString bairro;
    QString cidade;
    QString estado;
};

/// What a look-up came to: not even tried, or tried with or without an address.
struct BuscaCEP {
    bool procurou = false;
    std::optional<EnderecoCEP> endereco;
};

/// Looks a postal code up in the postal-code database (Correios, eight digits). Only a text of the form "99.999-999" is
/// tried, and only while the setting CEP is not "Off". A database that is not open finds nothing.
BuscaCEP ProcuraCEP(const QString &texto);

} // namespace core
