#pragma once

#include <QString>

namespace documents
{

/// One of so many equal instalments of a value, with simple interest on the whole for each but the first. `juros` is
/// the setting's text ("0,03" for 3 %); "0" and "" are none.
float ValorDaParcela(const QString &valor, int parcelas, const QString &juros);

/// A value with simple interest for so many months.
float ValorComJuros(const QString &valor, int meses, const QString &juros);

/// The highest discount in reais: the total's share by the setting `Desconto`, in single precision.
float DescontoMaximo(const QString &total, const QString &desconto);

} // namespace documents
