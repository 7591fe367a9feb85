#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/boxes.h"
#include "support/modal.h"
#include "support/program.h"
#include "workorders/abertura.h"
#include "workorders/workorders.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// A window in one of its states: each shows other controls.
struct State {
    const char *name;
    const char *window;
    int mode = 0;
    const char *layout = "1";
    const char *custom = "0-0";
    const char *tabs = nullptr;
    int page = 0;
};

constexpr State states[] = {
    {"splash", "frmSplash"},
    {"login", "frmSenha"},
    {"operators", "frmSenhaManut"},
    {"about", "frmInfo"},
    {"notices", "frmInfoAviso"},
    {"manual", "frmManual"},
    {"settings of estimates", "frmConfigOrcamento"},
    {"logo", "frmConfigLogo"},
    {"customers", "frmCadaCliente"},
    {"customers as picker", "frmCadaCliente", 1},
    {"suppliers", "frmCadaFornecedor"},
    {"vehicles", "frmCadaVeiculos"},
    {"parts", "frmCadaPecas"},
    {"quick register", "frmCadaFast"},
    {"cheques", "frmMoviCheques"},
    {"stock", "frmMoviEstoque"},
    {"receipt of parts", "frmMoviEntradaPeca"},
    {"cash book", "frmMoviCaixa"},
    {"cash book as a report", "frmMoviCaixa", 30},
    {"origin book", "frmMoviLivroOrigem"},
    {"general balance", "frmBalanco"},
    {"pending orders", "frmMoviFiados"},
    {"account of a customer", "frmMoviFiadosConta"},
    {"customers with an account", "frmMoviFiadosConta", 11},
    {"suppliers' notes", "frmMoviEntradaPecaConsulta"},
    {"supplier's note of a report", "frmMoviEntradaPecaConsulta", 21},
    {"notes of one supplier", "frmMoviEntradaPecaConsultaFornecedor", 34},
    {"selection of notes", "frmRelaSelecaoNotasEntradas"},
    {"preview", "frmRelaPreVisualiza"},
    {"what was sold, selection", "frmRelaSelecaoPecas"},
    {"cheques, selection", "frmRelaSelecaoCheques"},
    {"payment of an order", "frmRelatorio", 25},
    {"stock of all parts", "frmRelatorio", 22},
    {"what was sold", "frmRelatorio", 38},
    {"estimate", "frmOSOrcaNovo"},
    {"estimate, job values", "frmOSOrcaNovo", 0, "1", "1-1"},
    {"query of estimates", "frmOSOrcaConsulta"},
    {"query of estimates, picking", "frmOSOrcaConsulta", 14, "2"},
    {"estimate altered", "frmOSOrcaAltera"},
    {"order, compact", "frmOSAbre"},
    {"order, compact, material", "frmOSAbre", 0, "1", "0-0", "tabItems", 3},
    {"order, job values", "frmOSAbre", 0, "1", "1-1"},
    {"order, parts", "frmOSAbre", 0, "3"},
    {"order, services", "frmOSAbre", 0, "3", "0-0", "tabItems", 1},
    {"order, outsourced", "frmOSAbre", 0, "3", "0-0", "tabItems", 2},
    {"order, material", "frmOSAbre", 0, "3", "0-0", "tabItems", 3},
    {"altered order, compact", "frmOSAltera"},
    {"altered order, compact, material", "frmOSAltera", 0, "1", "0-0", "tabItems", 3},
    {"altered order, parts", "frmOSAltera", 0, "3"},
    {"altered order, services", "frmOSAltera", 0, "3", "0-0", "tabItems", 1},
    {"altered order, outsourced", "frmOSAltera", 0, "3", "0-0", "tabItems", 2},
    {"altered order, calculator", "frmOSAltera", 0, "3", "0-0", "tabItems", 4},
    {"query, compact", "frmOSConsulta"},
    {"query, full", "frmOSConsulta", 0, "3"},
    {"query, services", "frmOSConsulta", 0, "3", "0-0", "tabItems", 1},
    {"query, outsourced", "frmOSConsulta", 0, "3", "0-0", "tabItems", 2},
    {"query, material", "frmOSConsulta", 0, "3", "0-0", "tabItems", 3},
    {"query that closes", "frmOSConsulta", 9},
    {"query for the altering window", "frmOSConsulta", 7},
    {"query for the note", "frmOSConsulta", 40},
    {"query of one order", "frmOSConsulta", 10},
    {"notes", "frmNota"},
    {"orders, selection", "frmRelaSelecaoOS"},
    {"accounts, selection", "frmRelaSelecaoContasPR"},
    {"report of orders", "frmRelatorio", 26},
    {"report of accounts", "frmRelatorio", 27},
    {"payment, cash", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 0},
    {"payment, cheque", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 1},
    {"payment, payment book", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 2},
    {"payment, cheques", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 3},
    {"payment, others", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 4},
    {"payment, customized", "frmOSFormaPagto", 0, "1", "0-0", "tabPagto", 5},
    {"accounts to receive", "frmMoviContasPR"},
    {"accounts to pay", "frmMoviContasPR", 0, "1", "0-0", "tabContas", 1},
    {"receivable, whole", "frmMoviContasPRBaixa"},
    {"receivable, in part", "frmMoviContasPRBaixa", 0, "1", "0-0", "tabPagto", 1},
};

/// One option stands for its group: the chosen one, else the first; the arrows go to the others.
bool standsForItsGroup(QRadioButton *option)
{
    const auto group = option->parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly);
    const auto chosen = std::ranges::find_if(group, &QRadioButton::isChecked);
    return option == (chosen == group.end() ? group.first() : *chosen);
}

/// A whole control that Tab has to meet: the parts of a combo or a list are not told apart, and what hands its focus on
/// is met where it goes.
bool isStop(const ui::Form &form, QWidget *widget)
{
    auto *option = qobject_cast<QRadioButton *>(widget);
    if (option && !standsForItsGroup(option)) {
        return false;
    }
    return (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled() && widget->isVisibleTo(&form) &&
           widget->window() == form.window() && !widget->focusProxy() && form.controlOf(widget) == widget;
}

QString nameOf(const QWidget *widget)
{
    const auto name = widget->objectName();
    return name.startsWith(u"qt_") ? widget->parentWidget()->objectName() + u'/' + name : name;
}

QStringList stopsOf(const ui::Form &form)
{
    QStringList names;
    for (auto *widget : form.findChildren<QWidget *>()) {
        if (isStop(form, widget)) {
            names.append(nameOf(widget));
        }
    }
    return names;
}

QWidget *focused(const ui::Form &form)
{
    auto *focus = QApplication::focusWidget();
    return focus && form.isAncestorOf(focus) ? form.controlOf(focus) : nullptr;
}

void press(const ui::Form &form, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    const QString text = key == Qt::Key_Return ? u"\r"_s : key == Qt::Key_Tab ? u"\t"_s : QString();
    QTest::sendKeyEvent(QTest::Click, form.window()->windowHandle(), key, text, modifiers);
}

/// Enter has a use of its own there.
bool keepsEnter(QWidget *control)
{
    const auto *list = qobject_cast<const ui::ListView *>(control);
    return qobject_cast<QPushButton *>(control) || qobject_cast<QToolButton *>(control) || (list && list->usesEnter());
}

/// The options stand beside each other or one below the other.
void byArrow(const ui::Form &form)
{
    const auto *before = focused(form);
    press(form, Qt::Key_Right);
    if (focused(form) == before) {
        press(form, Qt::Key_Down);
    }
}

void byTab(const ui::Form &form)
{
    press(form, Qt::Key_Tab);
}

void byShiftTab(const ui::Form &form)
{
    press(form, Qt::Key_Backtab, Qt::ShiftModifier);
}

void byEnter(const ui::Form &form)
{
    press(form, keepsEnter(focused(form)) ? Qt::Key_Tab : Qt::Key_Return);
}

void byShiftEnter(const ui::Form &form)
{
    keepsEnter(focused(form)) ? byShiftTab(form) : press(form, Qt::Key_Return, Qt::ShiftModifier);
}

/// The controls from the one that has the focus, until one is met for the second time.
QStringList round(const ui::Form &form, void (*step)(const ui::Form &))
{
    QStringList met;
    for (auto *at = focused(form); at && !met.contains(nameOf(at)); at = focused(form)) {
        met.append(nameOf(at));
        step(form);
    }
    return met;
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

/// The round the other way about, from the same beginning.
QStringList backwards(const QStringList &names)
{
    QStringList turned{names.first()};
    for (auto i = names.size() - 1; i > 0; --i) {
        turned.append(names.at(i));
    }
    return turned;
}

} // namespace

/// Every control that can be used can be reached by the keyboard, once in a round, there and back, in every window.
class TstPercurso : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyWindowIsWalked();
    void theKeysMeetEveryControlOnce_data();
    void theKeysMeetEveryControlOnce();
    void theArrowsMeetTheOptionsOfAGroup_data();
    void theArrowsMeetTheOptionsOfAGroup();

private:
    void newOrder();
    ui::Form *open(const State &state);

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
};

void TstPercurso::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    workorders::registerForms();
    reports::registerForms();
}

void TstPercurso::init()
{
    program_ = std::make_unique<support::Program>();
    program_->originBook();
    boxes_ = std::make_unique<support::Boxes>();
    newOrder();
}

void TstPercurso::cleanup()
{
    support::failNotShown();
    boxes_.reset();
    program_.reset();
}

/// One order with an item for each list, so that no list is empty.
void TstPercurso::newOrder()
{
    const qint32 customer = program_->customer(u"MARIA"_s, u"500,00"_s);
    const QString part = QString::number(program_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s, true));
    workorders::NovaOrdem order;
    order.codCliente = QString::number(customer);
    order.codVeiculo = QString::number(program_->vehicle(customer, u"ABC1D23"_s));
    order.valor = u"100,00"_s;
    order.itens = {{part, u"P"_s, u"02"_s, u"FILTRO"_s, u"50,00"_s, {}},
                   {u"0000"_s, u"Z"_s, u"01"_s, u"LAVAGEM"_s, u"20,00"_s, {}},
                   {u"0000"_s, u"X"_s, u"01"_s, u"TORNO"_s, u"20,00"_s, {}},
                   {part, u"K"_s, u"01"_s, u"ESTOPA"_s, u"0,00"_s, {}}};
    core::CodigoConsulta = workorders::AbreOrdem(order);
}

ui::Form *TstPercurso::open(const State &state)
{
    const auto window = QString::fromLatin1(state.window);
    program_->config(u"LayoutOS"_s, QString::fromLatin1(state.layout));
    program_->config(u"Personalizacao"_s, QString::fromLatin1(state.custom));
    program_->config(u"PreencheCadastroAutomatico"_s, u"S"_s);
    core::ModoChamada = qint16(state.mode);
    if (window == u"frmSplash") {
        support::whenShown(u"frmSenha"_s, [] { ui::Forms::instance().Unload(u"frmSenha"_s); });
        ui::Forms::instance().Load(window);
    }
    auto *form = support::show(window);
    if (state.tabs) {
        support::control<QTabWidget>(form, QString::fromLatin1(state.tabs))->setCurrentIndex(state.page);
    }
    return form;
}

void TstPercurso::everyWindowIsWalked()
{
    QStringList walked;
    for (const auto &state : states) {
        walked.append(QString::fromLatin1(state.window));
    }
    walked.removeDuplicates();
    QCOMPARE(sorted(walked), ui::Forms::instance().names());
}

void TstPercurso::theKeysMeetEveryControlOnce_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(std::size(states)); ++index) {
        QTest::newRow(states[index].name) << index;
    }
}

void TstPercurso::theKeysMeetEveryControlOnce()
{
    QFETCH(int, index);
    auto *form = open(states[index]);
    if (!focused(*form)) {
        byTab(*form); // the splash waits for nobody
    }
    const auto stops = stopsOf(*form);
    const auto met = round(*form, byTab);
    QCOMPARE(sorted(met).join(u' '), sorted(stops).join(u' '));

    // Each round ends where it began.
    QCOMPARE(nameOf(focused(*form)), met.first());
    QCOMPARE(round(*form, byShiftTab), backwards(met));
    QCOMPARE(nameOf(focused(*form)), met.first());
    QCOMPARE(round(*form, byEnter), met);
    QCOMPARE(round(*form, byShiftEnter), backwards(met));
    QCOMPARE(nameOf(focused(*form)), met.first());
}

void TstPercurso::theArrowsMeetTheOptionsOfAGroup_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("kind of part") << u"frmCadaPecas"_s << QStringList{u"optPeca"_s, u"optServico"_s};
    QTest::newRow("stock control") << u"frmCadaPecas"_s << QStringList{u"optSim"_s, u"optNao"_s};
    QTest::newRow("account") << u"frmMoviFiadosConta"_s << QStringList{u"optEntrada"_s, u"optSaida"_s};
    QTest::newRow("ledger of a payment") << u"frmMoviContasPRBaixa"_s
                                         << QStringList{u"optCaixa"_s, u"optBanco1"_s, u"optBanco2"_s};
    QTest::newRow("posting") << u"frmMoviEstoque"_s << QStringList{u"optEntrada"_s, u"optSaida"_s, u"optConf"_s};
}

/// Tab comes back to the one that was chosen last.
void TstPercurso::theArrowsMeetTheOptionsOfAGroup()
{
    QFETCH(QString, window);
    QFETCH(QStringList, options);
    auto *form = support::show(window);
    support::controlOf(form, options.first())->setFocus();
    QStringList met{nameOf(focused(*form))};
    while (met.size() < options.size()) {
        byArrow(*form);
        met.append(nameOf(focused(*form)));
    }
    QCOMPARE(met, options);
    byTab(*form);
    QVERIFY(!options.contains(nameOf(focused(*form))));
    byShiftTab(*form);
    QCOMPARE(nameOf(focused(*form)), options.last());
}

TARVELO_TEST_MAIN(TstPercurso)
#include "tst_percurso.moc"
