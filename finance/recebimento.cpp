#include "finance/recebimento.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/modulo.h"
#include "platform/dao/database.h"

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// A box may come up behind it, so the row is closed again.
bool baixa(const Recebimento &recebimento)
{
    const QString campos = recebimento.parcial ? u"Valor, Pago, DataPagto"_s : u"Vencimento, Pago, DataPagto"_s;
    dao::Recordset conta =
        DBDados->OpenRecordset(u"SELECT "_s + campos + u" FROM ContasReceber WHERE Codigo = "_s + recebimento.codigo);
    if (conta.Eof()) {
        return false;
    }
    BaixaConta(conta, recebimento.data,
               recebimento.parcial ? runtime::Value(recebimento.parcial->pago) : runtime::Value{});
    return true;
}

void deixaResto(const Recebimento &recebimento)
{
    IncluiConta(TabelaContas::Receber, {.data = recebimento.data,
                                        .descricao = u"PAG. PARCIAL O.S.: "_s + recebimento.codOs,
                                        .valor = recebimento.parcial->resto,
                                        .vencimento = recebimento.parcial->vencimento,
                                        .codOs = ValorOuNulo(recebimento.codOs)});
}

void lancaNoLivro(const Recebimento &recebimento, const QString &pago)
{
    const QString marca = recebimento.parcial ? u"P.P. "_s : QString();
    LancaNoRazao(*recebimento.livro,
                 {.data = recebimento.data,
                  .descricao = marca + recebimento.descricao,
                  .valor = pago,
                  .codOs = ValorOuNulo(recebimento.codOs)},
                 {SaldoAnterior::BuscaOuZero});
}

/// What goes out of the customer's account is money that came in: its balance is what he owes.
void abateDaContaDoCliente(const Recebimento &recebimento, const QString &pago)
{
    LancaNoRazao(razaoContaFiado,
                 {.dono = recebimento.codCliente,
                  .data = recebimento.data,
                  .descricao = u"PAGAMENTO: "_s + recebimento.descricao,
                  .valor = pago,
                  .operacao = Operacao::Saida},
                 {SaldoAnterior::BuscaOuZero, Precisao::Double});
}

} // namespace

void Recebe(const Recebimento &recebimento, const std::function<void()> &naoLocalizada)
{
    if (!baixa(recebimento) && naoLocalizada) {
        naoLocalizada();
    }
    if (recebimento.parcial) {
        deixaResto(recebimento);
    }
    const QString pago = recebimento.parcial ? recebimento.parcial->pago : recebimento.valor;
    if (recebimento.livro != nullptr) {
        lancaNoLivro(recebimento, pago);
    }
    if (!recebimento.codCliente.isEmpty()) {
        abateDaContaDoCliente(recebimento, pago);
    }
}

} // namespace finance
