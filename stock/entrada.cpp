#include "stock/entrada.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

namespace stock
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

qint32 gravaNota(const NotaDeEntrada &nota)
{
    return AcrescentaLinha(u"NotasEntradas"_s, [&nota](dao::Recordset &linha) {
        linha[u"CodForn"] = nota.codFornecedor;
        linha[u"Data"] = Hoje();
        linha[u"Valor"] = nota.valor;
        linha[u"Observacoes"] = ValorOuNulo(nota.observacoes);
        linha[u"Pago"] = false;
    });
}

/// The newest note's cost is the part's, be it higher or lower; what is equal is not written again.
void atualizaCusto(const LinhaItem &linha)
{
    auto peca = DBDados->OpenRecordset(u"SELECT ValorCusto FROM Pecas WHERE Codigo = "_s + linha.codigo);
    if (peca.Eof()) {
        return;
    }
    const Value custo = peca.value(u"ValorCusto");
    if (!IsNull(custo) && CSng(custo) == CSng(linha.valorUnit)) {
        return;
    }
    peca.Edit();
    peca[u"ValorCusto"] = linha.valorUnit;
    peca.Update();
}

/// Whether the part has a ledger and is under stock control.
bool controlaEstoque(const QString &codigo)
{
    const auto linhas = DBDados->OpenRecordset(
        u"SELECT Estoque.*, Pecas.ControlaEstoque FROM Estoque, Pecas WHERE Estoque.CodPeca = "_s + codigo +
        u" AND Pecas.Codigo = "_s + codigo + u" ORDER BY Estoque.Codigo"_s);
    return !linhas.Eof() && Verdadeiro(linhas.value(u"ControlaEstoque"));
}

void lancaEntrada(qint32 numero, const LinhaItem &linha)
{
    if (CLng(linha.codigo) == 0 || !controlaEstoque(linha.codigo)) {
        return;
    }
    // The balance as its row holds it, the quantity as its text: their sum is one of 64 bits.
    LancaNoRazao(razaoEstoque,
                 {.dono = linha.codigo,
                  .descricao = u"ENTRADA NOTA: "_s + Format(numero, mascaraCodigo),
                  .valor = linha.quantidade},
                 {SaldoAnterior::UltimaLinha, Precisao::Double});
}

} // namespace

qint32 IncluiNota(const NotaDeEntrada &nota)
{
    const qint32 numero = gravaNota(nota);
    GravaItens(notaGravada, numero, nota.linhas);
    for (const LinhaItem &linha : nota.linhas) {
        atualizaCusto(linha);
        lancaEntrada(numero, linha);
    }
    return numero;
}

} // namespace stock
