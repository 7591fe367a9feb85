#include "workorders/abertura.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/modulo.h"
#include "documents/documentogravado.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

qint32 gravaOrdem(const NovaOrdem &ordem)
{
    auto os = DBDados->OpenRecordset(u"OrdemServico"_s);
    os.AddNew();
    const qint32 numero = CLng(os[u"Codigo"].Value());
    os[u"CodCliente"] = ordem.codCliente;
    os[u"CodVeiculo"] = ordem.codVeiculo;
    os[u"DataIn"] = Now();
    os[u"KM"] = ValorOuNulo(ordem.km);
    os[u"Observacao"] = ValorOuNulo(ordem.observacao);
    os[u"Valor"] = ordem.valor;
    os[u"EmAberto"] = true;
    os[u"Pago"] = false;
    os[u"Descricao"] = ValorOuNulo(ordem.servicos);
    os[u"Mecanico"] = ValorOuNulo(ordem.mecanico);
    os.Update();
    os.Close();
    return numero;
}

std::optional<VeiculoOS> abreVeiculo(const QString &condicao)
{
    auto veiculo = DBDados->OpenRecordset(u"SELECT Veiculos.*, Clientes.Codigo, Clientes.Nome, Clientes.Fone1, "
                                          "Clientes.Celular FROM Veiculos, Clientes WHERE "
                                          "clientes.codigo=Veiculos.CodCliente AND "_s +
                                          condicao);
    if (veiculo.Eof()) {
        return std::nullopt;
    }
    return VeiculoDe(veiculo);
}

/// A chassis number may read as a number that is no code, as "344D12345" does; no statement would take it.
std::optional<VeiculoOS> veiculoDoCodigo(const QString &texto)
{
    const auto codigo = CodigoDoTexto(texto);
    return codigo ? abreVeiculo(u"veiculos.codigo = "_s + QString::number(*codigo)) : std::nullopt;
}

} // namespace

qint32 AbreOrdem(const NovaOrdem &ordem)
{
    const qint32 numero = gravaOrdem(ordem);
    GravaItens(ordemGravada, numero, ordem.itens);
    return numero;
}

VeiculoOS VeiculoDe(const dao::Recordset &linha)
{
    const auto texto = [&linha](QStringView campo) { return NuloParaVazio(linha.value(campo)); };
    return {.codigo = Format(linha.value(u"Veiculos.Codigo"), mascaraCodigo),
            .marca = texto(u"MarcaModelo"),
            .placas = texto(u"Placas"),
            .combustivel = texto(u"Combustivel"),
            .cor = texto(u"Cor"),
            .ano = texto(u"Ano"),
            .codCliente = texto(u"Clientes.Codigo"),
            .nome = texto(u"Nome"),
            .fone1 = texto(u"Fone1"),
            .celular = texto(u"Celular")};
}

std::optional<VeiculoOS> ProcuraVeiculo(const QString &texto)
{
    auto achado = IsNumeric(texto) ? veiculoDoCodigo(texto) : abreVeiculo(u"veiculos.placas = '"_s + texto + u"'"_s);
    return achado ? achado : abreVeiculo(u"veiculos.chassi = '"_s + texto + u"'"_s);
}

} // namespace workorders
