#include "stock/frmMoviEntradaPeca.h"

#include "ui_frmMoviEntradaPeca.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/lista.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <array>

namespace stock
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr int marcaPeca = 1; ///< the small picture of a row that has a part to be told of

constexpr std::array colunas{
    ColunaLista{u"Código", 850},
    ColunaLista{u"Tipo", 500},
    ColunaLista{.titulo = u"Quantidade", .largura = 884, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Descrição", 4575},
    ColunaLista{.titulo = u"V.C. Unit.", .largura = 1244, .alinhamento = Qt::AlignRight},
    ColunaLista{.titulo = u"V. Total", .largura = 1184, .alinhamento = Qt::AlignRight},
};
constexpr int colunaTotal = 5;

constexpr std::array caixas{CaixaDeTexto{u"txtObs", u"NotasEntradas", u"Observacoes"}};

/// Parts are bought, at their cost; a supplier's price may have more than two places.
constexpr RegrasDaEntrada regras{.valor = &PecaItem::valorCusto,
                                 .soPecas = u"Somente peças podem ser adicionadas na lista",
                                 .soDecimais = false,
                                 .descricaoFica = true,
                                 .modoProcura = modoProcuraPecaDaNota,
                                 .modoInclui = modoIncluiPecaDaNota};

std::unique_ptr<Ui::frmMoviEntradaPeca> controlesEm(QWidget *janela)
{
    auto controles = std::make_unique<Ui::frmMoviEntradaPeca>();
    controles->setupUi(janela);
    return controles;
}

dao::Recordset fornecedor(qint32 codigo)
{
    return DBDados->OpenRecordset(u"SELECT Codigo, Nome FROM Fornecedores WHERE Codigo = "_s + QString::number(codigo));
}

LinhaItem linhaDe(const ui::ListItem &item)
{
    return {.codigo = item.text(),
            .tipo = item.subItem(1),
            .quantidade = item.subItem(2),
            .descricao = item.subItem(3),
            .valorUnit = item.subItem(4),
            .valorTotal = item.subItem(colunaTotal)};
}

/// The total of a line as it is bought: a product of 32-bit floats.
QString totalDaLinha(const QString &quantidade, const QString &valor)
{
    return Format(CSng(quantidade) * CSng(valor), mascaraValor);
}

} // namespace

frmMoviEntradaPeca::frmMoviEntradaPeca()
    : Form(u"frmMoviEntradaPeca"_s), ui_(controlesEm(this)),
      entrada_({ui_->txtCodPeca, ui_->txtQuantidade, ui_->txtDescricao, ui_->txtValor, ui_->btnPecaFind,
                ui_->btnPecaAdd, ui_->btnMarcaAdd, ui_->btnMarcaRemove},
               regras)
{
    ligaFornecedor();
    ligaLinhas();
    onClick(ui_->btnIncluir, &frmMoviEntradaPeca::btnIncluir_Click);
    onClick(ui_->btnCancelar, &frmMoviEntradaPeca::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmMoviEntradaPeca::btnVoltar_Click);
}

frmMoviEntradaPeca::~frmMoviEntradaPeca() = default;

void frmMoviEntradaPeca::ligaFornecedor()
{
    onLostFocus(ui_->txtCodFornecedor, &frmMoviEntradaPeca::txtCodFornecedor_LostFocus);
    new CaixaDeCodigo(*this, ui_->txtCodFornecedor,
                      {.cadastro = u"frmCadaFornecedor",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcuraFornecedorDaNota,
                       .inclui = ui_->btnClienteAdd,
                       .modoInclui = modoIncluiFornecedorDaNota});
}

void frmMoviEntradaPeca::ligaLinhas()
{
    entrada_.liga(*this);
    onChange(ui_->txtCodPeca, &frmMoviEntradaPeca::txtCodPeca_Change);
    onClick(ui_->btnItemAdd, &frmMoviEntradaPeca::btnItemAdd_Click);
    onClick(ui_->btnItemRemove, &frmMoviEntradaPeca::btnItemRemove_Click);
    onKey(ui_->Lista, Qt::Key_Delete, &frmMoviEntradaPeca::btnItemRemove_Click);
    onClick(ui_->btnLimpa, &frmMoviEntradaPeca::btnLimpa_Click);
    onItemDoubleClick(ui_->Lista, &frmMoviEntradaPeca::Lista_DblClick);
    onSelection(ui_->Lista, &frmMoviEntradaPeca::habilitaRemocao);
    habilitaRemocao();
}

void frmMoviEntradaPeca::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Entrada de Peças]"_s));
    MontaLista(*ui_->Lista, {.colunas = colunas});
    ui_->Lista->setSmallIcons({ui::icon(u"documentinfo"_s)});
    LimitaAosCampos(*this, caixas);
    entrada_.monta();
}

// --- the supplier

/// A text that is no number names nobody, and is told of when the note is confirmed.
void frmMoviEntradaPeca::txtCodFornecedor_LostFocus()
{
    const QString texto = ui_->txtCodFornecedor->text();
    if (!IsNumeric(texto)) {
        return;
    }
    const auto codigo = CodigoDoTexto(texto);
    const auto achado = codigo ? std::optional(fornecedor(*codigo)) : std::nullopt;
    if (!achado || achado->Eof()) {
        ui_->lblNome->setText({});
        Recusa(u"Código do Fornecedor Não Localizado"_s, ui_->txtCodFornecedor);
        return;
    }
    ui_->lblNome->setText(NuloParaVazio(achado->value(u"Nome")));
    ui_->txtCodFornecedor->setText(Format(achado->value(u"Codigo"), mascaraCodigo));
}

// --- the lines

/// Without a part no unit says how the quantity is written.
void frmMoviEntradaPeca::txtCodPeca_Change()
{
    if (ui_->txtCodPeca->text().isEmpty()) {
        ui::setTagOf(ui_->txtQuantidade, {});
    }
}

void frmMoviEntradaPeca::habilitaRemocao()
{
    ui::enableIf(ui_->Lista->selectedRow() >= 0, ui_->btnItemRemove, u"Escolha um item na lista"_s, ui_->txtCodPeca);
}

void frmMoviEntradaPeca::btnItemAdd_Click()
{
    if (!entrada_.confere()) {
        return;
    }
    LinhaItem linha = entrada_.linha();
    linha.valorTotal = totalDaLinha(linha.quantidade, ui_->txtValor->text());
    acrescenta(linha);
    entrada_.esvazia();
}

void frmMoviEntradaPeca::acrescenta(const LinhaItem &linha)
{
    ui::ListItem item = ui_->Lista->addItem(
        linha.codigo, {linha.tipo, linha.quantidade, linha.descricao, linha.valorUnit, linha.valorTotal});
    if (!entrada_.avulso()) {
        item.setSmallIcon(marcaPeca);
    }
    ui_->Lista->ensureVisible(item.row());
    mostraTotal(SaldoDepois(CSng(ui_->lblTotal->text()), CSng(linha.valorTotal)));
}

void frmMoviEntradaPeca::btnItemRemove_Click()
{
    const int linha = ui_->Lista->selectedRow();
    if (linha < 0) {
        return;
    }
    const QString total = ui_->Lista->item(linha).subItem(colunaTotal);
    mostraTotal(SaldoDepois(CSng(ui_->lblTotal->text()), -CSng(total)));
    ui_->Lista->removeRow(linha);
}

void frmMoviEntradaPeca::btnLimpa_Click()
{
    ui_->Lista->clear();
    mostraTotal(0);
}

void frmMoviEntradaPeca::mostraTotal(float total)
{
    ui_->lblTotal->setText(Format(total, mascaraValor));
}

/// A free line has no part to be told of.
void frmMoviEntradaPeca::Lista_DblClick(int linha)
{
    MostraInformacoes(TipoInformacao::Peca, ui_->Lista->item(linha).text());
}

// --- the note

/// A supplier deleted meanwhile would take the note out of sight of every query.
bool frmMoviEntradaPeca::confere()
{
    const auto codigo = CodigoDoTexto(ui_->txtCodFornecedor->text());
    if (!codigo || ui_->lblNome->text().isEmpty()) {
        Recusa(u"Código do Fornecedor Inválido"_s, ui_->txtCodFornecedor);
        return false;
    }
    if (ui_->Lista->count() == 0) {
        ui::MsgBox(u"Lista de Peças Vazia"_s, ui::Icon::Exclamation, NomeEmpresa);
        return false;
    }
    if (fornecedor(*codigo).Eof()) {
        Recusa(u"Código do Fornecedor Não Localizado"_s, ui_->txtCodFornecedor);
        return false;
    }
    return true;
}

NotaDeEntrada frmMoviEntradaPeca::nota() const
{
    NotaDeEntrada nota{.codFornecedor = ui_->txtCodFornecedor->text(),
                       .observacoes = ui_->txtObs->text(),
                       .valor = ui_->lblTotal->text(),
                       .linhas = {}};
    for (int linha = 0; linha < ui_->Lista->count(); ++linha) {
        nota.linhas.push_back(linhaDe(ui_->Lista->item(linha)));
    }
    return nota;
}

/// Fields and list stay as they are: they are cleared by the commands for it.
void frmMoviEntradaPeca::btnIncluir_Click()
{
    if (!confere() || !ui::Confirm(u"Confirma Inclusão"_s, NomeEmpresa)) {
        return;
    }
    const qint32 numero = IncluiNota(nota());
    ui::MsgBox(u"Nota Nº "_s + Format(numero, mascaraCodigo) + u" incluída com sucesso"_s, ui::Icon::Exclamation,
               NomeEmpresa);
    SelecionaTexto(ui_->txtCodFornecedor);
}

void frmMoviEntradaPeca::btnCancelar_Click()
{
    LimpaForm(*this);
    ui_->txtCodFornecedor->setFocus();
    mostraTotal(0);
}

void frmMoviEntradaPeca::btnVoltar_Click()
{
    Unload();
}

} // namespace stock
