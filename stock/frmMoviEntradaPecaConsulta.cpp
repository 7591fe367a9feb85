#include "stock/frmMoviEntradaPecaConsulta.h"

#include "ui_frmMoviEntradaPecaConsulta.h"

#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/periodo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "stock/consultanotas.h"
#include "stock/notasentrada.h"

#include <QSignalBlocker>

#include <array>

namespace stock
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int colunaPago = 4;
constexpr int colunaDataPagto = 5;
constexpr int colunaObservacoes = 6;

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Fornecedor", 2700, u"Nome", comoEsta},
    ColunaLista{u"Data", 1500, u"Data", comoData},
    ColunaLista{u"Valor", 1500, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Data Pagto.", 1500, u"DataPagto", comoData},
    ColunaLista{u"Observações", 2500, u"Observacoes", comoEsta},
};

constexpr Lista notas{.colunas = colunas};

const QString consultaDoPeriodo = u"SELECT NotasEntradas.*, Fornecedores.Nome FROM NotasEntradas, Fornecedores "
                                  "WHERE NotasEntradas.Data BETWEEN "_s;
const QString doFornecedor = u" AND Fornecedores.Codigo = NotasEntradas.CodForn"_s;
const QString porCodigo = u" ORDER BY NotasEntradas.Codigo"_s;

/// By the entry of `cboOS`: paid, unpaid, all.
constexpr std::array<QStringView, 3> situacoes{u" AND NotasEntradas.Pago = True", u" AND NotasEntradas.Pago = False",
                                               u""};

} // namespace

frmMoviEntradaPecaConsulta::frmMoviEntradaPecaConsulta()
    : Form(u"frmMoviEntradaPecaConsulta"_s), ui_(std::make_unique<Ui::frmMoviEntradaPecaConsulta>())
{
    ui_->setupUi(this);
    onChange(ui_->cboOS, &frmMoviEntradaPecaConsulta::cboOS_Change);
    onChange(ui_->txtDataInicio, &frmMoviEntradaPecaConsulta::txtDataInicio_Change);
    onChange(ui_->txtDataFim, &frmMoviEntradaPecaConsulta::txtDataFim_Change);
    onClick(ui_->btnTodos, &frmMoviEntradaPecaConsulta::btnTodos_Click);
    onClick(ui_->btnNovo, &frmMoviEntradaPecaConsulta::btnNovo_Click);
    onClick(ui_->btnExcluir, &frmMoviEntradaPecaConsulta::btnExcluir_Click);
    onClick(ui_->btnOBS, &frmMoviEntradaPecaConsulta::btnOBS_Click);
    onClick(ui_->btnVoltar, &frmMoviEntradaPecaConsulta::btnVoltar_Click);
    onItemClick(ui_->Lista, &frmMoviEntradaPecaConsulta::Lista_Click);
    onKey(ui_->Lista, Qt::Key_P, &frmMoviEntradaPecaConsulta::Lista_P);
    onSelection(ui_->Lista, &frmMoviEntradaPecaConsulta::habilitaBotoes);
}

frmMoviEntradaPecaConsulta::~frmMoviEntradaPecaConsulta() = default;

void frmMoviEntradaPecaConsulta::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Consulta Notas de Entrada]"_s));
    MontaLista(*ui_->Lista, notas);
    MontaLinhasDaNota(*ui_->lstPecas);
    umaNota_ = ModoChamada == modoRelaNotasFornecedor;
    abrePeriodo();
    btnTodos_Click();
    if (umaNota_) {
        mostraNotaDoRelatorio();
    }
    habilitaBotoes();
    ui_->Lista->setFocus();
}

/// That of the report whose note is to be shown, else the last month. The list is filled once, behind both dates.
void frmMoviEntradaPecaConsulta::abrePeriodo()
{
    const QSignalBlocker inicio(ui_->txtDataInicio);
    const QSignalBlocker fim(ui_->txtDataFim);
    AbrePeriodo(*this, {.mesesAntes = 1});
    const auto *selecao = ui::Forms::instance().find(u"frmRelaSelecaoNotasEntradas"_s);
    if (!umaNota_ || selecao == nullptr) {
        return;
    }
    for (QWidget *caixa : std::initializer_list<QWidget *>{ui_->txtDataInicio, ui_->txtDataFim}) {
        ui::setTextOf(caixa, ui::textOf(selecao->findChild<QWidget *>(caixa->objectName())));
    }
}

void frmMoviEntradaPecaConsulta::mostraNotaDoRelatorio()
{
    const QString codigo = runtime::Format(CodigoConsulta, mascaraCodigo);
    LocalizaLista(ui_->Lista, codigo, 1, true, true);
    // A code of four digits is the beginning of longer ones.
    if (escolhida() == CodigoConsulta) {
        MostraLinhasDaNota(*ui_->lstPecas, codigo);
    } else {
        ui_->Lista->clearSelection();
    }
    for (QWidget *controle : std::initializer_list<QWidget *>{ui_->cboOS, ui_->txtDataInicio, ui_->txtDataFim}) {
        controle->setEnabled(false);
    }
}

// --- the list

void frmMoviEntradaPecaConsulta::cboOS_Change()
{
    btnTodos_Click();
}

void frmMoviEntradaPecaConsulta::txtDataInicio_Change()
{
    btnTodos_Click();
}

void frmMoviEntradaPecaConsulta::txtDataFim_Change()
{
    btnTodos_Click();
}

void frmMoviEntradaPecaConsulta::btnTodos_Click()
{
    const QStringView situacao = situacoes.at(static_cast<std::size_t>(ui_->cboOS->currentIndex()));
    ui_->lstPecas->clear();
    EncheLista(*ui_->Lista,
               DBDados->OpenRecordset(consultaDoPeriodo + PeriodoSQL(*this) + doFornecedor + situacao + porCodigo),
               notas);
}

void frmMoviEntradaPecaConsulta::Lista_Click(int linha)
{
    MostraLinhasDaNota(*ui_->lstPecas, ui_->Lista->item(linha).text());
}

/// The code of the selected note; none for a row that somebody else has deleted.
std::optional<qint32> frmMoviEntradaPecaConsulta::escolhida() const
{
    const int linha = ui_->Lista->selectedRow();
    return linha < 0 ? std::nullopt : CodigoDoTexto(ui_->Lista->item(linha).text());
}

void frmMoviEntradaPecaConsulta::habilitaBotoes()
{
    const bool temNota = escolhida().has_value();
    const QString semNota = u"Escolha uma nota na lista"_s;
    const QString soConsulta = u"A janela foi aberta pelo relatório para consultar uma nota"_s;
    ui::enableIf(temNota, ui_->btnOBS, semNota, ui_->Lista);
    ui::enableIf(temNota && !umaNota_, ui_->btnExcluir, umaNota_ ? soConsulta : semNota, ui_->Lista);
    ui::enableIf(!umaNota_, ui_->btnTodos, soConsulta, ui_->Lista);
    ui::enableIf(!umaNota_, ui_->btnNovo, soConsulta, ui_->Lista);
    disableUnlessExists(u"frmMoviEntradaPeca"_s, {ui_->btnNovo});
}

// --- what is done with a note

/// The question comes before anything is written: the note is not held while the user looks for the day.
void frmMoviEntradaPecaConsulta::Lista_P()
{
    const auto codigo = escolhida();
    if (!codigo) {
        return;
    }
    ui::ListItem nota = ui_->Lista->item(ui_->Lista->selectedRow());
    const auto paga = NotaPaga(*codigo);
    const bool existe = paga && (*paga ? DesfazPagamento(*codigo) : PagaNota(*codigo, PerguntaDiaDoPagamento()));
    if (!existe) {
        btnTodos_Click();
        return;
    }
    nota.setSubItem(colunaPago, *paga ? u"Não"_s : u"Sim"_s);
    nota.setSubItem(colunaDataPagto, DiaDoPagamento(*codigo));
}

void frmMoviEntradaPecaConsulta::btnNovo_Click()
{
    ModoChamada = modoNormal;
    Unload();
    ui::Forms::instance().Show(u"frmMoviEntradaPeca"_s);
}

void frmMoviEntradaPecaConsulta::btnExcluir_Click()
{
    const auto codigo = escolhida();
    const int linha = ui_->Lista->selectedRow();
    if (!codigo || !ui::Confirm(u"Excluir o Registro Selecionado"_s, NomeEmpresa)) {
        return;
    }
    ExcluiNota(*codigo);
    ui_->Lista->setFocus(); // from a button that is disabled below
    ui_->Lista->removeRow(linha);
    ui_->Lista->clearSelection(); // the next note was not chosen by the user
    ui_->lstPecas->clear();
}

void frmMoviEntradaPecaConsulta::btnOBS_Click()
{
    const auto codigo = escolhida();
    if (!codigo) {
        return;
    }
    ui::ListItem nota = ui_->Lista->item(ui_->Lista->selectedRow());
    const QString texto = ui::InputBox(u"Digite Observações"_s, NomeEmpresa, nota.subItem(colunaObservacoes));
    if (texto.isEmpty()) {
        return;
    }
    if (const auto gravadas = GravaObservacoes(*codigo, texto)) {
        nota.setSubItem(colunaObservacoes, *gravadas);
    } else {
        btnTodos_Click();
    }
}

void frmMoviEntradaPecaConsulta::btnVoltar_Click()
{
    Unload();
}

} // namespace stock
