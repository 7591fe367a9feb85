#include "workorders/alteracao.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

CabecalhoAlterado cabecalhoDe(const dao::Recordset &ordem)
{
    const auto texto = [&ordem](QStringView campo) { return NuloParaVazio(ordem.value(campo)); };
    return {.textos = {.km = texto(u"KM"),
                       .observacao = texto(u"Observacao"),
                       .servicos = texto(u"Descricao"),
                       .mecanico = texto(u"Mecanico")},
            .pago = Verdadeiro(ordem.value(u"Pago")),
            .emAberto = Verdadeiro(ordem.value(u"EmAberto")),
            .dataPagto = Format(ordem.value(u"DataPagto"), mascaraData),
            .formaPagto = texto(u"FormaPagto")};
}

} // namespace

std::optional<OrdemLida> LeOrdem(qint32 numero)
{
    auto ordem = DBDados->OpenRecordset(
        u"SELECT Veiculos.Codigo, Veiculos.MarcaModelo, Veiculos.Ano, Veiculos.Placas, Veiculos.Combustivel, "
        "Veiculos.Cor, OrdemServico.KM, OrdemServico.Observacao, Clientes.Codigo, Clientes.Nome, Clientes.Fone1, "
        "Clientes.Celular, OrdemServico.Valor, OrdemServico.DataPagto, OrdemServico.FormaPagto, OrdemServico.Pago, "
        "OrdemServico.EmAberto, OrdemServico.Descricao, OrdemServico.Mecanico "
        "FROM Veiculos, OrdemServico, Clientes WHERE Veiculos.Codigo = OrdemServico.CodVeiculo AND "
        "Clientes.Codigo = OrdemServico.CodCliente AND OrdemServico.Codigo = "_s +
        QString::number(numero));
    if (ordem.Eof()) {
        return std::nullopt;
    }
    const Value valor = ordem[u"Valor"].Value();
    return OrdemLida{.veiculo = VeiculoDe(ordem),
                     .cabecalho = cabecalhoDe(ordem),
                     .valor = Format(IsNull(valor) ? Value(0.0F) : valor, mascaraValor)};
}

bool AlteraOrdem(qint32 numero, const CabecalhoAlterado &cabecalho)
{
    auto ordem = DBDados->OpenRecordset(u"SELECT * FROM OrdemServico WHERE Codigo = "_s + QString::number(numero));
    if (ordem.Eof()) {
        return false;
    }
    ordem.Edit();
    ordem[u"KM"] = ValorOuNulo(cabecalho.textos.km);
    ordem[u"Observacao"] = ValorOuNulo(cabecalho.textos.observacao);
    ordem[u"Pago"] = cabecalho.pago;
    ordem[u"EmAberto"] = cabecalho.emAberto;
    ordem[u"DataPagto"] = ValorOuNulo(cabecalho.dataPagto);
    ordem[u"FormaPagto"] = ValorOuNulo(cabecalho.formaPagto);
    ordem[u"Descricao"] = ValorOuNulo(cabecalho.textos.servicos);
    ordem[u"Mecanico"] = ValorOuNulo(cabecalho.textos.mecanico);
    ordem.Update();
    return true;
}

ClienteOS LeCliente(qint32 codigo)
{
    auto cliente = DBDados->OpenRecordset(u"SELECT Nome, Fone1, Celular FROM Clientes WHERE Codigo = "_s +
                                          QString::number(codigo));
    if (cliente.Eof()) {
        return {};
    }
    return {.codigo = QString::number(codigo),
            .nome = NuloParaVazio(cliente[u"Nome"].Value()),
            .fone1 = NuloParaVazio(cliente[u"Fone1"].Value()),
            .celular = NuloParaVazio(cliente[u"Celular"].Value())};
}

bool MudaCliente(qint32 numero, qint32 codCliente)
{
    auto ordem =
        DBDados->OpenRecordset(u"SELECT CodCliente FROM OrdemServico WHERE Codigo = "_s + QString::number(numero));
    if (ordem.Eof()) {
        return false;
    }
    ordem.Edit();
    ordem[u"CodCliente"] = codCliente;
    ordem.Update();
    return true;
}

} // namespace workorders
