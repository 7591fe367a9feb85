#include "estimates/orcamentoimpresso.h"

#include "documents/documento.h"
#include "estimates/condicoes.h"

namespace estimates
{

using namespace Qt::StringLiterals;
using namespace core;
using namespace documents;

namespace
{

constexpr int comFolhas = 2;
constexpr int emSecoes = 3;

QString titulo(const Orcamento &orcamento)
{
    return orcamento.codigo.isEmpty() ? u"ORÇAMENTO"_s : u"ORÇAMENTO Nº "_s + orcamento.codigo;
}

Cabecalho cabecalho(const Orcamento &orcamento)
{
    return {
        UmCampo(u"DATA................: "_s, orcamento.data),
        UmCampo(u"CÓDIGO DO CLIENTE...: "_s, orcamento.codCliente),
        UmCampo(u"NOME DO CLIENTE.....: "_s, orcamento.nome),
        UmCampo(u"TELEFONE............: "_s, orcamento.fone),
        UmCampo(u"VEÍCULO MARCA/MODELO: "_s, orcamento.marca),
        UmCampo(u"ANO.................: "_s, orcamento.ano),
    };
}

/// A value that was never written counts as 0.
QString valor(const Orcamento &orcamento)
{
    return orcamento.valor.isEmpty() ? u"0,00"_s : orcamento.valor;
}

} // namespace

void ImprimeOrcamento(int layout, const Orcamento &orcamento, printer::Surface &saida)
{
    const Documento documento{
        .titulo = titulo(orcamento),
        .cabecalho = cabecalho(orcamento),
        .secoes = {{.linhas = orcamento.itens, .rotuloTotal = u" VALOR TOTAL.....:"_s, .total = orcamento.valor}},
        .blocos = {BlocoDaObservacao(orcamento.observacoes), CondicoesDePagamento(valor(orcamento))}};
    ImprimeDocumento(layout == emSecoes ? comFolhas : layout, documento, saida);
}

} // namespace estimates
