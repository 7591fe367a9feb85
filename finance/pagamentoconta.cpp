#include "finance/pagamentoconta.h"

#include "core/financas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

dao::Recordset abre(TabelaContas tabela, const QString &codigo)
{
    return DBDados->OpenRecordset(u"SELECT * FROM "_s + NomeDaTabela(tabela) + u" WHERE Codigo = "_s + codigo);
}

} // namespace

std::optional<SituacaoDaConta> Situacao(TabelaContas tabela, const QString &codigo)
{
    const dao::Recordset conta = abre(tabela, codigo);
    if (conta.Eof()) {
        return std::nullopt;
    }
    return SituacaoDaConta{EstaPago(conta), conta.value(u"Valor")};
}

void PagaConta(const Pagamento &pagamento)
{
    dao::Recordset conta = abre(TabelaContas::Pagar, pagamento.codigo);
    if (conta.Eof()) {
        return;
    }
    BaixaConta(conta, pagamento.data, pagamento.valor);
    LancaNoRazao(razaoCaixa, {.descricao = pagamento.descricao, .valor = pagamento.valor, .operacao = Operacao::Saida},
                 {SaldoAnterior::UltimaLinha, Precisao::Double});
}

void ReabreConta(TabelaContas tabela, const QString &codigo)
{
    dao::Recordset conta = abre(tabela, codigo);
    if (conta.Eof() || !EstaPago(conta)) {
        return;
    }
    conta.Edit();
    conta[u"Pago"] = false;
    conta[u"DataPagto"] = runtime::Null{};
    conta.Update();
}

} // namespace finance
