#include "documents/documentogravado.h"

#include "core/modulo.h"
#include "documents/itensgravados.h"
#include "platform/dao/database.h"

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

dao::Recordset abre(const DocumentoGravado &documento, qint32 numero)
{
    return DBDados->OpenRecordset(u"SELECT Valor FROM %1 WHERE Codigo = %2"_s.arg(documento.tabela).arg(numero));
}

void gravaValor(dao::Recordset &documento, const QString &total)
{
    documento.Edit();
    documento[u"Valor"] = total;
    documento.Update();
}

} // namespace

void GravaItens(const DocumentoGravado &documento, qint32 numero, const std::vector<LinhaItem> &linhas)
{
    auto itens = DBDados->OpenRecordset(documento.itens.toString());
    for (const LinhaItem &linha : linhas) {
        GravaItem(itens, documento.coluna, numero, linha);
    }
}

bool ExisteDocumento(const DocumentoGravado &documento, qint32 numero)
{
    return !abre(documento, numero).Eof();
}

std::optional<QString> AcrescentaItem(const DocumentoGravado &documento, qint32 numero, const LinhaItem &linha,
                                      const QString &total)
{
    auto gravado = abre(documento, numero);
    if (gravado.Eof()) {
        return std::nullopt;
    }
    auto itens = DBDados->OpenRecordset(documento.itens.toString());
    QString chave = GravaItem(itens, documento.coluna, numero, linha);
    gravaValor(gravado, total);
    return chave;
}

bool RemoveItem(const DocumentoGravado &documento, qint32 numero, const QString &chave, const QString &total)
{
    DBDados->Execute(u"DELETE * FROM %1 WHERE Codigo = %2"_s.arg(documento.itens, chave));
    auto gravado = abre(documento, numero);
    if (gravado.Eof()) {
        return false;
    }
    gravaValor(gravado, total);
    return true;
}

Mudanca AlteraItem(const DocumentoGravado &documento, qint32 numero, const QString &chave, const LinhaItem &linha,
                   const QString &total)
{
    auto item = DBDados->OpenRecordset(u"SELECT * FROM %1 WHERE Codigo = %2"_s.arg(documento.itens, chave));
    if (item.Eof()) {
        return Mudanca::SemItem;
    }
    auto gravado = abre(documento, numero);
    if (gravado.Eof()) {
        return Mudanca::SemDocumento;
    }
    item.Edit();
    GravaColunas(item, linha);
    item.Update();
    gravaValor(gravado, total);
    return Mudanca::Gravada;
}

void ExcluiDocumento(const DocumentoGravado &documento, qint32 numero)
{
    DBDados->Execute(u"DELETE * FROM %1 WHERE Codigo = %2"_s.arg(documento.tabela).arg(numero));
    DBDados->Execute(u"DELETE * FROM %1 WHERE %2 = %3"_s.arg(documento.itens, documento.coluna).arg(numero));
}

} // namespace documents
