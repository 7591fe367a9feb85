#include "workorders/textopagto.h"

#include "core/funcoes.h"
#include "core/papel.h"
#include "platform/runtime/format.h"

#include <QMap>

namespace workorders
{

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

QString valor(const QString &texto)
{
    return runtime::Format(texto, mascaraValor);
}

QString data(const QString &texto)
{
    return runtime::Format(texto, mascaraData);
}

QStringList banco(const PagamentoOS &pagamento)
{
    return {u"BANCO......: "_s + pagamento.banco, u"Nº CONTA...: "_s + pagamento.conta};
}

QStringList aVista(const PagamentoOS &pagamento)
{
    return {CentraTexto(u"Pagamento à vista no valor de R$ "_s + valor(pagamento.valor) + u"."_s, colunasTamanho10)};
}

QStringList chequePre(const PagamentoOS &pagamento)
{
    return QStringList{u"Pagamento com cheque pré: "_s} + banco(pagamento) +
           QStringList{u"Nº CHEQUE..: "_s + pagamento.numeroCheque, u"VALOR......: "_s + valor(pagamento.valorCheque),
                       u"VENCIMENTO.: "_s + data(pagamento.vencimento)};
}

QStringList parcelas(const PagamentoOS &pagamento)
{
    QStringList linhas{u" PARCELA - VENCIMENTO - VALOR "_s};
    for (const ParcelaOS &parcela : pagamento.parcelas) {
        linhas << u' ' + AlinhaEsquerda(parcela.parcela, 7) + u"   "_s + AlinhaEsquerda(parcela.vencimento, 10) +
                      u"   "_s + AlinhaDireita(parcela.valor, 10);
    }
    return linhas;
}

QStringList carne(const PagamentoOS &pagamento)
{
    return QStringList{u"Pagamento parcelado com Carnê: "_s} + parcelas(pagamento);
}

QStringList cheques(const PagamentoOS &pagamento)
{
    return QStringList{u"Pagamento parcelado com Cheques: "_s} + banco(pagamento) + parcelas(pagamento);
}

QStringList fiado(const PagamentoOS &pagamento)
{
    return {u"Outras formas de pagamento: "_s, u"VENCIMENTO.: "_s + data(pagamento.vencimento)};
}

QStringList personalizado(const PagamentoOS &pagamento)
{
    QStringList linhas = QStringList{u"Pagamento Personalizado: "_s} + banco(pagamento);
    linhas << u"PARCELA - VENCIMENTO - VALOR      - DOCUMENTO           "_s;
    for (const ParcelaOS &parcela : pagamento.parcelas) {
        linhas << AlinhaEsquerda(parcela.parcela, 7) + u"   "_s + AlinhaEsquerda(parcela.vencimento, 10) + u"   "_s +
                      AlinhaDireita(parcela.valor, 10) + u"   "_s + AlinhaEsquerda(parcela.documento, 20);
    }
    return linhas;
}

using Texto = QStringList (*)(const PagamentoOS &);

const QMap<FormaPagamento, Texto> textos{
    {FormaPagamento::AVista, aVista}, {FormaPagamento::ChequePre, chequePre},
    {FormaPagamento::Carne, carne},   {FormaPagamento::Cheques, cheques},
    {FormaPagamento::Fiado, fiado},   {FormaPagamento::Personalizado, personalizado},
};

} // namespace

QStringList TextoPagamento(const PagamentoOS &pagamento)
{
    const QStringList titulo{CentraTexto(u"FORMA DE PAGAMENTO"_s, colunasTamanho10)};
    return titulo + textos.value(pagamento.forma)(pagamento);
}

} // namespace workorders
