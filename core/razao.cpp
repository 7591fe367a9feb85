#include "core/razao.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int semContador = -1;

int lugarDoContador(const dao::Recordset &linhas)
{
    for (int lugar = 0; lugar < linhas.fieldCount(); ++lugar) {
        if (linhas.field(lugar).isCounter()) {
            return lugar;
        }
    }
    return semContador;
}

/// A movement's effect on the balance. A row with neither side has none to give: the conversion of Null fails.
float movimento(const runtime::Value &entrada, const runtime::Value &saida)
{
    return runtime::IsNull(entrada) ? -runtime::CSng(saida) : runtime::CSng(entrada);
}

void recalcula(dao::Recordset &linhas, const QString &colunaSaldo)
{
    const int entrada = linhas.fieldPlace(u"Entrada");
    const int saida = linhas.fieldPlace(u"Saida");
    const int coluna = linhas.fieldPlace(colunaSaldo);
    float saldo = 0;
    for (; !linhas.Eof(); linhas.MoveNext()) {
        saldo = SaldoDepois(saldo, movimento(linhas.value(entrada), linhas.value(saida)));
        linhas.Edit();
        linhas[coluna] = saldo;
        linhas.Update();
    }
}

} // namespace

float UltimoSaldo(const QString &consulta, const QString &coluna)
{
    dao::Recordset linhas = DBDados->OpenRecordset(consulta);
    if (linhas.Eof()) {
        return 0;
    }
    linhas.MoveLast();
    return runtime::CSng(linhas.value(coluna));
}

qint32 AcrescentaLinha(const QString &tabela, const std::function<void(dao::Recordset &)> &preenche)
{
    dao::Recordset linhas = DBDados->OpenRecordset(tabela);
    linhas.AddNew();
    preenche(linhas);
    const int contador = lugarDoContador(linhas);
    const qint32 codigo = contador == semContador ? 0 : runtime::CLng(linhas[contador].Value());
    linhas.Update();
    return codigo;
}

float SaldoDepois(float saldo, float movimento)
{
    // The sum of two 32-bit floats is exact enough in 64 bits: rounding it once is the 32-bit sum.
    return runtime::CSng(double{saldo} + double{movimento});
}

void AbreEstoque(const runtime::Value &codPeca, const QString &descricao, const runtime::Value &quantidade)
{
    AcrescentaLinha(u"Estoque"_s, [&](dao::Recordset &linha) {
        linha[u"CodPeca"] = codPeca;
        linha[u"Data"] = runtime::Format(runtime::Today(), mascaraData);
        linha[u"Descricao"] = descricao;
        linha[u"Entrada"] = quantidade;
        linha[u"Estoque"] = quantidade;
    });
}

void RecalculaRazao(const QString &consulta, const QString &colunaSaldo)
{
    const dao::Unit lote;
    dao::Recordset linhas = DBDados->OpenRecordset(consulta);
    if (!linhas.Eof()) {
        recalcula(linhas, colunaSaldo);
    }
}

} // namespace core
