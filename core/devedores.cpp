#include "core/devedores.h"

#include "core/andamento.h"
#include "core/banco.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"

#include <optional>

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

/// A row of an account.
struct Conta {
    qint32 codCliente = 0;
    float saldo = 0;
    runtime::Value data = {};
};

float saldoDe(const runtime::Value &valor)
{
    return runtime::IsNull(valor) ? 0 : runtime::CSng(valor);
}

QString nomeDoCliente(qint32 codigo)
{
    dao::Recordset cliente =
        DBDados->OpenRecordset(u"SELECT Nome FROM Clientes WHERE Codigo = "_s + QString::number(codigo));
    return cliente.Eof() ? u"REGISTRO NÃO LOCALIZADO"_s : NuloParaVazio(cliente.value(0));
}

} // namespace

QString Devedor::data() const
{
    return dia.isEmpty() ? dia : dia.mid(6) + u'/' + dia.mid(4, 2) + u'/' + dia.left(4);
}

dao::Recordset ContasDosClientes()
{
    return DBDados->OpenRecordset(u"SELECT * FROM ContaFiado ORDER BY CodCliente, Codigo"_s);
}

/// The names are looked up on the way, as a statement of its own each behind it would lock the file anew.
std::vector<Devedor> LeDevedores(dao::Recordset contas, Andamento &obra)
{
    std::vector<Devedor> achados;
    std::optional<Conta> conta;
    const auto termina = [&] {
        if (conta && conta->saldo != 0) {
            achados.push_back({conta->codCliente, nomeDoCliente(conta->codCliente), conta->saldo,
                               runtime::Format(conta->data, u"yyyymmdd")});
        }
    };
    const int codCliente = contas.fieldPlace(u"CodCliente");
    const int saldo = contas.fieldPlace(u"Saldo");
    const int data = contas.fieldPlace(u"Data");
    for (; !contas.Eof() && !obra.deixado(); contas.MoveNext()) {
        const runtime::Value codigo = contas.value(codCliente);
        const qint32 dono = runtime::IsNull(codigo) ? 0 : runtime::CLng(codigo);
        if (conta && conta->codCliente != dono) {
            termina();
        }
        conta = Conta{dono, saldoDe(contas.value(saldo)), contas.value(data)};
        obra.avanca();
    }
    if (!obra.deixado()) {
        termina();
    }
    return achados;
}

} // namespace core
