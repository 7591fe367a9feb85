#include "workorders/nota.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "documents/itensgravados.h"
#include "platform/runtime/runtime.h"

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

const QString secaoDaNota = u"CONFIG"_s;

QString chaveDoNumero(TipoNota tipo)
{
    return tipo == TipoNota::Pecas ? u"NotaPeca"_s : u"NotaServico"_s;
}

/// A line without a part, or whose part is gone, counts in units and has no tax columns.
ItemDaNota itemDe(const LinhaItem &linha)
{
    ItemDaNota item{.codigo = linha.codigo,
                    .descricao = linha.descricao,
                    .unidade = NomeDaUnidade(0),
                    .quantidade = linha.quantidade,
                    .valorUnit = linha.valorUnit,
                    .valorTotal = linha.valorTotal};
    const auto peca =
        DBDados->OpenRecordset(u"SELECT UM, Codigo, ICMS, ClassFiscal FROM Pecas WHERE Codigo = "_s + linha.codigo);
    if (!peca.Eof()) {
        const Value um = peca.value(u"UM");
        item.unidade = NomeDaUnidade(IsNull(um) ? 0 : CInt(um));
        item.classFiscal = NuloParaVazio(peca.value(u"ClassFiscal"));
        item.icms = NuloParaVazio(peca.value(u"ICMS"));
    }
    return item;
}

} // namespace

std::optional<OrdemDaNota> ProcuraOrdemDaNota(qint32 numero)
{
    const auto ordem = DBDados->OpenRecordset(
        u"SELECT Codigo, CodCliente, CodVeiculo FROM OrdemServico WHERE Codigo = "_s + QString::number(numero));
    if (ordem.Eof()) {
        return std::nullopt;
    }
    return OrdemDaNota{
        .codigo = Format(ordem.value(u"Codigo"), mascaraCodigo),
        .codCliente = NuloParaVazio(ordem.value(u"CodCliente")),
        .placa = LocalizaCampo(u"Placas"_s, u"Veiculos"_s, u"Codigo = "_s + NuloParaVazio(ordem.value(u"CodVeiculo")))};
}

std::optional<ClienteDaNota> ProcuraClienteDaNota(const QString &codigo)
{
    if (codigo.isEmpty()) {
        return std::nullopt;
    }
    const auto cliente = DBDados->OpenRecordset(
        u"SELECT Nome, CPF, Endereco, Numero, Bairro, CEP, Cidade, Fone1, Estado, RG FROM Clientes WHERE Codigo = "_s +
        codigo);
    if (cliente.Eof()) {
        return std::nullopt;
    }
    const auto texto = [&](QStringView campo) { return NuloParaVazio(cliente.value(campo)); };
    const QString cpf = NuloParaVazio(FormataDocumento(texto(u"CPF"), false));
    return ClienteDaNota{.codigo = Format(codigo, mascaraCodigo),
                         .nome = texto(u"Nome"),
                         .cpf = cpf.isEmpty() ? texto(u"CPF") : cpf,
                         .rg = texto(u"RG"),
                         .endereco = texto(u"Endereco"),
                         .numero = texto(u"Numero"),
                         .bairro = texto(u"Bairro"),
                         .cep = texto(u"CEP"),
                         .cidade = texto(u"Cidade"),
                         .estado = texto(u"Estado"),
                         .fone1 = texto(u"Fone1")};
}

ItensDaNota LeItensDaNota(qint32 numero)
{
    ItensDaNota itens;
    for (const ItemGravado &item :
         LeItens(u"SELECT OSPecas.* FROM OSPecas WHERE OSPecas.CodOS = "_s + QString::number(numero))) {
        if (item.psa == u"P" || item.psa == u"A") {
            itens.pecas.push_back(itemDe(item.linha));
        } else if (item.psa == u"S" || item.psa == u"Z") {
            itens.servicos.push_back(itemDe(item.linha));
        }
    }
    return itens;
}

/// The default of a new installation is scrambled and counts as 0.
QString ProximaNota(TipoNota tipo)
{
    return Format(Val(LeINI(secaoDaNota, chaveDoNumero(tipo), false)) + 1, u"000000");
}

void AvancaNota(TipoNota tipo)
{
    GravaINI(secaoDaNota, chaveDoNumero(tipo), ProximaNota(tipo), false);
}

} // namespace workorders
