#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/areafundo.h"
#include "shell/frmMDI.h"
#include "shell/frmSplash.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/palette.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QStyleOptionHeader>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// A window in one of its uses: by mode, by layout of the orders, inside the main window or alone.
struct Use {
    const char *window;
    qint16 mode = 0;
    const char *layout = "1";
    bool inArea = true;
};

constexpr std::array uses{
    Use{"frmSplash", 0, "1", false},
    Use{"frmSenha", 0, "1", false},
    Use{"frmSenhaManut", 0, "1", false},
    Use{"frmInfo", 0, "1", false},
    Use{"frmConfigOrcamento"},
    Use{"frmConfigLogo"},
    Use{"frmOSFormaPagto", 0, "1", false},
    Use{"frmMoviContasPRBaixa", 0, "1", false},
    Use{"frmMoviContasPR"},
    Use{"frmCadaCliente"},
    Use{"frmCadaVeiculos"},
    Use{"frmCadaPecas"},
    Use{"frmCadaFornecedor"},
    Use{"frmCadaFast"},
    Use{"frmOSAbre"},
    Use{"frmOSAbre", 0, "3"},
    Use{"frmOSOrcaNovo"},
    Use{"frmOSOrcaConsulta"},
    Use{"frmOSAltera"},
    Use{"frmOSAltera", 0, "3"},
    Use{"frmOSOrcaAltera"},
    Use{"frmOSConsulta"},
    Use{"frmOSConsulta", 0, "3"},
    Use{"frmOSConsulta", 9, "3"},
    Use{"frmOSConsulta", 10, "3"},
    Use{"frmNota"},
    Use{"frmRelaSelecaoOS"},
    Use{"frmRelaSelecaoContasPR"},
    Use{"frmRelatorio", 26},
    Use{"frmRelatorio", 27},
    Use{"frmMoviCheques"},
    Use{"frmMoviEstoque"},
    Use{"frmMoviEntradaPeca"},
    Use{"frmMoviCaixa"},
    Use{"frmMoviCaixa", 30},
    Use{"frmMoviLivroOrigem"},
    Use{"frmBalanco"},
    Use{"frmInfoAviso"},
    Use{"frmManual"},
    Use{"frmMoviFiados"},
    Use{"frmMoviFiadosConta"},
    Use{"frmMoviFiadosConta", 11},
    Use{"frmMoviEntradaPecaConsulta"},
    Use{"frmMoviEntradaPecaConsulta", 21},
    Use{"frmMoviEntradaPecaConsultaFornecedor", 34},
    Use{"frmRelaSelecaoNotasEntradas"},
    Use{"frmRelaPreVisualiza"},
    Use{"frmRelaSelecaoPecas"},
    Use{"frmRelaSelecaoCheques"},
    Use{"frmRelatorio", 22},
    Use{"frmRelatorio", 32},
    Use{"frmRelatorio", 37},
    Use{"frmRelatorio", 38},
    Use{"frmRelatorio", 24},
    Use{"frmRelatorio", 25},
    Use{"frmRelatorio", 36},
    Use{"frmRelatorio", 28},
    Use{"frmRelatorio", 29},
    Use{"frmRelatorio", 30},
    Use{"frmRelatorio", 31},
    Use{"frmRelatorio", 33},
};

const QString money = u"1.234.567,89"_s;
const QString day = u"28/12/2024"_s;
const QString phone = u"(17)98888-8888"_s;
const QString moment = u"28/12/2024 20:48:58"_s;

/// The longest value that stands in a box in a workshop's day, by the name of the box without the number of its array.
/// Names and remarks have no longest one: they end in dots and are told by a tool tip.
const QMap<QString, QString> longest = {
    {u"lblDataCadastro"_s, day},
    {u"txtDataNascimento"_s, day},
    {u"txtData"_s, day},
    {u"txtDataInicio"_s, day},
    {u"txtDataFim"_s, day},
    {u"lblDataPg"_s, day},
    {u"lblData"_s, day},
    {u"lblVencimento"_s, day},
    {u"txtVencimento"_s, day},
    {u"txtDataPagto"_s, day},
    {u"txtNovaData"_s, day},
    {u"lblDataIn"_s, moment},
    {u"lblDataOut"_s, moment},
    {u"txtFone1"_s, phone},
    {u"txtFone2"_s, phone},
    {u"txtCelular"_s, phone},
    {u"lblFone"_s, phone},
    {u"lblFone1"_s, phone},
    {u"lblCelular"_s, phone},
    {u"txtCEP"_s, u"15080-130"_s},
    {u"txtCPF"_s, u"88.888.888/0008-88"_s},
    {u"txtPlaca"_s, u"MWO-8888"_s},
    {u"lblPlacas"_s, u"MWO-8888"_s},
    {u"txtAno"_s, u"2018/2018"_s},
    {u"lblAno"_s, u"2018/2018"_s},
    {u"lblCodigo"_s, u"12888"_s},
    {u"lblCodVeiculo"_s, u"12888"_s},
    {u"lblCodOS"_s, u"12888"_s},
    {u"lblCodCliente"_s, u"12888"_s},
    {u"txtCodCliente"_s, u"128888"_s},
    {u"txtCodForn"_s, u"128888"_s},
    {u"txtCodVeiculo"_s, u"MWO-8888"_s},
    {u"txtCodFornecedor"_s, u"128888"_s},
    {u"txtCodPeca"_s, u"78988888888"_s},
    {u"txtKm"_s, u"188.888 KM"_s},
    {u"lblKm"_s, u"188.888 KM"_s},
    {u"txtQuantidade"_s, u"12.888,888"_s},
    {u"lblEstoqueMin"_s, u"12.888,888"_s},
    {u"txtValor"_s, money},
    {u"txtDinheiro"_s, money},
    {u"txtAvista"_s, money},
    {u"txtAPrazo"_s, money},
    {u"txtDuplicata"_s, money},
    {u"lblLinha1"_s, money},
    {u"lblLinha2"_s, money},
    {u"lblLinha3"_s, money},
    {u"lblLinha4"_s, money},
    {u"lblLinha5"_s, money},
    {u"lblLinha6"_s, money},
    {u"txtLimite"_s, money},
    {u"txtCusto"_s, money},
    {u"txtVenda"_s, money},
    {u"txtEstoque"_s, u"12.888,888"_s},
    {u"txtEstoqueAtual"_s, u"12.888,888"_s},
    {u"txtRG"_s, u"28.888.888-8"_s},
    {u"txtNumero"_s, u"12888"_s},
    {u"txtICMS"_s, u"18"_s},
    {u"txtCodExterno"_s, u"7898888888888"_s},
    {u"txtClass"_s, u"8708.93.00"_s},
    {u"txtConta"_s, u"0888-8 / 88888-8"_s},
    {u"txtNumCheque"_s, u"888888"_s},
    {u"txtDesconto"_s, money},
    {u"lblValor"_s, money},
    {u"lblTotal"_s, money},
    {u"lblPagas"_s, money},
    {u"lblNaoPagas"_s, money},
    {u"lblCompensado"_s, money},
    {u"lblCompensar"_s, money},
    {u"lblTotalP"_s, money},
    {u"lblTotalS"_s, money},
    {u"lblTotalT"_s, money},
    {u"lblTroco"_s, money},
    {u"lblValorMO"_s, money},
    {u"lblTotalMO"_s, money},
    {u"lblDespesasAdmin"_s, money},
    {u"lblLucro"_s, money},
    {u"lblISS"_s, money},
    {u"lblSimples"_s, money},
    {u"lblCustoTotal"_s, money},
    {u"txtCustoPecas"_s, money},
    {u"txtHorasTrabalhadas"_s, u"1.888,88"_s},
    {u"txtPDespesa"_s, u"188,88"_s},
    {u"txtPTaxaLucro"_s, u"188,88"_s},
    {u"txtPISS"_s, u"188,88"_s},
    {u"txtPSimples"_s, u"188,88"_s},
    {u"txtCodOS"_s, u"12888"_s},
    {u"txtDataPg"_s, day},
    {u"txtFormaPg"_s, u"PARCELADO CHEQUE"_s},
    {u"lblLC"_s, money},
    {u"lblSaldo"_s, u"-"_s + money},
    {u"lblParcelas"_s, u"36"_s},
    {u"txtParcela"_s, u"36"_s},
    {u"lblOsAberta"_s, u"NÃO"_s},
    {u"lblOsPaga"_s, u"NÃO"_s},
    {u"lblFormaPg"_s, u"PAGAMENTO PERSONALIZADO"_s},
    {u"lblSituacao"_s, u"falta distribuir"_s},
    {u"lblUM"_s, u"QUILOGRAMA"_s},
};

QString longestOf(const QWidget *box)
{
    return longest.value(box->objectName().section(u'_', 0, 0));
}

QString withoutMark(QString caption)
{
    return caption.remove(u'&');
}

/// The application's font or palette for the length of a case.
class Surroundings
{
public:
    ~Surroundings()
    {
        QApplication::setFont(font_);
        QApplication::setPalette(palette_);
    }
    Surroundings() = default;
    Surroundings(const Surroundings &) = delete;
    Surroundings &operator=(const Surroundings &) = delete;

    void setPoints(int points) const
    {
        auto font = font_;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    static void setDark() { QApplication::setPalette(support::darkPalette()); }

private:
    QFont font_ = QApplication::font();
    QPalette palette_ = QApplication::palette();
};

constexpr int leastTitleMargin = 4;

/// What the text of a box needs and what the box gives it; the caret and the distance from the border are Qt's.
bool hasRoom(const QWidget *box, const QString &text)
{
    constexpr int besideTheText = 4;
    QStyleOptionFrame option;
    option.initFrom(box);
    option.lineWidth = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box);
    const auto room = box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box);
    return box->fontMetrics().horizontalAdvance(text) + besideTheText <= room.width() &&
           box->fontMetrics().height() <= box->height();
}

/// The same for the title of a list's column, which keeps away from its neighbours as well.
bool hasTitleRoom(const QHeaderView *header, const QString &title, int width)
{
    QStyleOptionHeader option;
    option.initFrom(header);
    option.rect = QRect(0, 0, width, header->height());
    const auto room = header->style()->subElementRect(QStyle::SE_HeaderLabel, &option, header);
    return header->fontMetrics().horizontalAdvance(title) <= room.width() &&
           header->fontMetrics().height() <= room.height() && width - room.width() >= 2 * leastTitleMargin;
}

template<class T>
QList<T *> shownIn(const ui::Form *form)
{
    QList<T *> shown;
    for (auto *control : form->findChildren<T *>()) {
        if (control->isVisible()) {
            shown.append(control);
        }
    }
    return shown;
}

/// Every picture that a window shows: once for each page of its tabs.
void onEveryPage(const ui::Form *form, const std::function<void()> &look)
{
    const auto tabs = form->findChildren<QTabWidget *>();
    if (tabs.isEmpty()) {
        look();
        return;
    }
    auto *pages = tabs.first();
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        QCoreApplication::processEvents();
        look();
    }
}

/// Captions that are not seen whole, with the name of their control.
class Cut
{
public:
    explicit Cut(const ui::Form *form) : form_(form) {}

    QStringList found()
    {
        labels();
        buttons();
        titles();
        values();
        entries();
        outside();
        return found_;
    }

private:
    void note(const QWidget *control, const QString &text)
    {
        found_ << control->objectName() + u": "_s + text + u" in %1x%2"_s.arg(control->width()).arg(control->height());
    }

    void labels()
    {
        for (const auto *label : shownIn<QLabel>(form_)) {
            const auto text = withoutMark(label->text());
            const bool value = qobject_cast<const ui::Label *>(label) && label->frameShape() != QFrame::NoFrame;
            const auto needed = label->fontMetrics().boundingRect(
                label->contentsRect(), label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine, text);
            if (!value && (needed.width() > label->width() || needed.height() > label->height())) {
                note(label, text);
            }
        }
    }

    void buttons()
    {
        for (const auto *button : shownIn<QAbstractButton>(form_)) {
            const auto text = withoutMark(button->text());
            const auto *push = qobject_cast<const QPushButton *>(button);
            const int picture = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
            const int border = push && !text.isEmpty() ? button->fontMetrics().averageCharWidth() : 0;
            const bool marked = qobject_cast<const QCheckBox *>(button) != nullptr ||
                                qobject_cast<const QRadioButton *>(button) != nullptr;
            const int needed = marked ? button->sizeHint().width()
                                      : button->fontMetrics().horizontalAdvance(text) + picture + 2 * border;
            if (needed > button->width() || button->fontMetrics().height() > button->height()) {
                note(button, text);
            }
        }
    }

    void titles()
    {
        for (const auto *bar : shownIn<QTabBar>(form_)) {
            for (int tab = 0; tab < bar->count(); ++tab) {
                const bool room = bar->fontMetrics().horizontalAdvance(bar->tabText(tab)) < bar->tabRect(tab).width();
                if (bar->isTabVisible(tab) && !(room && bar->rect().contains(bar->tabRect(tab)))) {
                    note(bar, bar->tabText(tab));
                }
            }
        }
        for (const auto *group : shownIn<QGroupBox>(form_)) {
            if (group->fontMetrics().horizontalAdvance(group->title()) > group->width()) {
                note(group, group->title());
            }
        }
        for (const auto *list : shownIn<ui::ListView>(form_)) {
            const auto *header = list->header();
            for (int column = 0; column < header->count(); ++column) {
                const auto title = header->model()->headerData(column, Qt::Horizontal).toString();
                // A list that scrolls has the widths that it is told; there a tip tells the title.
                const bool told = header->length() > list->viewport()->width() &&
                                  header->model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole) == title;
                if (!told && !hasTitleRoom(header, title, header->sectionSize(column))) {
                    note(list, title);
                }
            }
        }
    }

    void values()
    {
        for (const auto *box : shownIn<QWidget>(form_)) {
            const auto text = longestOf(box);
            const bool typed = qobject_cast<const QLineEdit *>(box) != nullptr;
            const bool value = qobject_cast<const ui::Label *>(box) != nullptr;
            if (!text.isEmpty() && (typed || value) && !hasRoom(box, text)) {
                note(box, text);
            }
        }
    }

    void entries()
    {
        for (const auto *combo : shownIn<QComboBox>(form_)) {
            QStyleOptionComboBox option;
            option.initFrom(combo);
            const int room = combo->style()
                                 ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                                 .width();
            for (int entry = 0; entry < (combo->isEditable() ? 0 : combo->count()); ++entry) {
                if (combo->fontMetrics().horizontalAdvance(combo->itemText(entry)) > room) {
                    note(combo, combo->itemText(entry));
                }
            }
        }
    }

    /// Controls that lie beyond the border of what they stand in.
    void outside()
    {
        for (const auto *control : shownIn<QWidget>(form_)) {
            const auto *holder = control->parentWidget();
            const bool placed = holder->layout() != nullptr && !control->isWindow();
            if (placed && !holder->rect().contains(control->geometry())) {
                note(control, u"beyond its border"_s);
            }
        }
    }

    const ui::Form *form_;
    QStringList found_;
};

/// The places of all controls that are seen.
QMap<QString, QRect> places(const ui::Form *form)
{
    QMap<QString, QRect> all;
    for (const auto *control : shownIn<QWidget>(form)) {
        if (!control->objectName().startsWith(u"qt_"_s) && !control->objectName().isEmpty()) {
            all.insert(control->objectName(), QRect(control->mapTo(form, QPoint()), control->size()));
        }
    }
    return all;
}

/// The ground of a box, read from a picture of the window inside its border, where no text stands.
QColor groundOf(const QWidget *box, const QImage &picture)
{
    const auto *window = box->window();
    const QPoint place = box->mapTo(window, QPoint(box->width() / 2, box->height() - 4));
    return picture.pixelColor(place);
}

int distance(const QColor &one, const QColor &other)
{
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

/// What the tip over a control tells; a mark where there is none.
QString toldAt(QWidget *widget, const QPoint &place)
{
    QToolTip::showText(widget->mapToGlobal(place), u"-"_s, widget);
    QHelpEvent help(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &help);
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
}

} // namespace

/// How every window looks: nothing is cut, what can't be typed in looks so, nothing moves, a low screen and a dark
/// desktop suit it.
class TstAparencia : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyWindowIsWalked();
    void nothingIsCut_data();
    void nothingIsCut();
    void fitsALowScreen_data();
    void fitsALowScreen();
    void paymentFitsALowScreen();
    void valuesMoveNothing_data() { windows(); }
    void valuesMoveNothing();
    void readOnlyBoxesLookAlike_data() { onBothPalettes(); }
    void readOnlyBoxesLookAlike();
    void greyedTextCanBeRead_data() { onBothPalettes(); }
    void greyedTextCanBeRead();
    void cutValuesAreTold_data() { windows(); }
    void cutValuesAreTold();
    void darkDesktopHasADarkArea();

private:
    static void windows();
    static void onBothPalettes();
    ui::Form *open(const QString &window, int mode, const QString &layout);
    ui::Form *openRow();
    void openMain(int points);

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<Surroundings> surroundings_;
    std::unique_ptr<ui::Form> splash_;
};

void TstAparencia::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
}

void TstAparencia::init()
{
    surroundings_ = std::make_unique<Surroundings>();
    program_ = std::make_unique<support::Program>();
    program_->originBook();
}

void TstAparencia::cleanup()
{
    ui::Forms::instance().unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    splash_.reset();
    shell::fechaPrincipal();
    program_.reset();
    surroundings_.reset();
}

void TstAparencia::windows()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("layout");
    for (const Use &use : uses) {
        QTest::addRow("%s, mode %d, layout %s", use.window, use.mode, use.layout)
            << QString::fromLatin1(use.window) << int(use.mode) << QString::fromLatin1(use.layout);
    }
}

void TstAparencia::onBothPalettes()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

ui::Form *TstAparencia::open(const QString &window, int mode, const QString &layout)
{
    program_->config(u"LayoutOS"_s, layout);
    core::ModoChamada = qint16(mode);
    core::CodigoConsulta = 0;
    if (window == u"frmSplash"_s) {
        // Its load is the whole start of the program.
        splash_ = std::make_unique<shell::frmSplash>();
        splash_->show();
        return splash_.get();
    }
    auto *form = support::show(window);
    QCoreApplication::processEvents();
    return form;
}

ui::Form *TstAparencia::openRow()
{
    QFETCH(QString, window);
    QFETCH(int, mode);
    QFETCH(QString, layout);
    return open(window, mode, layout);
}

void TstAparencia::everyWindowIsWalked()
{
    QStringList walked;
    for (const Use &use : uses) {
        walked << QString::fromLatin1(use.window);
    }
    for (const QString &name : ui::Forms::instance().names()) {
        QVERIFY2(walked.contains(name), qPrintable(name));
    }
}

void TstAparencia::nothingIsCut_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("points");
    for (const Use &use : uses) {
        for (const int points : {10, 11, 14}) {
            QTest::addRow("%s, mode %d, layout %s, %d points", use.window, use.mode, use.layout, points)
                << QString::fromLatin1(use.window) << int(use.mode) << QString::fromLatin1(use.layout) << points;
        }
    }
}

void TstAparencia::nothingIsCut()
{
    QFETCH(int, points);
    surroundings_->setPoints(points);
    const auto *form = openRow();
    onEveryPage(form, [form] {
        const auto cut = Cut(form).found();
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
    });
}

/// The main window as on a screen of 1024x600 without a task bar.
void TstAparencia::openMain(int points)
{
    surroundings_->setPoints(points);
    auto &main = shell::principal();
    main.MDIForm_Load();
    main.showNormal();
    main.resize(1024, 600);
    QVERIFY(QTest::qWaitForWindowExposed(&main));
    QTRY_COMPARE(main.size(), QSize(1024, 600));
}

void TstAparencia::fitsALowScreen_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("points");
    for (const Use &use : uses) {
        for (const int points : {10, 11}) {
            if (use.inArea) {
                QTest::addRow("%s, mode %d, layout %s, %d points", use.window, use.mode, use.layout, points)
                    << QString::fromLatin1(use.window) << int(use.mode) << QString::fromLatin1(use.layout) << points;
            }
        }
    }
}

void TstAparencia::fitsALowScreen()
{
    QFETCH(QString, window);
    QFETCH(int, mode);
    QFETCH(QString, layout);
    QFETCH(int, points);
    openMain(points);
    program_->config(u"LayoutOS"_s, layout);
    core::ModoChamada = qint16(mode);
    core::CodigoConsulta = 0;
    const auto *form = ui::Forms::instance().Show(window);
    QCoreApplication::processEvents();
    const auto *area = shell::principal().findChild<QMdiArea *>(u"MDIArea"_s);
    const auto *frame = form->parentWidget();
    QVERIFY2(area->viewport()->rect().contains(frame->geometry()), qPrintable(u"%1x%2 in %3x%4"_s.arg(frame->width())
                                                                                  .arg(frame->height())
                                                                                  .arg(area->viewport()->width())
                                                                                  .arg(area->viewport()->height())));
    onEveryPage(form, [form] {
        const auto cut = Cut(form).found();
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
    });
}

/// It stands alone, so the screen bounds it, with a title bar above.
void TstAparencia::paymentFitsALowScreen()
{
    constexpr int titleBar = 40;
    for (const int points : {10, 11}) {
        surroundings_->setPoints(points);
        auto *form = open(u"frmOSFormaPagto"_s, 0, u"1"_s);
        QVERIFY2(form->minimumSizeHint().height() <= 600 - titleBar,
                 qPrintable(QString::number(form->minimumSizeHint().height())));
        QVERIFY(form->minimumSizeHint().width() <= 1024);
        form->resize(1024, 600 - titleBar);
        onEveryPage(form, [form] {
            const auto cut = Cut(form).found();
            QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
        });
        form->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void TstAparencia::valuesMoveNothing()
{
    const auto *form = openRow();
    onEveryPage(form, [form] {
        const auto before = places(form);
        for (auto *value : shownIn<ui::Label>(form)) {
            if (value->frameShape() != QFrame::NoFrame) {
                const auto text = longestOf(value);
                const QSignalBlocker quiet(value); // what a window does about its values is not looked at here
                value->setText(text.isEmpty() ? u"MARIA APARECIDA DE OLIVEIRA CAVALCANTI"_s : text);
            }
        }
        QCoreApplication::processEvents();
        const auto after = places(form);
        for (auto place = before.begin(); place != before.end(); ++place) {
            QVERIFY2(after.value(place.key()) == place.value(), qPrintable(place.key()));
        }
    });
}

/// Every box that can't be typed in has the ground of the windows, every other one the ground of texts, on a window as
/// on the lighter page of a tab.
void TstAparencia::readOnlyBoxesLookAlike()
{
    QFETCH(bool, dark);
    if (dark) {
        Surroundings::setDark();
    }
    const auto palette = QApplication::palette();
    const QColor locked = palette.color(QPalette::Window);
    const QColor open = palette.color(QPalette::Base);
    QVERIFY(distance(locked, open) > 20);
    int values = 0;
    for (const Use &use : uses) {
        auto *form = this->open(QString::fromLatin1(use.window), use.mode, QString::fromLatin1(use.layout));
        for (auto *edit : form->findChildren<QLineEdit *>()) {
            edit->clear();
        }
        onEveryPage(form, [&] {
            QWidget *const focus = form->focusWidget();
            if (focus != nullptr) {
                focus->clearFocus();
            }
            const auto picture = form->window()->grab().toImage();
            for (const auto *value : shownIn<ui::Label>(form)) {
                if (value->frameShape() != QFrame::NoFrame) {
                    ++values;
                    QVERIFY2(distance(groundOf(value, picture), locked) < 6, qPrintable(value->objectName()));
                }
            }
            for (const auto *edit : shownIn<QLineEdit>(form)) {
                const bool typed = edit->isEnabled() && !edit->isReadOnly();
                const bool own = qobject_cast<const QComboBox *>(edit->parentWidget()) == nullptr && edit->hasFrame();
                QVERIFY2(!own || distance(groundOf(edit, picture), typed ? open : locked) < 6,
                         qPrintable(edit->objectName()));
            }
            for (const auto *lines : shownIn<QPlainTextEdit>(form)) {
                const bool typed = lines->isEnabled() && !lines->isReadOnly();
                QVERIFY2(distance(groundOf(lines, picture), typed ? open : locked) < 6,
                         qPrintable(lines->objectName()));
            }
        });
        splash_ ? splash_.reset() : form->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QVERIFY2(values > 50, qPrintable(QString::number(values)));
}

/// What the eye needs between a greyed caption and its ground: lightness apart by a third of the whole scale.
void TstAparencia::greyedTextCanBeRead()
{
    constexpr int third = 85;
    QFETCH(bool, dark);
    if (dark) {
        Surroundings::setDark();
    }
    const auto palette = QApplication::palette();
    const QList<std::pair<QPalette::ColorRole, QPalette::ColorRole>> pairs = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button},
    };
    for (const auto &[text, ground] : pairs) {
        const int apart = std::abs(palette.color(QPalette::Disabled, text).lightness() -
                                   palette.color(QPalette::Disabled, ground).lightness());
        QVERIFY2(apart >= third, qPrintable(QString::number(apart)));
        QVERIFY(palette.color(QPalette::Disabled, text) != palette.color(QPalette::Active, text));
    }
}

/// A value that is longer than its box ends in dots and is told whole; one that is seen whole is not told again.
void TstAparencia::cutValuesAreTold()
{
    const auto *form = openRow();
    const QString name =
        QString(u"MARIA APARECIDA DE OLIVEIRA CAVALCANTI ALBUQUERQUE E SILVA "_s).repeated(5).trimmed();
    onEveryPage(form, [&] {
        for (auto *value : shownIn<ui::Label>(form)) {
            if (value->frameShape() != QFrame::NoFrame) {
                const QSignalBlocker quiet(value);
                const auto before = value->text();
                value->setText(name);
                QVERIFY2(toldAt(value, value->rect().center()).startsWith(name), qPrintable(value->objectName()));
                value->setText(u"12"_s);
                QVERIFY2(!toldAt(value, value->rect().center()).startsWith(u"12"_s), qPrintable(value->objectName()));
                value->setText(before);
            }
        }
        for (auto *edit : shownIn<QLineEdit>(form)) {
            const QSignalBlocker quiet(edit);
            const auto before = edit->text();
            edit->setText(name);
            const auto shown = edit->text();
            const bool cut = edit->echoMode() == QLineEdit::Normal && !hasRoom(edit, shown);
            QVERIFY2(toldAt(edit, edit->rect().center()).startsWith(shown) == cut, qPrintable(edit->objectName()));
            edit->setText(before);
        }
    });
}

void TstAparencia::darkDesktopHasADarkArea()
{
    Surroundings::setDark();
    program_->config(u"DesativarGraficos"_s, u"N"_s, u"Personalizacao"_s);
    QImage bright(1024, 768, QImage::Format_RGB32);
    bright.fill(Qt::white);
    QVERIFY(bright.save(program_->path(u"DADOS/bg1024.bmp"_s)));
    openMain(10);
    auto *area = shell::principal().findChild<shell::AreaFundo *>(u"MDIArea"_s);
    const auto lightness = [area] {
        const auto picture = area->viewport()->grab().toImage();
        return picture.pixelColor(picture.rect().center()).lightness();
    };
    area->setFundo({});
    QVERIFY2(lightness() < 100, qPrintable(QString::number(lightness())));
    area->setFundo(program_->path(u"DADOS/bg1024.bmp"_s));
    QVERIFY(area->temFundo());
    QVERIFY2(lightness() < 128, qPrintable(QString::number(lightness())));
}

TARVELO_TEST_MAIN(TstAparencia)
#include "tst_aparencia.moc"
