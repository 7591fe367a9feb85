#include "documents/entradaitem.h"

#include "documents/pecas.h"

#include "core/combos.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"

#include <QComboBox>
#include <QLineEdit>

namespace documents
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype maiorDescricao = 200;

QString formatada(const QString &quantidade, const QString &unidade)
{
    if (!IsNumeric(quantidade)) {
        return quantidade;
    }
    if (!unidade.isEmpty()) {
        return FormataQuantidade(CDbl(quantidade), CInt(unidade));
    }
    return quantidade.contains(u',') ? FormataQuantidade(CDbl(quantidade), 0) : Format(quantidade, u"00");
}

/// The answer, put through `aceita`; the present value where that gives nothing.
template<class Aceita>
void pede(const QString &pergunta, QString &valor, Aceita aceita)
{
    const QString resposta = aceita(ui::InputBox(pergunta, ui::boxTitle(), valor));
    if (!resposta.isEmpty()) {
        valor = resposta;
    }
}

QString seNumero(const QString &resposta)
{
    return IsNumeric(resposta) ? resposta : QString();
}

QString seTipo(const QString &resposta)
{
    const QString tipo = UCase(resposta);
    return tipo == u"P" || tipo == u"S" || tipo == u"A" ? tipo : QString();
}

/// Format of a number text by `mascara`, nothing for what is no number.
auto numeroComo(QStringView mascara)
{
    return [mascara](const QString &resposta) { return IsNumeric(resposta) ? Format(resposta, mascara) : QString(); };
}

} // namespace

void EntradaItem::procuraPeca()
{
    const QString texto = campos_.codigo->text();
    if (texto.isEmpty()) {
        return;
    }
    const auto peca = ProcuraPeca(texto);
    if (!peca) {
        Recusa(u"Código não Localizado"_s, campos_.codigo);
        return;
    }
    escreveDescricao(peca->nome);
    campos_.valor->setText(peca->valorVenda);
    campos_.codigo->setText(peca->codigo);
    ui::setTagOf(campos_.codigo, peca->ps);
    ui::setTagOf(campos_.quantidade, peca->um);
    campos_.quantidade->setFocus();
}

void EntradaItem::ofereceUm() const
{
    if (campos_.quantidade->text().isEmpty()) {
        campos_.quantidade->setText(u"1"_s);
        SelecionaTexto(campos_.quantidade);
    }
}

void EntradaItem::formataQuantidade() const
{
    const QString texto = campos_.quantidade->text();
    if (!texto.isEmpty()) {
        campos_.quantidade->setText(formatada(texto, ui::tagOf(campos_.quantidade)));
    }
}

void EntradaItem::formataValor() const
{
    MascaraTexto(campos_.valor, TipoMascara::Valor);
}

void EntradaItem::completaDescricao() const
{
    if (!preenchendo_) {
        AutoCompletaCombo(campos_.descricao);
    }
}

bool EntradaItem::confere() const
{
    if (!ValidaCampo(campos_.quantidade, u"Quantidade Inválida"_s, TipoCampo::Numerico) ||
        !ValidaCampo(campos_.valor, u"Valor Unitário Inválido"_s, TipoCampo::Numerico)) {
        return false;
    }
    const QString descricao = campos_.descricao->currentText();
    if (descricao.isEmpty() || descricao.size() > maiorDescricao) {
        Recusa(u"Descrição da Peça/Serviço Inválido"_s, campos_.descricao);
        return false;
    }
    return true;
}

bool EntradaItem::avulso() const
{
    return campos_.codigo->text().isEmpty();
}

LinhaItem EntradaItem::linha() const
{
    const QString valorUnit = Format(campos_.valor->text(), mascaraValor);
    return {.codigo = avulso() ? u"0000"_s : Format(campos_.codigo->text(), mascaraCodigo),
            .tipo = avulso() ? u"A"_s : ui::tagOf(campos_.codigo),
            .quantidade = campos_.quantidade->text(),
            .descricao = campos_.descricao->currentText(),
            .valorUnit = valorUnit,
            .valorTotal = ValorDaLinha(campos_.quantidade->text(), valorUnit)};
}

void EntradaItem::preencheAvulso(const QString &descricao, const QString &valor)
{
    escreveDescricao(descricao);
    campos_.quantidade->setText(u"01"_s);
    campos_.valor->setText(valor);
}

void EntradaItem::esvazia() const
{
    campos_.quantidade->clear();
    campos_.valor->clear();
    campos_.descricao->setEditText({});
    campos_.codigo->clear();
    ui::setTagOf(campos_.codigo, {});
    ui::setTagOf(campos_.quantidade, {});
    campos_.codigo->setFocus();
}

void EntradaItem::escreveDescricao(const QString &texto)
{
    preenchendo_ = true;
    campos_.descricao->setEditText(texto);
    preenchendo_ = false;
}

LinhaItem PedeLinha(LinhaItem linha)
{
    pede(u"Código"_s, linha.codigo, numeroComo(mascaraCodigo));
    pede(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, linha.tipo, seTipo);
    pede(u"Quantidade"_s, linha.quantidade, seNumero);
    pede(u"Descrição"_s, linha.descricao, UCase);
    pede(u"Valor Unitário"_s, linha.valorUnit, numeroComo(mascaraValor));
    linha.valorTotal = ValorDaLinha(linha.quantidade, linha.valorUnit);
    return linha;
}

} // namespace documents
