#include "core/banco.h"

#include "core/modulo.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;

namespace core
{

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

QString primeiroCampo(const QString &consulta)
{
    if (!DBDados) {
        return {};
    }
    const dao::Recordset linhas = DBDados->OpenRecordset(consulta);
    return linhas.Eof() ? QString() : NuloParaVazio(linhas.value(0));
}

} // namespace

QString LocalizaCampo(const QString &campo, const QString &tabela, const QString &condicao)
{
    try {
        return primeiroCampo(u"SELECT "_s + campo + u" FROM "_s + tabela + u" WHERE "_s + condicao);
    } catch (const runtime::RuntimeError &) {
        // A look-up that fails is a look-up without an answer: the callers test for "" alone.
        return {};
    }
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

runtime::Value ValorOuNulo(const QString &texto)
{
    if (texto.isEmpty()) {
        return runtime::Null{};
    }
    return texto;
}

QString NuloParaVazio(const runtime::Value &valor)
{
    if (runtime::IsNull(valor) || runtime::IsEmpty(valor)) {
        return {};
    }
    return runtime::CStr(valor);
}

bool Verdadeiro(const runtime::Value &valor)
{
    return !runtime::IsNull(valor) && runtime::CBool(valor);
}

bool Administrador(const QString &operador)
{
    return LocalizaCampo(u"Admin"_s, u"Senha"_s, u"Codigo = "_s + operador) == u"True";
}

bool Administrador()
{
    return Administrador(QString::number(CodOperador));
}

} // namespace core
