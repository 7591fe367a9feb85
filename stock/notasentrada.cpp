#include "stock/notasentrada.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

namespace stock
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr qint16 verdadeiro = -1;
constexpr qint16 falso = 0;
constexpr int maximoObservacoes = 200; ///< characters of the column
constexpr int umDia = 1;               ///< of `DataSQL`

dao::Recordset abreNota(QStringView colunas, qint32 codigo)
{
    return DBDados->OpenRecordset(u"SELECT "_s + colunas + u" FROM NotasEntradas WHERE Codigo = "_s +
                                  QString::number(codigo));
}

/// False where the note is gone.
bool atualiza(const QString &valores, qint32 codigo)
{
    return DBDados->Execute(u"UPDATE NotasEntradas SET "_s + valores + u" WHERE Codigo = "_s +
                            QString::number(codigo)) > 0;
}

/// Writes into the note of that code; false where it is gone.
template<class Escrita>
bool grava(QStringView colunas, qint32 codigo, const Escrita &escreve)
{
    dao::Recordset nota = abreNota(colunas, codigo);
    if (nota.Eof()) {
        return false;
    }
    nota.Edit();
    escreve(nota);
    nota.Update();
    nota.Close();
    return true;
}

} // namespace

std::optional<bool> NotaPaga(qint32 codigo)
{
    const dao::Recordset nota = abreNota(u"*", codigo);
    return nota.Eof() ? std::nullopt : std::optional(Verdadeiro(nota.value(u"Pago")));
}

bool PagaNota(qint32 codigo, const QString &dia)
{
    return grava(u"*", codigo, [&](dao::Recordset &nota) {
        nota[u"Pago"] = verdadeiro;
        if (IsDate(dia)) {
            nota[u"DataPagto"] = dia;
        }
    });
}

bool DesfazPagamento(qint32 codigo)
{
    return grava(u"*", codigo, [](dao::Recordset &nota) {
        nota[u"Pago"] = falso;
        nota[u"DataPagto"] = Null{};
    });
}

bool MarcaPaga(qint32 codigo, const QString &dia)
{
    const QString data = IsDate(dia) ? u", DataPagto = "_s + DataSQL(dia, umDia) : QString();
    return atualiza(u"Pago = True"_s + data, codigo);
}

bool MarcaNaoPaga(qint32 codigo)
{
    return atualiza(u"Pago = False, DataPagto = Null"_s, codigo);
}

bool MarcaSemData(qint32 codigo, bool paga)
{
    return atualiza(paga ? u"Pago = true"_s : u"Pago = false"_s, codigo);
}

QString DiaDoPagamento(qint32 codigo)
{
    const dao::Recordset nota = abreNota(u"DataPagto", codigo);
    return nota.Eof() ? QString() : Format(nota.value(u"DataPagto"), mascaraData);
}

std::optional<QString> GravaObservacoes(qint32 codigo, const QString &texto)
{
    const QString observacoes = Left(UCase(texto), maximoObservacoes);
    const bool existe =
        grava(u"Observacoes", codigo, [&](dao::Recordset &nota) { nota[u"Observacoes"] = observacoes; });
    return existe ? std::optional(observacoes) : std::nullopt;
}

void ExcluiNota(qint32 codigo)
{
    const QString numero = QString::number(codigo);
    DBDados->Execute(u"DELETE * FROM NotasEntradas WHERE Codigo = "_s + numero);
    DBDados->Execute(u"DELETE * FROM NotasPecas WHERE CodNota = "_s + numero);
}

} // namespace stock
