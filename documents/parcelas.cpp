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

} // namespace

/// The product is taken in double precision and the sum rounded to single: another order of rounding would move cents.
float ValorComJuros(const QString &valor, int meses, const QString &juros)
{
    if (semJuros(juros)) {
        return CSng(valor);
    }
    const float taxa = static_cast<float>(meses) * CSng(juros);
    return CSng(double{CSng(valor)} + CDbl(valor) * double{taxa});
}

float ValorDaParcela(const QString &valor, int parcelas, const QString &juros)
{
    return ValorComJuros(valor, parcelas - 1, juros) / static_cast<float>(parcelas);
}

float DescontoMaximo(const QString &total, const QString &desconto)
{
    return CSng(total) * CSng(desconto);
}

} // namespace documents
