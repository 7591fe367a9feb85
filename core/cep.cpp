#include "core/cep.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr int tamanhoComMascara = 10;

std::optional<EnderecoCEP> enderecoDe(const QString &codigo)
{
    if (!DBCEP) {
        return std::nullopt;
    }
    const dao::Recordset linhas =
        DBCEP->OpenRecordset(u"SELECT Tipo, Rua, Bairro, Cidade, Estado FROM CEPS WHERE CEP = '"_s + codigo + u"'"_s);
    if (linhas.Eof()) {
        return std::nullopt;
    }
    const auto texto = [&](QStringView campo) { return NuloParaVazio(linhas.value(campo)); };
    return EnderecoCEP{texto(u"Tipo") + u' ' + texto(u"Rua"), texto(u"Bairro"), texto(u"Cidade"), texto(u"Estado")};
}

} // namespace

BuscaCEP ProcuraCEP(const QString &texto)
{
    if (texto.size() != tamanhoComMascara || Config(u"CEP"_s) == u"Off") {
        return {};
    }
    const QString codigo = texto.mid(0, 2) + texto.mid(3, 3) + texto.mid(7, 3);
    try {
        return {true, enderecoDe(codigo)};
    } catch (const runtime::RuntimeError &) {
        return {true, std::nullopt}; // a database that fails has no address either
    }
}

} // namespace core
