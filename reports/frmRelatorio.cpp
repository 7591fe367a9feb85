#include "reports/frmRelatorio.h"

#include "ui_frmRelatorio.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "platform/ui/wait.h"

#include <algorithm>
#include <utility>

namespace reports
{

using namespace Qt::StringLiterals;
using core::Acao;
using core::ModoChamada;

namespace
{

constexpr int linhasPorOlhada = 16; // a row may take several statements

const Relatorio *relatorioDoModo(std::span<const Relatorio> catalogo, qint16 modo)
{
    const auto achado = std::ranges::find(catalogo, modo, &Relatorio::modo);
    return achado == catalogo.end() ? nullptr : &*achado;
}

QString tituloDe(const Relatorio &relatorio)
{
    const QString titulo = relatorio.titulo.toString();
    return core::captionOf(relatorio.detalhe != nullptr ? titulo.arg(relatorio.detalhe()) : titulo);
}

} // namespace

frmRelatorio::frmRelatorio(std::span<const Relatorio> catalogo)
    : ui::Form(u"frmRelatorio"_s), ui_(std::make_unique<Ui::frmRelatorio>()), catalogo_(catalogo)
{
    ui_->setupUi(this);
    onClick(ui_->btnPrevisualizar, &frmRelatorio::btnPrevisualizar_Click);
    onClick(ui_->btnPrint, &frmRelatorio::btnPrint_Click);
    onClick(ui_->btnVoltar, &frmRelatorio::btnVoltar_Click);
    onChange(ui_->lblPrint, &frmRelatorio::lblPrint_Change);
    onItemDoubleClick(ui_->Lista, &frmRelatorio::Lista_DblClick);
}

frmRelatorio::~frmRelatorio() = default;

void frmRelatorio::Form_Load()
{
    ui::CentraForm(*this, false);
    relatorio_ = relatorioDoModo(catalogo_, ModoChamada);
    const bool temPapel = relatorio_ != nullptr && relatorio_->pagina != nullptr;
    ui_->btnPrevisualizar->setVisible(temPapel);
    ui_->btnPrint->setVisible(temPapel);
    if (relatorio_ != nullptr) {
        setWindowTitle(tituloDe(*relatorio_));
        preenche();
    }
}

void frmRelatorio::preenche()
{
    core::MontaLista(*ui_->Lista, relatorio_->lista);
    le();
    if (!relatorio_->aviso.isEmpty() && ui_->Lista->count() == 0) {
        ui::MsgBox(relatorio_->aviso.toString(), ui::Icon::Exclamation, core::NomeEmpresa);
    }
}

/// A reading that the user has left is told by the caption: the totals are those of the rows that were read.
void frmRelatorio::le()
{
    const ui::Hourglass ampulheta;
    core::Andamento obra(
        u"Lendo o relatório"_s, [] { return 0; }, linhasPorOlhada, core::Esc::Deixa);
    if (relatorio_->consulta != nullptr) {
        dao::Recordset linhas = core::DBDados->OpenRecordset(relatorio_->consulta());
        const bool vazia = linhas.Eof();
        const auto somas = core::EncheLista(*ui_->Lista, std::move(linhas), relatorio_->lista, {}, &obra);
        if (!vazia && relatorio_->completa != nullptr) {
            relatorio_->completa(*ui_->Lista, somas);
        }
    }
    if (relatorio_->linhas != nullptr) {
        relatorio_->linhas(*ui_->Lista, obra);
    }
    if (obra.deixado()) {
        setWindowTitle(windowTitle() + u" - Leitura interrompida"_s);
    }
}

/// The preview knows by the mode whom to ask for paper, whatever other windows have been opened meanwhile.
void frmRelatorio::btnPrevisualizar_Click()
{
    if (relatorio_ != nullptr) {
        ModoChamada = relatorio_->modo;
    }
    imprime(Acao::PreVisualiza);
}

void frmRelatorio::btnPrint_Click()
{
    imprime(Acao::Imprime);
}

void frmRelatorio::btnVoltar_Click()
{
    Unload();
}

/// The preview asks for paper.
void frmRelatorio::lblPrint_Change()
{
    btnPrint_Click();
}

void frmRelatorio::imprime(Acao acao)
{
    if (relatorio_ == nullptr || relatorio_->pagina == nullptr) {
        return;
    }
    const core::Pagina &pagina = *relatorio_->pagina();
    const auto textos = relatorio_->textos != nullptr ? relatorio_->textos() : core::TextosDaPagina();
    core::ImprimeLista(acao, *ui_->Lista, pagina, textos);
}

void frmRelatorio::Lista_DblClick(int linha)
{
    const ui::ListItem item = ui_->Lista->item(linha);
    if (relatorio_ == nullptr || !relatorio_->abertura || !runtime::IsNumeric(item.text())) {
        return;
    }
    const Abertura abertura = *relatorio_->abertura;
    if (abertura.soMarcada && item.smallIcon() == 0) {
        return;
    }
    ModoChamada = abertura.modo;
    core::CodigoConsulta = runtime::CLng(item.text());
    ui::Forms::instance().ShowAfresh(abertura.janela.toString());
    if (abertura.modoDepois) {
        ModoChamada = *abertura.modoDepois;
    }
}

} // namespace reports
