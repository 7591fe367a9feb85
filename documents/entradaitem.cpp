#include "documents/entradaitem.h"

#include "core/caixacodigo.h"
#include "core/caixalista.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"

#include <QAbstractButton>
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
    return ServeDeValor(resposta) ? resposta : QString();
}

/// What no item may hold is no answer: it would end the program where it is written.
QString seCodigo(const QString &resposta)
{
    return PodeSerCodigo(resposta) ? Format(resposta, mascaraCodigo) : QString();
}

QString seDescricao(const QString &resposta)
{
    return resposta.size() <= maiorDescricao ? UCase(resposta) : QString();
}

QString seTipo(const QString &resposta)
{
    const QString tipo = UCase(resposta);
    return tipo == u"P" || tipo == u"S" || tipo == u"A" ? tipo : QString();
}

QString seValor(const QString &resposta)
{
    return ServeDeValor(resposta) ? Format(resposta, mascaraValor) : QString();
}

} // namespace

void EntradaItem::liga(ui::Form &janela)
{
    janela.onGotFocus(c_.txtCodPeca, this, &EntradaItem::txtCodPeca_GotFocus);
    janela.onLostFocus(c_.txtCodPeca, this, &EntradaItem::txtCodPeca_LostFocus);
    new CaixaDeCodigo(janela, c_.txtCodPeca,
                      {.cadastro = u"frmCadaPecas",
                       .procura = c_.btnPecaFind,
                       .modoProcura = regras_.modoProcura,
                       .inclui = c_.btnPecaAdd,
                       .modoInclui = regras_.modoInclui});
    janela.onGotFocus(c_.txtQuantidade, this, &EntradaItem::txtQuantidade_GotFocus);
    janela.onLostFocus(c_.txtQuantidade, this, &EntradaItem::txtQuantidade_LostFocus);
    descricao_ =
        new CaixaDeLista(janela, c_.txtDescricao, ListaCombo::DescricaoItens, c_.btnMarcaAdd, c_.btnMarcaRemove);
    janela.onGotFocus(c_.txtValor, this, &EntradaItem::txtValor_GotFocus);
    if (regras_.soDecimais) {
        janela.filterKeys(c_.txtQuantidade, SoDecimais);
        janela.filterKeys(c_.txtValor, SoDecimais);
        janela.onLostFocus(c_.txtValor, this, &EntradaItem::txtValor_LostFocus);
    }
}

void EntradaItem::monta() const
{
    descricao_->carrega();
}

void EntradaItem::txtCodPeca_GotFocus()
{
    SelecionaTexto(c_.txtCodPeca);
}

/// Why a registered item is not taken; "" takes it.
QStringView EntradaItem::motivoDaRecusa(const std::optional<PecaItem> &peca) const
{
    if (!peca) {
        return u"Código não Localizado";
    }
    return peca->ps == u"P" ? QStringView() : regras_.soPecas;
}

/// Fills the row from the register and goes on to the quantity. An unknown code is refused.
void EntradaItem::txtCodPeca_LostFocus()
{
    const QString texto = c_.txtCodPeca->text();
    if (texto.isEmpty()) {
        return;
    }
    const auto peca = ProcuraPeca(texto);
    if (const QStringView motivo = motivoDaRecusa(peca); !motivo.isEmpty()) {
        Recusa(motivo.toString(), c_.txtCodPeca);
        return;
    }
    descricao_->escreve(peca->nome);
    c_.txtValor->setText(peca.value().*regras_.valor);
    c_.txtCodPeca->setText(peca->codigo);
    ui::setTagOf(c_.txtCodPeca, peca->ps);
    ui::setTagOf(c_.txtQuantidade, peca->um);
    c_.txtQuantidade->setFocus();
}

void EntradaItem::txtQuantidade_GotFocus()
{
    if (c_.txtQuantidade->text().isEmpty()) {
        c_.txtQuantidade->setText(u"1"_s);
        SelecionaTexto(c_.txtQuantidade);
    }
}

/// By the unit of the item; what is no number stays for the check to tell.
void EntradaItem::txtQuantidade_LostFocus()
{
    const QString texto = c_.txtQuantidade->text();
    if (!texto.isEmpty()) {
        c_.txtQuantidade->setText(formatada(texto, ui::tagOf(c_.txtQuantidade)));
    }
}

void EntradaItem::txtValor_GotFocus()
{
    SelecionaTexto(c_.txtValor);
}

void EntradaItem::txtValor_LostFocus()
{
    MascaraTexto(c_.txtValor, TipoMascara::Valor);
}

bool EntradaItem::confere() const
{
    if (!ValidaCampo(c_.txtQuantidade, u"Quantidade Inválida"_s, ServeDeValor) ||
        !ValidaCampo(c_.txtValor, u"Valor Unitário Inválido"_s, ServeDeValor)) {
        return false;
    }
    const QString descricao = c_.txtDescricao->currentText();
    if (descricao.isEmpty() || descricao.size() > maiorDescricao) {
        Recusa(u"Descrição da Peça/Serviço Inválido"_s, c_.txtDescricao);
        return false;
    }
    return true;
}

bool EntradaItem::avulso() const
{
    return c_.txtCodPeca->text().isEmpty();
}

LinhaItem EntradaItem::linha() const
{
    const QString valorUnit = Format(c_.txtValor->text(), mascaraValor);
    return {.codigo = avulso() ? u"0000"_s : Format(c_.txtCodPeca->text(), mascaraCodigo),
            .tipo = avulso() ? u"A"_s : ui::tagOf(c_.txtCodPeca),
            .quantidade = c_.txtQuantidade->text(),
            .descricao = c_.txtDescricao->currentText(),
            .valorUnit = valorUnit,
            .valorTotal = ValorDaLinha(c_.txtQuantidade->text(), valorUnit)};
}

void EntradaItem::preencheAvulso(const QString &descricao, const QString &valor)
{
    descricao_->escreve(descricao);
    c_.txtQuantidade->setText(u"01"_s);
    c_.txtValor->setText(valor);
}

void EntradaItem::esvazia() const
{
    c_.txtQuantidade->clear();
    c_.txtValor->clear();
    if (!regras_.descricaoFica) {
        descricao_->escreve({});
    }
    c_.txtCodPeca->clear();
    ui::setTagOf(c_.txtCodPeca, {});
    ui::setTagOf(c_.txtQuantidade, {});
    c_.txtCodPeca->setFocus();
}

LinhaItem PedeLinha(LinhaItem linha)
{
    pede(u"Código"_s, linha.codigo, seCodigo);
    pede(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, linha.tipo, seTipo);
    pede(u"Quantidade"_s, linha.quantidade, seNumero);
    pede(u"Descrição"_s, linha.descricao, seDescricao);
    pede(u"Valor Unitário"_s, linha.valorUnit, seValor);
    linha.valorTotal = ValorDaLinha(linha.quantidade, linha.valorUnit);
    return linha;
}

} // namespace documents
