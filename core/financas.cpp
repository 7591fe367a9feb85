#include "core/financas.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"

namespace core
{

using namespace Qt::StringLiterals;
using runtime::IsEmpty;
using runtime::Value;

QStringView NomeDaTabela(TabelaContas tabela)
{
    return tabela == TabelaContas::Receber ? u"ContasReceber" : u"ContasPagar";
}

void IncluiConta(TabelaContas tabela, const Conta &conta)
{
    AcrescentaLinha(NomeDaTabela(tabela).toString(), [&](dao::Recordset &linha) {
        linha[u"Data"] = IsEmpty(conta.data) ? Value(Hoje()) : conta.data;
        linha[u"Descricao"] = conta.descricao;
        linha[u"Valor"] = conta.valor;
        linha[u"Vencimento"] = conta.vencimento;
        linha[u"Pago"] = false;
        if (!IsEmpty(conta.codOs)) {
            linha[u"CodOs"] = conta.codOs;
        }
    });
}

void BaixaConta(dao::Recordset &conta, const Value &data, const Value &valor)
{
    conta.Edit();
    if (!IsEmpty(valor)) {
        conta[u"Valor"] = valor;
    }
    conta[u"Pago"] = true;
    conta[u"DataPagto"] = data;
    conta.Update();
}

qint32 IncluiCheque(const Cheque &cheque)
{
    return AcrescentaLinha(u"Cheques"_s, [&](dao::Recordset &linha) {
        linha[u"CodOs"] = cheque.codOs;
        linha[u"Data"] = Hoje();
        linha[u"Banco"] = ValorOuNulo(cheque.banco);
        linha[u"Conta"] = ValorOuNulo(cheque.conta);
        linha[u"Numero"] = ValorOuNulo(cheque.numero);
        linha[u"Valor"] = cheque.valor;
        linha[u"Vencimento"] = cheque.vencimento;
        linha[u"Pago"] = qint16{0};
        linha[u"Observacoes"] = ValorOuNulo(cheque.observacoes);
    });
}

void IncluiFiado(const Fiado &fiado)
{
    AcrescentaLinha(u"Fiados"_s, [&](dao::Recordset &linha) {
        linha[u"CodOs"] = fiado.codOs;
        linha[u"CodCliente"] = fiado.codCliente;
        linha[u"Data"] = Hoje();
        linha[u"Valor"] = fiado.valor;
        linha[u"Vencimento"] = fiado.vencimento;
        linha[u"Pago"] = false;
    });
}

bool EstaPago(const dao::Recordset &linha)
{
    return Verdadeiro(linha.value(u"Pago"));
}

bool NaoEstaPago(const dao::Recordset &linha)
{
    return !EstaPago(linha);
}

/// What stands at the end of a description may be a number that no statement takes as it is, as in "PARCELA 1,50".
QString ClienteDaOrdem(const QString &ordem)
{
    if (ordem.isEmpty()) {
        return {};
    }
    const QString codigo = QString::number(runtime::CLng(ordem));
    return LocalizaCampo(u"CodCliente"_s, u"OrdemServico"_s, u"Codigo = "_s + codigo);
}

QString NomeDoCliente(const QString &codigo)
{
    return codigo.isEmpty() ? QString() : LocalizaCampo(u"Nome"_s, u"Clientes"_s, u"Codigo = "_s + codigo);
}

} // namespace core
