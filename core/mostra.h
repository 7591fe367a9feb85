#pragma once

#include <QString>

namespace dao
{
class Recordset;
}

/// How columns of a row become texts of the screen: in fields, lists and pages alike.
namespace core
{

/// What a column of the current row shows as, by its place in the row.
using Mostra = QString (*)(const dao::Recordset &linha, int lugar);

QString comoEsta(const dao::Recordset &linha, int lugar);          ///< as stored, "" for Null
QString comoCodigo(const dao::Recordset &linha, int lugar);        ///< "0000"
QString comoData(const dao::Recordset &linha, int lugar);          ///< "dd/mm/yyyy"
QString comoDataHora(const dao::Recordset &linha, int lugar);      ///< "dd/mm/yyyy hh:mm:ss"
QString comoValor(const dao::Recordset &linha, int lugar);         ///< "###,##0.00"
QString comoValorOuBranco(const dao::Recordset &linha, int lugar); ///< the same, one blank for Null
QString comoSimNao(const dao::Recordset &linha, int lugar);        ///< "Sim" or "Não"
QString comoQuantidade(const dao::Recordset &linha, int lugar);    ///< by the row's own `UM`, "" for Null
QString comoUnidade(const dao::Recordset &linha, int lugar);       ///< the name of a unit's code

} // namespace core
