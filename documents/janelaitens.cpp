#include "documents/janelaitens.h"

#include "ui_painelitens.h"

#include "documents/painelitens.h"

#include "core/combos.h"
#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/modulo.h"

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

void JanelaItens::ligaItens(PainelItens &painel)
{
    painel_ = &painel;
    const Ui::PainelItens &c = painel.controles();

    onGotFocus(c.txtCodPeca, &JanelaItens::txtCodPeca_GotFocus);
    onLostFocus(c.txtCodPeca, &JanelaItens::txtCodPeca_LostFocus);
    onKey(c.txtCodPeca, Qt::Key_F1, &JanelaItens::btnPecaFind_Click);
    onKey(c.txtCodPeca, Qt::Key_F2, &JanelaItens::btnPecaAdd_Click);
    onGotFocus(c.txtQuantidade, &JanelaItens::txtQuantidade_GotFocus);
    onLostFocus(c.txtQuantidade, &JanelaItens::txtQuantidade_LostFocus);
    filterKeys(c.txtQuantidade, SoDecimais);
    onChange(c.txtDescricao, &JanelaItens::txtDescricao_Change);
    onGotFocus(c.txtValor, &JanelaItens::txtValor_GotFocus);
    onLostFocus(c.txtValor, &JanelaItens::txtValor_LostFocus);
    filterKeys(c.txtValor, SoDecimais);

    onClick(c.btnPecaFind, &JanelaItens::btnPecaFind_Click);
    onClick(c.btnPecaAdd, &JanelaItens::btnPecaAdd_Click);
    onClick(c.btnMarcaAdd, &JanelaItens::btnMarcaAdd_Click);
    onClick(c.btnMarcaRemove, &JanelaItens::btnMarcaRemove_Click);
    onClick(c.btnItemAdd, &JanelaItens::btnItemAdd_Click);
    onClick(c.btnItemRemove, &JanelaItens::btnItemRemove_Click);
    onClick(c.btnLimpa, &JanelaItens::btnLimpa_Click);
    onClick(c.btnAdicionar, &JanelaItens::btnAdicionar_Click);
}

void JanelaItens::ligaTeclas(QWidget *lista)
{
    onKey(lista, Qt::Key_Delete, &JanelaItens::btnItemRemove_Click);
    onKey(lista, Qt::Key_Insert, &JanelaItens::Lista_Insert);
}

void JanelaItens::btnItemAdd_Click()
{
    painel_->acrescenta();
}

void JanelaItens::btnItemRemove_Click()
{
    const auto posicao = painel_->selecionado();
    if (posicao && posicao->aba != abaMaterial) {
        painel_->remove(*posicao);
    }
}

void JanelaItens::Lista_Insert()
{
    if (const auto posicao = painel_->selecionado()) {
        painel_->edita(*posicao);
    }
}

/// The totals go to zero although the other lists may hold rows; the next change adds up all that stands there.
void JanelaItens::btnLimpa_Click()
{
    if (const auto aba = painel_->abaAtiva()) {
        painel_->limpa(*aba);
        painel_->zeraTotais();
    }
}

void JanelaItens::btnAdicionar_Click()
{
    painel_->pedeValores([this] { btnItemAdd_Click(); });
}

void JanelaItens::txtCodPeca_GotFocus()
{
    SelecionaTexto(painel_->controles().txtCodPeca);
}

void JanelaItens::txtCodPeca_LostFocus()
{
    painel_->entrada().procuraPeca();
}

void JanelaItens::txtQuantidade_GotFocus()
{
    painel_->entrada().ofereceUm();
}

void JanelaItens::txtQuantidade_LostFocus()
{
    painel_->entrada().formataQuantidade();
}

void JanelaItens::txtDescricao_Change()
{
    painel_->entrada().completaDescricao();
}

void JanelaItens::txtValor_GotFocus()
{
    SelecionaTexto(painel_->controles().txtValor);
}

void JanelaItens::txtValor_LostFocus()
{
    painel_->entrada().formataValor();
}

void JanelaItens::btnPecaFind_Click()
{
    Chama(u"frmCadaPecas"_s, modos_.procura);
}

void JanelaItens::btnPecaAdd_Click()
{
    Chama(u"frmCadaPecas"_s, modos_.inclui);
}

void JanelaItens::btnMarcaAdd_Click()
{
    AtualizaCombo(painel_->controles().txtDescricao, ListaCombo::DescricaoItens, ModoCombo::Acrescenta);
}

void JanelaItens::btnMarcaRemove_Click()
{
    AtualizaCombo(painel_->controles().txtDescricao, ListaCombo::DescricaoItens, ModoCombo::Exclui);
}

} // namespace documents
