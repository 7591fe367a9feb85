#include "reports/frmRelaPreVisualiza.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/controls.h"
#include "platform/ui/forms.h"
#include "platform/ui/reasons.h"
#include "reports/folhavista.h"
#include "ui_frmRelaPreVisualiza.h"

#include <QMap>
#include <QShortcut>
#include <QWheelEvent>

#include <algorithm>

namespace reports
{

using namespace Qt::StringLiterals;

namespace
{

// The sheet stands on a strip that is wider than itself, in twips.
constexpr double folgaDoPapel = 250;
constexpr double menorZoom = 0.25;
constexpr double maiorZoom = 6;
constexpr double passoDeZoom = 1.15;
constexpr int passoDeRolagem = 60;
constexpr int grausPorPasso = QWheelEvent::DefaultDeltasPerStep; // eighths of a degree

/// The window that drew the pages, by the mode that it was opened with.
QString donoDasPaginas(int modo)
{
    static const QMap<int, QString> donos{
        {core::modoRelaCaixa, u"frmMoviCaixa"_s},
        {core::modoConsultaNotasFornecedor, u"frmMoviEntradaPecaConsultaFornecedor"_s},
        {core::modoRelaOrigem, u"frmMoviLivroOrigem"_s},
    };
    return donos.value(modo, u"frmRelatorio"_s);
}

QString dono()
{
    return donoDasPaginas(core::ModoChamada);
}

int numero(const QLabel *rotulo)
{
    return static_cast<int>(runtime::Val(rotulo->text()));
}

} // namespace

void FolhasPreVisualizadas::EndDoc()
{
    terminou(takePages());
}

void FolhasPreVisualizadas::recomeca()
{
    takePages();
}

frmRelaPreVisualiza::frmRelaPreVisualiza()
    : ui::Form(u"frmRelaPreVisualiza"_s), ui_(std::make_unique<Ui::frmRelaPreVisualiza>())
{
    ui_->setupUi(this);
    ui_->Area->setBackgroundRole(QPalette::Mid);
    ui_->Area->setAutoFillBackground(true);
    folhas_.terminou = [this](std::vector<printer::Page> paginas) {
        const auto total = static_cast<int>(paginas.size());
        mostraFolhas(total, [paginas = std::move(paginas)](int numero) { return paginas.at(std::size_t(numero)); });
    };

    onClick(ui_->btnNext, &frmRelaPreVisualiza::btnNext_Click);
    onClick(ui_->btnBack, &frmRelaPreVisualiza::btnBack_Click);
    onClick(ui_->btnPrint, &frmRelaPreVisualiza::btnPrint_Click);
    onClick(ui_->btnVoltar, &frmRelaPreVisualiza::btnVoltar_Click);
    onChange(ui_->lblPagina, &frmRelaPreVisualiza::lblPagina_Change);
    connect(ui_->barraLeft, &QScrollBar::valueChanged, this, bound(&frmRelaPreVisualiza::barra_Change));
    connect(ui_->barraTop, &QScrollBar::valueChanged, this, bound(&frmRelaPreVisualiza::barra_Change));
    ligaTeclas();
    setEscapeUnloads(true);
}

frmRelaPreVisualiza::~frmRelaPreVisualiza() = default;

void frmRelaPreVisualiza::Form_Load()
{
    setWindowTitle(core::captionOf(u" [Pré-Visualizar impressão]"_s));
    ui_->lblPrinter->setText(printer::printer().DeviceName());
    ajustaPapel();
    habilitaImpressao();
    ui::CentraForm(*this, false);
}

printer::Surface &frmRelaPreVisualiza::comecaPaginas()
{
    mostraFolhas(0, {});
    folhas_.recomeca();
    return folhas_;
}

void frmRelaPreVisualiza::mostraFolhas(int total, core::FonteDeFolhas folhas)
{
    qDeleteAll(pics_);
    pics_.clear();
    fonte_ = std::move(folhas);
    for (int numero = 0; numero < total; ++numero) {
        pics_.push_back(new FolhaVista([this, numero] { return fonte_(numero); }, ui_->Papel));
        pics_.back()->setObjectName(u"pic_%1"_s.arg(pics_.size()));
    }
    ui_->lblPaginas->setText(QString::number(std::max(total, 1)));
    ui_->lblPagina->setText(u"1"_s);
    lblPagina_Change();
    habilitaImpressao();
}

FolhaVista *frmRelaPreVisualiza::pic(int pagina) const
{
    const bool existe = pagina >= 1 && pagina <= static_cast<int>(pics_.size());
    return existe ? pics_.at(static_cast<std::size_t>(pagina) - 1) : nullptr;
}

void frmRelaPreVisualiza::btnNext_Click()
{
    const int pagina = numero(ui_->lblPagina);
    if (pagina < numero(ui_->lblPaginas)) {
        ui_->lblPagina->setText(QString::number(pagina + 1));
    }
}

void frmRelaPreVisualiza::btnBack_Click()
{
    const int pagina = numero(ui_->lblPagina);
    if (pagina > 1) {
        ui_->lblPagina->setText(QString::number(pagina - 1));
    }
}

void frmRelaPreVisualiza::primeiraPagina()
{
    vaiPara(1);
}

void frmRelaPreVisualiza::ultimaPagina()
{
    vaiPara(numero(ui_->lblPaginas));
}

/// The change of the page hides its neighbours and no other.
void frmRelaPreVisualiza::vaiPara(int pagina)
{
    FolhaVista *antes = pic(numero(ui_->lblPagina));
    if (antes != nullptr && antes != pic(pagina)) {
        antes->esconde();
    }
    ui_->lblPagina->setText(QString::number(pagina));
}

void frmRelaPreVisualiza::lblPagina_Change()
{
    const int pagina = numero(ui_->lblPagina);
    if (FolhaVista *esta = pic(pagina)) {
        esta->mostra();
    }
    ajustaPapel();
    for (const int vizinha : {pagina + 1, pagina - 1}) {
        if (FolhaVista *outra = pic(vizinha)) {
            outra->esconde();
        }
    }
    habilitaPaginas();
}

void frmRelaPreVisualiza::habilitaPaginas()
{
    const int pagina = numero(ui_->lblPagina);
    ui::enableIf(pagina > 1, ui_->btnBack, u"Esta é a primeira página"_s, ui_->btnNext);
    ui::enableIf(pagina < numero(ui_->lblPaginas), ui_->btnNext, u"Esta é a última página"_s, ui_->btnBack);
}

void frmRelaPreVisualiza::barra_Change()
{
    ui_->Papel->move(-ui_->barraLeft->value(), -ui_->barraTop->value());
}

void frmRelaPreVisualiza::btnPrint_Click()
{
    auto &janelas = ui::Forms::instance();
    if (!janelas.exists(dono())) {
        habilitaImpressao();
        return;
    }
    QWidget *lblPrint = janelas.control(dono(), u"lblPrint"_s);
    ui::setTextOf(lblPrint, QString::number(static_cast<int>(runtime::Val(ui::textOf(lblPrint))) + 1));
}

void frmRelaPreVisualiza::btnVoltar_Click()
{
    Unload();
}

void frmRelaPreVisualiza::habilitaImpressao()
{
    ui::enableIf(ui::Forms::instance().exists(dono()), ui_->btnPrint,
                 u"A janela que imprime estas páginas ainda não está disponível"_s, ui_->btnVoltar);
}

QSizeF frmRelaPreVisualiza::folha() const
{
    const FolhaVista *esta = pic(numero(ui_->lblPagina));
    const printer::Printer &impressora = printer::printer();
    return esta != nullptr ? esta->pagina().size() : QSizeF(impressora.Width(), impressora.Height());
}

void frmRelaPreVisualiza::ajustaPapel()
{
    const QSizeF tamanho = folha();
    const double pontosPorTwip = zoom_ * ui_->Area->contentsRect().width() / (tamanho.width() + folgaDoPapel);
    const QRect naTela(qRound(folgaDoPapel / 2 * pontosPorTwip), 0, qRound(tamanho.width() * pontosPorTwip),
                       qRound(tamanho.height() * pontosPorTwip));
    ui_->pic_0->setGeometry(naTela);
    if (QWidget *esta = pic(numero(ui_->lblPagina))) {
        esta->setGeometry(naTela);
    }
    ui_->Papel->resize(qRound((tamanho.width() + folgaDoPapel) * pontosPorTwip), naTela.height());
    ajustaBarras();
}

/// Where the sheet is smaller than the frame it stands in the middle: the bar then has that one value.
void frmRelaPreVisualiza::ajustaBarras()
{
    const auto ajusta = [](QScrollBar *barra, int papel, int area) {
        const int sobra = papel - area;
        barra->setRange(sobra < 0 ? sobra / 2 : 0, sobra < 0 ? sobra / 2 : sobra);
        barra->setPageStep(area);
        barra->setSingleStep(passoDeRolagem);
    };
    const QSize area = ui_->Area->contentsRect().size();
    ajusta(ui_->barraLeft, ui_->Papel->width(), area.width());
    ajusta(ui_->barraTop, ui_->Papel->height(), area.height());
    barra_Change();
}

void frmRelaPreVisualiza::ligaTeclas()
{
    onKey(this, Qt::Key_PageDown, &frmRelaPreVisualiza::btnNext_Click);
    onKey(this, Qt::Key_PageUp, &frmRelaPreVisualiza::btnBack_Click);
    onKey(this, Qt::Key_Home, &frmRelaPreVisualiza::primeiraPagina);
    onKey(this, Qt::Key_End, &frmRelaPreVisualiza::ultimaPagina);
    tecla(Qt::Key_Down, [this] { rola(passoDeRolagem); });
    tecla(Qt::Key_Up, [this] { rola(-passoDeRolagem); });
    tecla(QKeySequence::Print, [this] { btnPrint_Click(); }); // beside the letter of the button
    tecla(QKeySequence::ZoomIn, [this] { amplia(passoDeZoom); });
    tecla(QKeySequence::ZoomOut, [this] { amplia(1 / passoDeZoom); });
    tecla(Qt::CTRL | Qt::Key_0, [this] { amplia(1 / zoom_); });
}

void frmRelaPreVisualiza::tecla(const QKeySequence &sequencia, std::function<void()> acao)
{
    auto *atalho = new QShortcut(sequencia, this);
    atalho->setContext(Qt::WidgetWithChildrenShortcut);
    connect(atalho, &QShortcut::activated, this, [acao = std::move(acao)] { ui::Application::run(acao); });
}

void frmRelaPreVisualiza::rola(int pontos)
{
    ui_->barraTop->setValue(ui_->barraTop->value() + pontos);
}

void frmRelaPreVisualiza::amplia(double fator)
{
    zoom_ = std::clamp(zoom_ * fator, menorZoom, maiorZoom);
    ajustaPapel();
}

void frmRelaPreVisualiza::wheelEvent(QWheelEvent *event)
{
    const int giro = event->angleDelta().y();
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        amplia(giro > 0 ? passoDeZoom : 1 / passoDeZoom);
    } else {
        rola(-giro * passoDeRolagem / grausPorPasso);
    }
    event->accept();
}

void frmRelaPreVisualiza::resizeEvent(QResizeEvent *event)
{
    ui::Form::resizeEvent(event);
    ajustaPapel();
}

void frmRelaPreVisualiza::showEvent(QShowEvent *event)
{
    ui::Form::showEvent(event);
    habilitaImpressao();
    ajustaPapel();
}

bool frmRelaPreVisualiza::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) {
        habilitaImpressao();
    }
    return ui::Form::event(event);
}

} // namespace reports
