#include "shell/operadores.h"

#include "core/banco.h"
#include "core/embaralha.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;
using core::LocalizaCampo;
using core::ValorOuNulo;

namespace shell
{
namespace
{

constexpr int objetoNaoDefinido = 91;

dao::Database &banco()
{
    if (!core::DBDados) {
        runtime::raise(objetoNaoDefinido);
    }
    return *core::DBDados;
}

Operador daLinha(const dao::Recordset &linha)
{
    return {.codigo = {},
            .nome = core::NuloParaVazio(linha.value(u"Nome")),
            .senha = senhaDe(linha),
            .admin = core::Verdadeiro(linha.value(u"Admin"))};
}

void gravaDados(dao::Recordset &linha, const Operador &operador)
{
    linha[u"Codigo"] = operador.codigo;
    linha[u"Nome"] = ValorOuNulo(operador.nome);
    linha[u"Senha"] = ValorOuNulo(core::Embaralha(operador.senha));
}

QString doCodigo(const QString &codigo)
{
    return u"Codigo = "_s + codigo;
}

} // namespace

bool haOperadores()
{
    return !banco().OpenRecordset(u"Senha"_s).Eof();
}

std::optional<Operador> leOperador(const QString &codigo)
{
    const dao::Recordset linha =
        banco().OpenRecordset(u"Select Nome, Senha, Admin FROM Senha WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return std::nullopt;
    }
    Operador operador = daLinha(linha);
    operador.codigo = codigo;
    return operador;
}

dao::Recordset operadores()
{
    return banco().OpenRecordset(u"SELECT * FROM Senha ORDER BY Codigo"_s);
}

QString senhaDe(const dao::Recordset &linha)
{
    return core::Desembaralha(core::NuloParaVazio(linha.value(u"Senha")));
}

QString nomeDoOperador(const QString &codigo)
{
    return LocalizaCampo(u"Nome"_s, u"Senha"_s, doCodigo(codigo));
}

bool unicoAdministrador(const QString &codigo)
{
    return core::Administrador(codigo) && LocalizaCampo(u"count(codigo)"_s, u"Senha"_s, u"Admin = true"_s) == u"1";
}

void incluiOperador(const Operador &novo)
{
    dao::Recordset tabela = banco().OpenRecordset(u"Senha"_s);
    tabela.AddNew();
    gravaDados(tabela, novo);
    tabela[u"Admin"] = novo.admin;
    tabela.Update();
}

bool alteraOperador(const Operador &operador)
{
    dao::Recordset linha = banco().OpenRecordset(u"SELECT * FROM Senha WHERE Codigo = "_s + operador.codigo);
    if (linha.Eof()) {
        return false;
    }
    linha.Edit();
    gravaDados(linha, operador);
    linha.Update();
    linha.Close();
    return true;
}

void excluiOperador(const QString &codigo)
{
    banco().Execute(u"DELETE * FROM Senha WHERE Codigo = "_s + codigo);
}

} // namespace shell
