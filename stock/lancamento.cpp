#include "stock/lancamento.h"

#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"

namespace stock
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

const QString porCodigo = u" ORDER BY Codigo"_s;
const QString venda = u"VENDA O.S. "_s;
constexpr int tamanhoCodigoOS = 4;

bool semLinhas(const QString &codPeca)
{
    return DBDados->OpenRecordset(u"SELECT * FROM Estoque WHERE CodPeca = "_s + codPeca + porCodigo).Eof();
}

dao::Recordset linhasEntre(const QString &codPeca, const QString &periodo)
{
    return DBDados->OpenRecordset(u"SELECT * FROM Estoque WHERE CodPeca = "_s + codPeca + u" AND Data BetWEEN "_s +
                                  periodo + porCodigo);
}

} // namespace

void ExcluiUltimo(const QString &codPeca)
{
    auto linhas = DBDados->OpenRecordset(u"SELECT * FROM Estoque WHERE CodPeca= "_s + codPeca + porCodigo);
    if (!linhas.Eof()) {
        linhas.MoveLast();
        linhas.Delete();
    }
}

dao::Recordset LinhasDoPeriodo(const QString &codPeca, const QString &periodo)
{
    auto linhas = linhasEntre(codPeca, periodo);
    if (linhas.Eof() && semLinhas(codPeca)) {
        AbreEstoque(codPeca, u"INÍCIO"_s, 0.0F);
        linhas = linhasEntre(codPeca, periodo);
    }
    return linhas;
}

QString OrdemDaVenda(const QString &descricao)
{
    return descricao.startsWith(venda) ? Right(descricao, tamanhoCodigoOS) : QString();
}

} // namespace stock
