#include "workorders/ordemimpressa.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "documents/documento.h"
#include "platform/runtime/format.h"
#include "workorders/textopagto.h"

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace core;
using namespace documents;

namespace
{

constexpr int emTexto = 1;
constexpr int emSecoes = 3;

QString numero(const QString &codigo)
{
    return runtime::Format(codigo, mascaraCodigo);
}

QString dataHora(const QString &texto)
{
    return runtime::Format(texto, mascaraDataHora);
}

/// Phones come from the customer's row.
QString doCliente(const QString &coluna, const OrdemMostrada &ordem)
{
    return LocalizaCampo(coluna, u"Clientes"_s, u"Codigo = "_s + ordem.codCliente);
}

/// Customer, vehicle, dates and mileage. `completo` adds the chassis, where there is one, and the mechanic.
Cabecalho cabecalho(const OrdemMostrada &ordem, bool completo)
{
    Cabecalho linhas{
        DoisCampos(u"DATA ENTRADA........: "_s, dataHora(ordem.dataIn), u" DATA SAÍDA...: "_s, dataHora(ordem.dataOut)),
        UmCampo(u"CÓD. / NOME CLIENTE.: "_s, numero(ordem.codCliente) + u" - "_s + ordem.nome),
        DoisCampos(u"FONE 1..............: "_s, doCliente(u"Fone1"_s, ordem), u" CELULAR......: "_s,
                   doCliente(u"Celular"_s, ordem)),
        UmCampo(u"VEÍCULO MARCA/MODELO: "_s, ordem.marca),
        DoisCampos(u"ANO.................: "_s, ordem.ano, u" PLACAS.......: "_s, ordem.placas),
    };
    if (completo && !ordem.chassi.isEmpty()) {
        linhas << UmCampo(u"CHASSI..............: "_s, ordem.chassi);
    }
    linhas << UmCampo(u"QUILOMETRAGEM.......: "_s, ordem.km);
    if (completo) {
        linhas << UmCampo(u"MECÂNICO RESP.......: "_s, ordem.mecanico);
    }
    return linhas;
}

std::vector<Secao> secoes(const OrdemMostrada &ordem, int layout)
{
    if (layout != emSecoes) {
        return {{.linhas = ordem.pecas, .rotuloTotal = u" VALOR TOTAL.....:"_s, .total = ordem.total}};
    }
    return {{.titulo = u"RELAÇÃO DE PEÇAS:"_s,
             .linhas = ordem.pecas,
             .rotuloTotal = u" VALOR TOTAL PEÇAS....:"_s,
             .total = ordem.totalPecas},
            {.titulo = u"RELAÇÃO DE SERVIÇOS:"_s,
             .linhas = ordem.servicos,
             .rotuloTexto = u"Descrição dos Serviços Executados:"_s,
             .texto = ordem.servicosExecutados,
             .rotuloTotal = u" VALOR TOTAL SERVIÇOS.:"_s,
             .total = ordem.totalServicos},
            {.titulo = u"SERVIÇOS TERCERIZADOS:"_s,
             .linhas = ordem.tercerizados,
             .rotuloTotal = u" VALOR TOTAL TERCERIZADOS.:"_s,
             .total = ordem.totalTercerizados}};
}

/// The payment text stands in the first layout whatever the settings say, in the others where they want it.
QList<Bloco> blocos(const OrdemMostrada &ordem, int layout, const PagamentoOS *pagamento)
{
    QList<Bloco> blocos;
    if (layout == emTexto) {
        blocos << BlocoDaObservacao(ordem.observacao);
    }
    if (pagamento != nullptr && (layout == emTexto || Config(u"PrintFormaPagto"_s) == u"S"_s)) {
        blocos << BlocoDe(QStringList{QString()} + TextoPagamento(*pagamento));
    }
    return blocos;
}

/// One workshop prints on paper that carries its address already; the query leaves it out for them.
bool papelComEndereco(const PagamentoOS *pagamento)
{
    return pagamento == nullptr && Config(u"Personalizacao"_s) == u"2-2"_s;
}

} // namespace

void ImprimeOrdem(int layout, const OrdemMostrada &ordem, printer::Surface &saida, const PagamentoOS *pagamento)
{
    Documento documento{.titulo = u"ORDEM DE SERVIÇO Nº "_s + numero(ordem.codigo),
                        .cabecalho = cabecalho(ordem, layout == emSecoes),
                        .secoes = secoes(ordem, layout),
                        .totalGeral = u"TOTAL O.S....: "_s + runtime::Format(ordem.total, mascaraValor),
                        .blocos = blocos(ordem, layout, pagamento),
                        .comRodape = !papelComEndereco(pagamento)};
    if (layout != emTexto) {
        documento.cabecalho += CabecalhoDaObservacao(ordem.observacao);
    }
    ImprimeDocumento(layout, documento, saida);
}

} // namespace workorders
