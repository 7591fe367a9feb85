#include "workorders/plano.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

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

float valorDaParcela(const QString &valor, int parcelas, const QString &juros, bool semJurosEmUma)
{
    if (parcelas == 1 && semJurosEmUma) {
        return CSng(valor);
    }
    const float total = semJuros(juros) ? CSng(valor) : totalComJuros(valor, parcelas, juros);
    return total / static_cast<float>(parcelas);
}

Date primeiroVencimento(int parcelas, Date hoje)
{
    return parcelas == 1 ? DateAdd(u"m", 1, hoje) : hoje;
}

} // namespace

std::vector<ParcelaOS> PlanoParcelas(const QString &valor, int parcelas, const QString &juros, bool semJurosEmUma,
                                     Date hoje)
{
    const QString parcela = Format(valorDaParcela(valor, parcelas, juros, semJurosEmUma), mascaraValor);
    Date vencimento = primeiroVencimento(parcelas, hoje);
    std::vector<ParcelaOS> plano;
    plano.reserve(static_cast<std::size_t>(parcelas));
    for (int numero = 1; numero <= parcelas; ++numero) {
        plano.push_back({Format(numero, u"00"), Format(vencimento, mascaraData), parcela, {}});
        vencimento = DateAdd(u"m", 1, vencimento);
    }
    return plano;
}

float DescontoMaximo(const QString &total, const QString &desconto)
{
    return CSng(total) * CSng(desconto);
}

} // namespace workorders
