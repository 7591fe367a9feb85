#include "finance/compensacao.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr qint16 compensado = -1;
constexpr qint16 aCompensar = 0;

ChequeAlternado chequeDe(const dao::Recordset &linha)
{
    const runtime::Value codOs = linha.value(u"CodOs");
    return {.codigo = runtime::CLng(linha.value(u"Codigo")),
            .codOs = runtime::IsNull(codOs) ? 0 : runtime::CLng(codOs),
            .valor = runtime::CSng(linha.value(u"Valor"))};
}

} // namespace

std::optional<ChequeAlternado> AlternaCheque(const QString &codigo)
{
    dao::Recordset linha = DBDados->OpenRecordset(u"SELECT * FROM Cheques WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return std::nullopt;
    }
    const ChequeAlternado cheque = chequeDe(linha);
    linha.Edit();
    linha[u"Pago"] = Verdadeiro(linha.value(u"Pago")) ? aCompensar : compensado;
    linha.Update();
    linha.Close();
    return cheque;
}

void LancaCheque(const ChequeAlternado &cheque)
{
    const QString descricao = u"CHEQUE CÓD "_s + runtime::Format(cheque.codigo, mascaraCodigo) + u"/"_s +
                              runtime::Format(cheque.codOs, mascaraCodigo);
    LancaNoRazao(razaoCaixa, {.descricao = descricao, .valor = cheque.valor}, {SaldoAnterior::Busca});
}

} // namespace finance
