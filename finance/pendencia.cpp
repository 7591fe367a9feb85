#include "finance/pendencia.h"

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

/// False where the row is gone.
bool alternaPago(const QString &tabela, const QString &codigo)
{
    dao::Recordset linha = DBDados->OpenRecordset(u"SELECT Pago FROM "_s + tabela + u" WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return false;
    }
    linha.Edit();
    linha[u"Pago"] = !Verdadeiro(linha.value(u"Pago"));
    linha.Update();
    linha.Close();
    return true;
}

} // namespace

Pendencia AlternaPendencia(const QString &codOs, const QString &codigo)
{
    if (!runtime::IsNumeric(codOs) || !alternaPago(u"OrdemServico"_s, codOs)) {
        return Pendencia::SemOrdem;
    }
    return alternaPago(u"Fiados"_s, codigo) ? Pendencia::Completa : Pendencia::SoOrdem;
}

void LancaPendencia(const QString &codOs, const QString &valor)
{
    LancaNoRazao(razaoCaixa, {.descricao = u"O.S. "_s + runtime::Format(codOs, mascaraCodigo), .valor = valor},
                 {SaldoAnterior::Busca, Precisao::DoubleDoSaldo});
}

} // namespace finance
