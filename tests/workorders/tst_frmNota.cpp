#include "support/boxes.h"
#include "support/cadastro.h"
#include "tests/workorders/notas.h"

#include "core/config.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "workorders/workorders.h"

#include <QComboBox>
#include <QDir>
#include <QFile>

#include <memory>

using namespace Qt::StringLiterals;
using namespace notas;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

const QString printed = u"A Impressão foi concluída com sucesso"_s;
const QString tooMany = u"Número máximo de itens na nota de peças permitido é 23"_s;
const QString notFound = u"Código da O.S. Não Localizado"_s;
const QString already = u"O.S. Já adicionada"_s;
const QString onlyOf = u"Você só pode adicionar O.S. do cliente: MARIA DA SILVA"_s;
const QString noCustomer = u"Cliente Não Localizado"_s;

using Rows = std::vector<QStringList>;

} // namespace

/// The window that prints notes: its orders, its limits, its numbers, its printer.
class TstFrmNota : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { workorders::registerForms(); }
    void init();
    void cleanup();

    void theWindowOpensEmpty();
    void thePrintersAreListed();

    void anOrderIsAdded();
    void everyLetterGoesToItsList();
    void unitsAndTaxesStandInTheirColumns();
    void ordersOfOneCustomerAddUp();
    void theSameOrderTwiceIsRefused_data();
    void theSameOrderTwiceIsRefused();
    void anUnknownOrderIsRefused_data();
    void anUnknownOrderIsRefused();
    void anotherCustomersOrderIsRefused();
    void anOrderWithoutItsCustomerIsRefused_data();
    void anOrderWithoutItsCustomerIsRefused();
    void aRefusedOrderFixesNoCustomer();
    void aCustomerDeletedMeanwhileIsRefused();
    void addingWaitsForANumber();

    void theLimits_data();
    void theLimits();
    void anEmptyNoteIsPrinted_data();
    void anEmptyNoteIsPrinted();
    void theNoteShowsWhatTheWindowShows();
    void twoNotesFollowEachOther();
    void theNumberIsReadAgainBehindTheMessage();
    void aPrinterErrorLeavesTheNumber();
    void thePrinterThatWasChosenIsUsedOnce_data();
    void thePrinterThatWasChosenIsUsedOnce();
    void nothingIsWrittenToTheDatabase();

    void theQueryHandsTheOrderBack_data();
    void theQueryHandsTheOrderBack();
    void enterGoesFromTheNumberToTheNote();
    void backUnloads();

private:
    void open();
    void add(const QString &code) const;
    Rows rowsOf(const QString &list) const;
    int count(const QString &list) const { return control<ui::ListView>(window_, list)->count(); }
    QString shown(const QString &name) const { return text(window_, name); }
    QStringList page() const;
    int documents() const { return int(QDir(program_->path(u"impressos"_s)).entryList({u"*.pdf"_s}).size()); }
    static QString number(const QString &key) { return core::LeINI(u"CONFIG"_s, key, false); }
    void nothingWasAdded() const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *window_ = nullptr;
    qint32 maria_ = 0;
    qint32 car_ = 0;
};

void TstFrmNota::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(core::NomeEmpresa);
    program_->config(u"NotaPeca"_s, u"000000"_s);
    program_->config(u"NotaServico"_s, u"000000"_s);
    maria_ = fullCustomer(*program_);
    car_ = program_->vehicle(maria_, u"ABC1D23"_s);
}

void TstFrmNota::cleanup()
{
    boxes_.reset();
    program_.reset();
    window_ = nullptr;
}

void TstFrmNota::open()
{
    window_ = support::show(u"frmNota"_s);
}

void TstFrmNota::add(const QString &code) const
{
    type(window_, u"txtOS"_s, code, false);
    click(window_, u"btnItemAdd"_s);
}

Rows TstFrmNota::rowsOf(const QString &list) const
{
    auto *view = control<ui::ListView>(window_, list);
    Rows all;
    for (int row = 0; row < view->count(); ++row) {
        QStringList cells;
        for (int column = 0; column < view->columnCount(); ++column) {
            cells << view->item(row).subItem(column);
        }
        all.push_back(cells);
    }
    return all;
}

/// The lines of the note that was printed last.
QStringList TstFrmNota::page() const
{
    const auto &document = printer::printer().lastDocument();
    return document.empty() ? QStringList() : document.front().lines();
}

void TstFrmNota::nothingWasAdded() const
{
    QCOMPARE(count(u"lstOS"_s), 0);
    QCOMPARE(count(u"lstPecas"_s), 0);
    QCOMPARE(count(u"lstServicos"_s), 0);
    QCOMPARE(shown(u"lblNome"_s), QString());
    QCOMPARE(shown(u"lblTotalPecas"_s), u"0,00"_s);
    QCOMPARE(shown(u"lblTotalServicos"_s), u"0,00"_s);
}

// --- opening

void TstFrmNota::theWindowOpensEmpty()
{
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Impressão de Notas]"_s);
    const auto titles = [this](const QString &list) {
        const auto *model = control<ui::ListView>(window_, list)->model();
        QStringList all;
        for (int column = 0; column < model->columnCount(); ++column) {
            all << model->headerData(column, Qt::Horizontal).toString();
        }
        return all;
    };
    QCOMPARE(titles(u"lstOS"_s), (QStringList{u"Cód OS."_s, u"Placa"_s}));
    QCOMPARE(titles(u"lstPecas"_s),
             (QStringList{u"Código"_s, u"Descrição"_s, u"Class. Fiscal"_s, u"Sit. Trib."_s, u"Unidade"_s,
                          u"Quantidade"_s, u"V. Unit."_s, u"V. Total"_s, u"Alíquota ICMS"_s}));
    QCOMPARE(titles(u"lstServicos"_s),
             (QStringList{u"Quantidade"_s, u"Unidade"_s, u"Especificação"_s, u"V. Unit."_s, u"V. Total"_s}));
    QCOMPARE(control<QAbstractButton>(window_, u"Command1"_s)->text().remove(u'&'), u"Imprimir Nota Peças"_s);
    QCOMPARE(control<QAbstractButton>(window_, u"Command2"_s)->text().remove(u'&'), u"Imprimir Nota Serviços"_s);
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
    nothingWasAdded();
}

void TstFrmNota::thePrintersAreListed()
{
    open();
    const auto *combo = control<QComboBox>(window_, u"cboPrinter"_s);
    QStringList names;
    for (int entry = 0; entry < combo->count(); ++entry) {
        names << combo->itemText(entry);
    }
    QCOMPARE(names, printer::devices());
    QCOMPARE(combo->currentText(), printer::printer().DeviceName());
}

// --- the orders of a note

void TstFrmNota::anOrderIsAdded()
{
    order(maria_, car_,
          {line(0, u"A"_s, u"02"_s, u"ESTOPA"_s, u"1.250,75"_s), line(0, u"Z"_s, u"01"_s, u"LAVAGEM"_s, u"35,00"_s)});
    open();
    add(u"1"_s);
    QCOMPARE(rowsOf(u"lstOS"_s), (Rows{{u"0001"_s, u"ABC1D23"_s}}));
    QCOMPARE(rowsOf(u"lstPecas"_s),
             (Rows{{u"0000"_s, u"ESTOPA"_s, {}, {}, u"UNIDADE"_s, u"02"_s, u"1.250,75"_s, u"2.501,50"_s, {}}}));
    QCOMPARE(rowsOf(u"lstServicos"_s), (Rows{{u"01"_s, u"UNIDADE"_s, u"LAVAGEM"_s, u"35,00"_s, u"35,00"_s}}));
    QCOMPARE(shown(u"lblTotalPecas"_s), u"2.501,50"_s);
    QCOMPARE(shown(u"lblTotalServicos"_s), u"35,00"_s);
    const cadastro::Fields customer{{u"lblCodCliente"_s, u"0001"_s},     {u"lblNome"_s, u"MARIA DA SILVA"_s},
                                    {u"lblCPF"_s, u"123.456.789-09"_s},  {u"lblEndereco"_s, u"RUA DAS PALMEIRAS"_s},
                                    {u"lblNumero"_s, u"120"_s},          {u"lblBairro"_s, u"CENTRO"_s},
                                    {u"lblCEP"_s, u"15080-130"_s},       {u"lblCidade"_s, u"RIO PRETO"_s},
                                    {u"lblFone1"_s, u"(17)3232-1010"_s}, {u"lblEstado"_s, u"SÃO PAULO"_s},
                                    {u"lblRG"_s, u"12.345.678-9"_s}};
    QCOMPARE(cadastro::shown(window_, customer), customer);
    QCOMPARE(shown(u"txtOS"_s), QString());
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
}

void TstFrmNota::everyLetterGoesToItsList()
{
    std::vector<documents::LinhaItem> lines;
    for (const QString &letter : {u"P"_s, u"A"_s, u"S"_s, u"Z"_s, u"X"_s, u"K"_s}) {
        lines.push_back(line(0, letter, u"01"_s, u"ITEM "_s + letter, u"10,00"_s));
    }
    order(maria_, car_, lines);
    open();
    add(u"1"_s);
    const auto column = [this](const QString &list, int place) {
        QStringList texts;
        for (const QStringList &row : rowsOf(list)) {
            texts << row.at(place);
        }
        return texts;
    };
    QCOMPARE(column(u"lstPecas"_s, 1), (QStringList{u"ITEM P"_s, u"ITEM A"_s}));
    QCOMPARE(column(u"lstServicos"_s, 2), (QStringList{u"ITEM S"_s, u"ITEM Z"_s}));
    QCOMPARE(shown(u"lblTotalPecas"_s), u"20,00"_s);
    QCOMPARE(shown(u"lblTotalServicos"_s), u"20,00"_s);
}

void TstFrmNota::unitsAndTaxesStandInTheirColumns()
{
    constexpr int litres = 2;
    const qint32 oil = program_->part(u"ÓLEO"_s, u"P"_s, u"30,00"_s, false, litres);
    program_->sql(u"UPDATE Pecas SET ICMS = 18, ClassFiscal = '8708.93.00'"_s);
    order(maria_, car_, {line(oil, u"P"_s, u"3,5"_s, u"ÓLEO 20W50"_s, u"30,00"_s)});
    order(maria_, car_, {line(99, u"P"_s, u"01"_s, u"DE PEÇA EXCLUÍDA"_s, u"5,00"_s)});
    open();
    add(u"1"_s);
    add(u"2"_s);
    QCOMPARE(rowsOf(u"lstPecas"_s),
             (Rows{{u"0001"_s,
                    u"ÓLEO 20W50"_s,
                    u"8708.93.00"_s,
                    {},
                    u"LITROS"_s,
                    u"3,500"_s,
                    u"30,00"_s,
                    u"105,00"_s,
                    u"18"_s},
                   {u"0099"_s, u"DE PEÇA EXCLUÍDA"_s, {}, {}, u"UNIDADE"_s, u"01"_s, u"5,00"_s, u"5,00"_s, {}}}));
}

void TstFrmNota::ordersOfOneCustomerAddUp()
{
    const qint32 other = program_->vehicle(maria_, u"XYZ-9876"_s);
    order(maria_, car_, many(2, u"P"_s));
    order(maria_, other, many(3, u"P"_s));
    open();
    add(u"2"_s);
    add(u"1"_s);
    QCOMPARE(rowsOf(u"lstOS"_s), (Rows{{u"0002"_s, u"XYZ-9876"_s}, {u"0001"_s, u"ABC1D23"_s}}));
    QCOMPARE(count(u"lstPecas"_s), 5);
    QCOMPARE(shown(u"lblTotalPecas"_s), u"7,50"_s);
    QCOMPARE(shown(u"lblTotalServicos"_s), u"0,00"_s);
}

void TstFrmNota::theSameOrderTwiceIsRefused_data()
{
    QTest::addColumn<QString>("again");
    QTest::newRow("as before") << u"1"_s;
    QTest::newRow("with zeros") << u"0001"_s;
}

void TstFrmNota::theSameOrderTwiceIsRefused()
{
    QFETCH(QString, again);
    order(maria_, car_, many(1, u"P"_s));
    open();
    add(u"1"_s);
    program_->sql(u"DELETE * FROM OrdemServico"_s); // nothing is looked up any more
    boxes_->exclamation(already);
    add(again);
    boxes_->finish();
    QCOMPARE(count(u"lstOS"_s), 1);
    QCOMPARE(count(u"lstPecas"_s), 1);
    QCOMPARE(shown(u"lblTotalPecas"_s), u"1,50"_s);
    QCOMPARE(control<QLineEdit>(window_, u"txtOS"_s)->selectedText(), again);
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
}

void TstFrmNota::anUnknownOrderIsRefused_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("no such order") << u"99"_s;
    QTest::newRow("letters") << u"ABC"_s;
    QTest::newRow("fraction") << u"1,5"_s;
    QTest::newRow("exponent") << u"1E3"_s;
    QTest::newRow("more than a code holds") << u"9999999999"_s;
    QTest::newRow("apostrophe") << u"1'"_s;
    QTest::newRow("blank") << u" "_s;
}

void TstFrmNota::anUnknownOrderIsRefused()
{
    QFETCH(QString, code);
    order(maria_, car_, many(1, u"P"_s));
    open();
    boxes_->exclamation(notFound);
    add(code);
    boxes_->finish();
    nothingWasAdded();
    QCOMPARE(control<QLineEdit>(window_, u"txtOS"_s)->selectedText(), code);
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
}

void TstFrmNota::anotherCustomersOrderIsRefused()
{
    const qint32 jose = program_->customer(u"JOSÉ"_s);
    order(maria_, car_, many(1, u"P"_s));
    order(jose, car_, many(1, u"S"_s));
    open();
    add(u"1"_s);
    boxes_->exclamation(onlyOf);
    add(u"2"_s);
    boxes_->finish();
    QCOMPARE(count(u"lstOS"_s), 1);
    QCOMPARE(count(u"lstServicos"_s), 0);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA DA SILVA"_s);
    QCOMPARE(shown(u"lblTotalServicos"_s), u"0,00"_s);
    QCOMPARE(control<QLineEdit>(window_, u"txtOS"_s)->selectedText(), u"2"_s);
}

void TstFrmNota::anOrderWithoutItsCustomerIsRefused_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("deleted") << u"DELETE * FROM Clientes"_s;
    QTest::newRow("never told") << u"UPDATE OrdemServico SET CodCliente = Null"_s;
}

void TstFrmNota::anOrderWithoutItsCustomerIsRefused()
{
    QFETCH(QString, change);
    order(maria_, car_, many(1, u"P"_s));
    program_->sql(change);
    open();
    boxes_->exclamation(noCustomer);
    add(u"1"_s);
    boxes_->finish();
    nothingWasAdded();
}

void TstFrmNota::aRefusedOrderFixesNoCustomer()
{
    const qint32 jose = program_->customer(u"JOSÉ"_s);
    order(jose, car_, many(1, u"P"_s));
    order(maria_, car_, many(2, u"P"_s));
    program_->sql(u"DELETE * FROM Clientes WHERE Codigo = %1"_s.arg(jose));
    open();
    boxes_->exclamation(noCustomer);
    add(u"1"_s);
    boxes_->finish();
    add(u"2"_s);
    QCOMPARE(rowsOf(u"lstOS"_s), (Rows{{u"0002"_s, u"ABC1D23"_s}}));
    QCOMPARE(shown(u"lblNome"_s), u"MARIA DA SILVA"_s);
}

void TstFrmNota::aCustomerDeletedMeanwhileIsRefused()
{
    order(maria_, car_, many(1, u"P"_s));
    order(maria_, car_, many(1, u"P"_s));
    open();
    add(u"1"_s);
    program_->sql(u"DELETE * FROM Clientes"_s);
    boxes_->exclamation(noCustomer);
    add(u"2"_s);
    boxes_->finish();
    QCOMPARE(count(u"lstOS"_s), 1);
    QCOMPARE(count(u"lstPecas"_s), 1);
}

void TstFrmNota::addingWaitsForANumber()
{
    open();
    const auto *button = control<QWidget>(window_, u"btnItemAdd"_s);
    QVERIFY(!button->isEnabled());
    QVERIFY(button->toolTip().contains(u"Digite o número da ordem de serviço"_s));
    type(window_, u"txtOS"_s, u"1"_s, false);
    QVERIFY(button->isEnabled());
}

// --- printing

void TstFrmNota::theLimits_data()
{
    QTest::addColumn<QString>("letter");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("prints");
    QTest::newRow("23 parts") << u"P"_s << u"Command1"_s << 23 << true;
    QTest::newRow("24 parts") << u"P"_s << u"Command1"_s << 24 << false;
    QTest::newRow("24 services") << u"S"_s << u"Command2"_s << 24 << true;
    QTest::newRow("39 services") << u"S"_s << u"Command2"_s << 39 << true;
    QTest::newRow("40 services") << u"S"_s << u"Command2"_s << 40 << false;
    QTest::newRow("services beside 24 parts") << u"P"_s << u"Command2"_s << 24 << true;
    QTest::newRow("parts beside 40 services") << u"S"_s << u"Command1"_s << 40 << true;
    QTest::newRow("200 items") << u"P"_s << u"Command1"_s << 200 << false;
}

void TstFrmNota::theLimits()
{
    QFETCH(QString, letter);
    QFETCH(QString, button);
    QFETCH(int, rows);
    QFETCH(bool, prints);
    order(maria_, car_, many(rows, letter));
    open();
    add(u"1"_s);
    if (prints) {
        boxes_->information(printed);
    } else {
        boxes_->exclamation(tooMany);
    }
    click(window_, button);
    boxes_->finish();
    QCOMPARE(documents(), prints ? 1 : 0);
    const QString key = button == u"Command1"_s ? u"NotaPeca"_s : u"NotaServico"_s;
    QCOMPARE(number(key), prints ? u"000001"_s : u"000000"_s);
}

void TstFrmNota::anEmptyNoteIsPrinted_data()
{
    QTest::addColumn<bool>("withOrder");
    QTest::newRow("an order without items") << true;
    QTest::newRow("no order") << false;
}

void TstFrmNota::anEmptyNoteIsPrinted()
{
    QFETCH(bool, withOrder);
    order(maria_, car_, {});
    open();
    if (withOrder) {
        add(u"1"_s);
    }
    boxes_->information(printed).information(printed);
    click(window_, u"Command1"_s);
    click(window_, u"Command2"_s);
    boxes_->finish();
    QCOMPARE(documents(), 2);
    QCOMPARE(page().filter(u"0001/ABC1D23"_s).size(), withOrder ? 1 : 0);
}

void TstFrmNota::theNoteShowsWhatTheWindowShows()
{
    program_->config(u"NotaPeca"_s, u"000041"_s);
    order(maria_, car_,
          {line(0, u"P"_s, u"02"_s, u"FILTRO"_s, u"12,50"_s), line(0, u"S"_s, u"01"_s, u"LAVAGEM"_s, u"35,00"_s)});
    open();
    add(u"1"_s);
    program_->sql(u"UPDATE Clientes SET Nome = 'OUTRA'"_s);
    program_->sql(u"DELETE * FROM OSPecas"_s);

    boxes_->information(printed);
    click(window_, u"Command1"_s);
    const QStringList parts = page();
    QVERIFY(parts.first().contains(u"NOTA DE PEÇAS Nº 000042"_s));
    QCOMPARE(parts.filter(u"MARIA DA SILVA"_s).size(), 1);
    QCOMPARE(parts.filter(u"VENDAS"_s).size(), 1);
    QCOMPARE(parts.filter(u"5102"_s).size(), 1);
    QCOMPARE(parts.filter(u"FILTRO"_s).size(), 1);
    QCOMPARE(parts.filter(u"LAVAGEM"_s).size(), 0);
    QVERIFY(parts.filter(u"VALOR TOTAL DAS PEÇAS"_s).first().contains(u" 25,00"_s));

    boxes_->information(printed);
    click(window_, u"Command2"_s);
    const QStringList services = page();
    QVERIFY(services.first().contains(u"NOTA DE SERVIÇOS Nº 000001"_s));
    QCOMPARE(services.filter(u"LAVAGEM"_s).size(), 1);
    QCOMPARE(services.filter(u"FILTRO"_s).size(), 0);
    QVERIFY(services.filter(u"VALOR TOTAL DOS SERVIÇOS"_s).first().contains(u" 35,00"_s));
}

void TstFrmNota::twoNotesFollowEachOther()
{
    program_->config(u"NotaPeca"_s, u"000009"_s);
    order(maria_, car_, many(1, u"P"_s));
    open();
    add(u"1"_s);
    boxes_->information(printed).information(printed);
    click(window_, u"Command1"_s);
    QVERIFY(page().first().contains(u"000010"_s));
    click(window_, u"Command1"_s);
    QVERIFY(page().first().contains(u"000011"_s));
    QCOMPARE(number(u"NotaPeca"_s), u"000011"_s);
    QCOMPARE(number(u"NotaServico"_s), u"000000"_s);

    ui::Forms::instance().Unload(u"frmNota"_s);
    open();
    nothingWasAdded();
    boxes_->information(printed);
    click(window_, u"Command1"_s);
    QVERIFY(page().first().contains(u"000012"_s));
}

/// Another workstation has taken numbers while the message stood.
void TstFrmNota::theNumberIsReadAgainBehindTheMessage()
{
    open();
    support::Boxes::whileUp([] {
        core::GravaINI(u"Config"_s, u"NotaPeca"_s, u"000050"_s, false);
        return QString();
    });
    boxes_->information(printed);
    click(window_, u"Command1"_s);
    QVERIFY(page().first().contains(u"000001"_s));
    QCOMPARE(number(u"NotaPeca"_s), u"000051"_s);
}

void TstFrmNota::aPrinterErrorLeavesTheNumber()
{
    QFile file(program_->path(u"ocupado"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    printer::printer().setOutputFolder(QDir(file.fileName()));
    open();
    boxes_->title({}).critical(cadastro::errorBox(482));
    click(window_, u"Command1"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(number(u"NotaPeca"_s), u"000000"_s);
    QCOMPARE(documents(), 0);
}

void TstFrmNota::thePrinterThatWasChosenIsUsedOnce_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("printed") << false;
    QTest::newRow("printer error") << true;
}

void TstFrmNota::thePrinterThatWasChosenIsUsedOnce()
{
    QFETCH(bool, fails);
    const QString elsewhere = u"Impressora do balcão"_s;
    printer::printer().setDevice(elsewhere);
    open();
    type(window_, u"cboPrinter"_s, printer::devicePdf.toString());
    QCOMPARE(shown(u"cboPrinter"_s), u"PDF"_s);
    if (fails) {
        QFile file(program_->path(u"ocupado"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        printer::printer().setOutputFolder(QDir(file.fileName()));
        boxes_->title({}).critical(cadastro::errorBox(482));
    } else {
        boxes_->information(printed);
    }
    click(window_, u"Command2"_s);
    boxes_->finish();
    QCOMPARE(documents(), fails ? 0 : 1);
    QCOMPARE(printer::printer().DeviceName(), elsewhere);
}

void TstFrmNota::nothingIsWrittenToTheDatabase()
{
    order(maria_, car_, many(3, u"P"_s));
    const QStringList tables{u"OrdemServico"_s, u"OSPecas"_s, u"Clientes"_s, u"Veiculos"_s, u"Estoque"_s, u"Caixa"_s};
    const auto all = [&] {
        std::vector<Rows> found;
        for (const QString &table : tables) {
            found.push_back(program_->rows(u"SELECT * FROM "_s + table));
        }
        return found;
    };
    const auto before = all();
    open();
    add(u"1"_s);
    boxes_->information(printed);
    click(window_, u"Command1"_s);
    QCOMPARE(all(), before);
}

// --- around the window

void TstFrmNota::theQueryHandsTheOrderBack_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("F1") << true;
    QTest::newRow("button") << false;
}

void TstFrmNota::theQueryHandsTheOrderBack()
{
    QFETCH(bool, byKey);
    order(maria_, car_, many(1, u"P"_s));
    order(maria_, car_, many(2, u"P"_s));
    open();
    if (byKey) {
        key(window_, u"txtOS"_s, Qt::Key_F1);
    } else {
        click(window_, u"btnOSFind"_s);
    }
    auto *query = ui::Forms::instance().find(u"frmOSConsulta"_s);
    QVERIFY(query != nullptr);
    QCOMPARE(core::ModoChamada, 40);
    cadastro::clickRow(query, 1);
    cadastro::doubleClickRow(query, 1);
    QTRY_COMPARE(shown(u"txtOS"_s), u"0002"_s);
    QTRY_VERIFY(ui::Forms::instance().find(u"frmOSConsulta"_s) == nullptr);
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
    QCOMPARE(control<QLineEdit>(window_, u"txtOS"_s)->selectedText(), u"0002"_s);
    click(window_, u"btnItemAdd"_s);
    QCOMPARE(rowsOf(u"lstOS"_s), (Rows{{u"0002"_s, u"ABC1D23"_s}}));
    QCOMPARE(count(u"lstPecas"_s), 2);
}

void TstFrmNota::enterGoesFromTheNumberToTheNote()
{
    order(maria_, car_, many(1, u"P"_s));
    open();
    type(window_, u"txtOS"_s, u"1"_s, false);
    key(window_, u"txtOS"_s, Qt::Key_Return);
    QCOMPARE(cadastro::focusOf(window_), u"btnItemAdd"_s);
    key(window_, u"btnItemAdd"_s, Qt::Key_Return);
    QCOMPARE(count(u"lstPecas"_s), 1);
    QCOMPARE(cadastro::focusOf(window_), u"txtOS"_s);
    key(window_, u"txtOS"_s, Qt::Key_Return); // an empty number passes by the button that would do nothing
    QCOMPARE(cadastro::focusOf(window_), u"Command1"_s);
}

void TstFrmNota::backUnloads()
{
    open();
    click(window_, u"btnVoltar"_s);
    QVERIFY(ui::Forms::instance().find(u"frmNota"_s) == nullptr);
}

TARVELO_TEST_MAIN(TstFrmNota)
#include "tst_frmNota.moc"
