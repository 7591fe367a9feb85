#pragma once

#include <QString>

namespace amostra
{

/// A CPF without punctuation: nine digits of `base` and the two check digits that they ask for.
QString Cpf(quint64 base);

/// The CNPJ of a company's head office without punctuation: eight digits of `base`, "0001" and the check digits.
QString Cnpj(quint64 base);

/// The licence plate of a number below `placasPossiveis`: three letters and four digits.
QString Placa(quint64 numero);
inline constexpr quint64 placasPossiveis = 26ULL * 26 * 26 * 10'000;

/// "(99) 9999-9999", as the phone mask leaves it.
QString Telefone(int ddd, int prefixo, int numero);

/// "99.999-999", as the mask of the postal code leaves it.
QString MascaraCep(int cincoPrimeiros, int tresUltimos);

/// A number as text with zeros in front.
QString Digitos(quint64 numero, int casas);

} // namespace amostra
