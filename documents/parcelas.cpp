#include "documents/parcelas.h"

#include "platform/runtime/runtime.h"

namespace documents
{

using namespace runtime;

namespace
{

bool semJuros(const QString &juros)
{
    return juros.isEmpty() || juros == u"0";
}

/// The value with interest for every instalment after the first. The product is taken in double precision and the sum
/// rounded to single: another order of rounding would move cents.
float totalComJuros(const QString &valor, int parcelas, const QString &juros)
{
    const float taxa = static_cast<float>(parcelas - 1) * CSng(juros);
    return CSng(double{CSng(valor)} + CDbl(valor) * double{taxa});
}

} // namespace

float ValorDaParcela(const QString &valor, int parcelas, const QString &juros)
{
    const float total = semJuros(juros) ? CSng(valor) : totalComJuros(valor, parcelas, juros);
    return total / static_cast<float>(parcelas);
}

float DescontoMaximo(const QString &total, const QString &desconto)
{
    return CSng(total) * CSng(desconto);
}

} // namespace documents
