#include "shell/vencimentos.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

namespace shell
{
namespace
{

using namespace Qt::StringLiterals;

constexpr int diasAntesEDepois = 15;

/// By the place of the enumerator, each with the period in the place of %1.
constexpr auto consultas = std::to_array<QStringView>({
    u"SELECT Descricao, Valor, Vencimento FROM ContasPagar WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Descricao, Valor, Vencimento FROM ContasReceber WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Codigo, Valor, Vencimento FROM Cheques WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Clientes.Nome, Fiados.Valor, Fiados.Vencimento FROM Fiados, Clientes WHERE Fiados.Vencimento BETWEEN %1 "
    u"AND"
    u" Fiados.Pago = False AND Clientes.Codigo = Fiados.CodCliente",
});

static_assert(consultas.size() == vencimentos.size());

} // namespace

PeriodoDosAvisos PeriodoAtual()
{
    const auto agora = runtime::Now();
    return {runtime::DateAdd(u"d", -diasAntesEDepois, agora), runtime::DateAdd(u"d", diasAntesEDepois, agora)};
}

QString ConsultaDe(Vencimento qual, const PeriodoDosAvisos &periodo)
{
    const QStringView consulta = consultas.at(static_cast<std::size_t>(qual));
    return consulta.toString().arg(core::DataSQL(periodo.inicio, 4, periodo.fim));
}

} // namespace shell
