#include "workorders/plano.h"

#include "core/funcoes.h"
#include "documents/parcelas.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

Date primeiroVencimento(int parcelas, Date hoje)
{
    return parcelas == 1 ? DateAdd(u"m", 1, hoje) : hoje;
}

} // namespace

std::vector<ParcelaOS> PlanoParcelas(const QString &valor, int parcelas, const QString &juros, bool semJurosEmUma,
                                     Date hoje)
{
    const bool semJuros = parcelas == 1 && semJurosEmUma;
    const QString parcela = Format(ValorDaParcela(valor, parcelas, semJuros ? QString() : juros), mascaraValor);
    Date vencimento = primeiroVencimento(parcelas, hoje);
    std::vector<ParcelaOS> plano;
    plano.reserve(static_cast<std::size_t>(parcelas));
    for (int numero = 1; numero <= parcelas; ++numero) {
        plano.push_back({Format(numero, u"00"), Format(vencimento, mascaraData), parcela, {}});
        vencimento = DateAdd(u"m", 1, vencimento);
    }
    return plano;
}

} // namespace workorders
