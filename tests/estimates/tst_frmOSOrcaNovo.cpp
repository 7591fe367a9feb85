#include "core/modulo.h"
#include "estimates/estimates.h"
#include "platform/printer/printer.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QComboBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

using Rows = std::vector<QStringList>;

const QString confirm = u"Confirma Inclusão"_s;
const QString printed = u"Confirma impressão do orçamento"_s;
const QString unknown = u"Código do Cliente não localizado"_s;
const QString null = u"<Null>"_s;

} // namespace

/// The window that writes a new estimate.
class TstFrmOSOrcaNovo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensReadyForACustomer();
    void tabGoesAsAClerkTypes();
    void theJobValuesAreForOneWorkshop_data();
    void theJobValuesAreForOneWorkshop();
    void theJobValuesBecomeItems();

    void aRegisteredCustomerBringsNameAndPhone();
    void anUnknownCustomerIsToldAndTheNameStays();
    void whatCanBeNoCodeIsTakenOut_data();
    void whatCanBeNoCodeIsTakenOut();
    void theCustomersRegisterHandsBack_data();
    void theCustomersRegisterHandsBack();
    void aNewCustomerComesBack();

    void theModelsAreKept();
    void theYearOffersTheSameListAndTakesNineCharacters();
    void theDescriptionsAreKeptAndNoItemIsTouched();
    void textsTakeWhatTheirColumnsHold();

    void everyKindStandsInTheOneList();
    void refusesABadItem_data();
    void refusesABadItem();
    void aDescriptionOf201CharactersIsRefused();
    void aPartDeletedMeanwhileStaysInTheEstimate();

    void refusesAnEstimateWithoutModel();
    void nothingIsWrittenOnNo();
    void writesTheEstimate();
    void anEstimateWithoutCustomerHasNoCode();
    void anEstimateWithoutItemsIsWrittenAndNotPrinted();
    void isReadyForTheNextEstimate();
    void clearKeepsTheItems();
    void backClosesAndWritesNothing();

    void refusesToPrintWithoutModelOrItems();
    void printsOnYesAlone();
    void whatWasNeverWrittenPrintsWithoutNumber_data();
    void whatWasNeverWrittenPrintsWithoutNumber();
    void whatWasWrittenPrintsWithItsNumber();
    void aCustomerAddedOnTheWayGivesNoNumber();

private:
    void open() { form_ = support::show(u"frmOSOrcaNovo"_s); }
    void fill() const;
    void add(const QString &quantity, const QString &description, const QString &value) const;
    QString shown(const QString &name) const { return support::text(form_, name); }
    Rows estimates() const { return program_->rows(u"SELECT * FROM Orcamento"_s); }
    Rows items() const
    {
        return program_->rows(u"SELECT CodOrca, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OrcaPecas"_s);
    }
    static QStringList paper();

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;
};

void TstFrmOSOrcaNovo::initTestCase()
{
    estimates::registerForms();
    registers::registerForms();
    workorders::registerForms();
}

void TstFrmOSOrcaNovo::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
}

void TstFrmOSOrcaNovo::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstFrmOSOrcaNovo::fill() const
{
    cadastro::fill(form_, {{u"txtNome"_s, u"MARIA"_s},
                           {u"txtFone1"_s, u"5555-0001"_s},
                           {u"cboMarca"_s, u"GOL 1.0"_s},
                           {u"cboAno"_s, u"2001/2002"_s},
                           {u"txtObs"_s, u"RETORNA SEXTA"_s}});
}

void TstFrmOSOrcaNovo::add(const QString &quantity, const QString &description, const QString &value) const
{
    type(form_, u"txtQuantidade"_s, quantity);
    type(form_, u"txtDescricao"_s, description);
    type(form_, u"txtValor"_s, value);
    click(form_, u"btnItemAdd"_s);
}

/// The lines of the document that was printed last.
QStringList TstFrmOSOrcaNovo::paper()
{
    QStringList lines;
    for (const printer::Page &page : printer::printer().lastDocument()) {
        lines << page.lines();
    }
    return lines;
}

void TstFrmOSOrcaNovo::opensReadyForACustomer()
{
    open();
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Abrir Novo Orçamento]"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
    QCOMPARE(cadastro::titlesOf(form_),
             (QStringList{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V. Unit."_s, u"V. Total"_s}));
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QVERIFY(!support::controlOf(form_, u"lstMaterial"_s)->isVisible());
    QVERIFY(support::controlOf(form_, u"btnLimpa"_s)->isVisible());
}

void TstFrmOSOrcaNovo::tabGoesAsAClerkTypes()
{
    open();
    fill(); // every button is a stop then
    cadastro::focus(form_, u"txtCodCliente"_s);
    QStringList way;
    for (int step = 0; step < 11; ++step) {
        way << cadastro::focusOf(form_);
        QTest::keyClick(form_->window()->windowHandle(), Qt::Key_Tab);
    }
    QCOMPARE(way,
             (QStringList{u"txtCodCliente"_s, u"txtNome"_s, u"txtFone1"_s, u"cboMarca"_s, u"cboAno"_s, u"txtObs"_s,
                          u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtDescricao"_s, u"txtValor"_s, u"btnItemAdd"_s}));
}

void TstFrmOSOrcaNovo::theJobValuesAreForOneWorkshop_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("visible");
    QTest::newRow("none") << u"0"_s << false;
    QTest::newRow("origin book") << u"1-1"_s << true;
    QTest::newRow("notes") << u"2-2"_s << false;
}

void TstFrmOSOrcaNovo::theJobValuesAreForOneWorkshop()
{
    QFETCH(QString, code);
    program_->config(u"Personalizacao"_s, code);
    open();
    QTEST(support::controlOf(form_, u"btnAdicionar"_s)->isVisible(), "visible");
}

void TstFrmOSOrcaNovo::theJobValuesBecomeItems()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open();
    boxes_->input(u"Digite o Valor de Funilaria"_s, u"100"_s)
        .inputCancel(u"Digite o Valor de Pintura"_s)
        .input(u"Digite o Valor de Tapeceiro/Vidraceiro"_s, u"abc"_s)
        .inputCancel(u"Digite o Valor de Elétrica"_s)
        .inputCancel(u"Digite o Valor de Mecânica"_s)
        .input(u"Digite o Valor de Serv. Tercerizados"_s, u"50,5"_s);
    click(form_, u"btnAdicionar"_s);
    QCOMPARE(cadastro::rowsOf(form_),
             (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"FUNILARIA"_s, u"100,00"_s, u"100,00"_s},
                   {u"0000"_s, u"A"_s, u"01"_s, u"SERVIÇOS TERCERIZADOS"_s, u"50,50"_s, u"50,50"_s}}));
    QCOMPARE(shown(u"lblTotal"_s), u"150,50"_s);
}

// --- the customer

void TstFrmOSOrcaNovo::aRegisteredCustomerBringsNameAndPhone()
{
    program_->customer(u"OUTRO"_s);
    program_->customer(u"MARIA"_s);
    program_->sql(u"UPDATE Clientes SET Fone1 = '(11) 5555-0002' WHERE Codigo = 2"_s);
    open();
    type(form_, u"txtCodCliente"_s, u"2"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"txtFone1"_s), u"(11) 5555-0002"_s);

    type(form_, u"txtCodCliente"_s, u"1"_s);
    QCOMPARE(shown(u"txtNome"_s), u"OUTRO"_s);
    QCOMPARE(shown(u"txtFone1"_s), QString());
}

void TstFrmOSOrcaNovo::anUnknownCustomerIsToldAndTheNameStays()
{
    open();
    type(form_, u"txtNome"_s, u"MARIA"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(unknown);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"99"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtNome"_s);
}

void TstFrmOSOrcaNovo::whatCanBeNoCodeIsTakenOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << u"ABC"_s;
    QTest::newRow("fraction") << u"1,5"_s;
    QTest::newRow("too large") << u"9999999999"_s;
    QTest::newRow("apostrophe") << u"1' OR"_s;
}

void TstFrmOSOrcaNovo::whatCanBeNoCodeIsTakenOut()
{
    QFETCH(QString, text);
    program_->customer(u"OUTRO"_s);
    open();
    fill();
    boxes_->exclamation(unknown);
    type(form_, u"txtCodCliente"_s, text);
    QCOMPARE(shown(u"txtCodCliente"_s), QString());
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, NomeCliente FROM Orcamento"_s), (Rows{{null, u"MARIA"_s}}));
}

void TstFrmOSOrcaNovo::theCustomersRegisterHandsBack_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("F1") << true;
}

void TstFrmOSOrcaNovo::theCustomersRegisterHandsBack()
{
    QFETCH(bool, byKey);
    program_->customer(u"MARIA"_s);
    open();
    if (byKey) {
        key(form_, u"txtCodCliente"_s, Qt::Key_F1);
    } else {
        click(form_, u"btnClienteFind"_s);
    }
    QCOMPARE(int{core::ModoChamada}, 12);
    auto *picker = ui::Forms::instance().find(u"frmCadaCliente"_s);
    QVERIFY(picker != nullptr);
    cadastro::clickRow(picker, 0);
    key(picker, u"Lista"_s, Qt::Key_Return);
    QTRY_VERIFY(!cadastro::isOpen(u"frmCadaCliente"_s));
    QCOMPARE(shown(u"txtCodCliente"_s), u"0001"_s);
    QTRY_COMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
    key(form_, u"txtCodCliente"_s, Qt::Key_Tab);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
}

void TstFrmOSOrcaNovo::aNewCustomerComesBack()
{
    open();
    key(form_, u"txtCodCliente"_s, Qt::Key_F2);
    QCOMPARE(int{core::ModoChamada}, 13);
    auto *adder = ui::Forms::instance().find(u"frmCadaCliente"_s);
    QVERIFY(adder != nullptr);
    cadastro::fill(adder, {{u"txtNome"_s, u"JOSÉ"_s}, {u"txtEndereco"_s, u"RUA A"_s}, {u"txtNumero"_s, u"10"_s}});
    boxes_->question(u"Confirma a Inclusão"_s, true);
    click(adder, u"btnIncluir"_s);
    QTRY_VERIFY(!cadastro::isOpen(u"frmCadaCliente"_s));
    QCOMPARE(shown(u"txtCodCliente"_s), u"1"_s);
    key(form_, u"txtCodCliente"_s, Qt::Key_Tab);
    QCOMPARE(shown(u"txtNome"_s), u"JOSÉ"_s);
}

// --- the kept lists

void TstFrmOSOrcaNovo::theModelsAreKept()
{
    open();
    type(form_, u"cboMarca"_s, u"GOL 1.0"_s);
    click(form_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"1"_s, u"GOL 1.0"_s}}));
    QCOMPARE(shown(u"cboMarca"_s), u"GOL 1.0"_s);
    click(form_, u"btnMarcaRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
    QCOMPARE(shown(u"cboMarca"_s), QString());
}

void TstFrmOSOrcaNovo::theYearOffersTheSameListAndTakesNineCharacters()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, '2001 GOL PRATA')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (3, '1999 OUTRA LISTA')"_s);
    open();
    const auto *year = control<QComboBox>(form_, u"cboAno"_s);
    QCOMPARE(year->count(), 1);
    QCOMPARE(year->itemText(0), u"2001 GOL PRATA"_s);
    type(form_, u"cboAno"_s, u"1998/1999/2000"_s);
    QCOMPARE(shown(u"cboAno"_s), u"1998/1999"_s);
    key(form_, u"cboAno"_s, Qt::Key_Down);
    QCOMPARE(shown(u"cboAno"_s), u"2001 GOL "_s);
}

void TstFrmOSOrcaNovo::theDescriptionsAreKeptAndNoItemIsTouched()
{
    open();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    type(form_, u"txtDescricao"_s, u"PINTURA"_s);
    click(form_, u"btnDescricaoAdd"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Texto FROM Combos"_s), (Rows{{u"3"_s, u"PINTURA"_s}}));
    click(form_, u"btnDescricaoRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
}

void TstFrmOSOrcaNovo::textsTakeWhatTheirColumnsHold()
{
    open();
    const QList<std::pair<QString, int>> limits{
        {u"txtNome"_s, 250}, {u"txtFone1"_s, 25}, {u"cboMarca"_s, 200}, {u"cboAno"_s, 9}, {u"txtObs"_s, 250}};
    for (const auto &[name, limit] : limits) {
        cadastro::paste(form_, name, QString(300, u'X'));
        QCOMPARE(shown(name), QString(limit, u'X'));
    }
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimates().size(), 1U);
}

// --- the items

void TstFrmOSOrcaNovo::everyKindStandsInTheOneList()
{
    program_->config(u"LayoutOS"_s, u"3"_s);
    program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s, false, 2);
    program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    open();
    for (const QString &code : {u"1"_s, u"2"_s}) {
        type(form_, u"txtCodPeca"_s, code);
        type(form_, u"txtQuantidade"_s, u"1,5"_s);
        click(form_, u"btnItemAdd"_s);
    }
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    QCOMPARE(cadastro::rowsOf(form_), (Rows{{u"0001"_s, u"P"_s, u"1,500"_s, u"OLEO"_s, u"30,00"_s, u"45,00"_s},
                                            {u"0002"_s, u"S"_s, u"1,500"_s, u"TROCA"_s, u"50,00"_s, u"75,00"_s},
                                            {u"0000"_s, u"A"_s, u"01"_s, u"SOLDA"_s, u"10,00"_s, u"10,00"_s}}));
    QCOMPARE(shown(u"lblTotal"_s), u"130,00"_s);

    cadastro::clickRow(form_, 1);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(shown(u"lblTotal"_s), u"55,00"_s);
    click(form_, u"btnLimpa"_s);
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QVERIFY(cadastro::rowsOf(form_).empty());
}

void TstFrmOSOrcaNovo::refusesABadItem_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::newRow("quantity") << u",,"_s << u"SOLDA"_s << u"10"_s << u"Quantidade Inválida"_s;
    QTest::newRow("value") << u"1"_s << u"SOLDA"_s << u",,"_s << u"Valor Unitário Inválido"_s;
    QTest::newRow("no value") << u"1"_s << u"SOLDA"_s << QString() << u"Valor Unitário Inválido"_s;
    QTest::newRow("description") << u"1"_s << QString() << u"10"_s << u"Descrição da Peça/Serviço Inválido"_s;
}

void TstFrmOSOrcaNovo::refusesABadItem()
{
    QFETCH(QString, quantity);
    QFETCH(QString, description);
    QFETCH(QString, value);
    QFETCH(QString, message);
    open();
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    add(quantity, description, value);
    QVERIFY(cadastro::rowsOf(form_).empty());
}

void TstFrmOSOrcaNovo::aDescriptionOf201CharactersIsRefused()
{
    open();
    add(u"1"_s, QString(200, u'X'), u"10"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
    boxes_->exclamation(u"Descrição da Peça/Serviço Inválido"_s);
    add(u"1"_s, QString(201, u'X'), u"10"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
}

void TstFrmOSOrcaNovo::aPartDeletedMeanwhileStaysInTheEstimate()
{
    program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s);
    open();
    fill();
    type(form_, u"txtCodPeca"_s, u"1"_s);
    program_->sql(u"DELETE * FROM Pecas"_s);
    type(form_, u"txtQuantidade"_s, u"2"_s);
    click(form_, u"btnItemAdd"_s);
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(items(), (Rows{{u"1"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"30"_s, u"P"_s}}));
}

// --- writing

void TstFrmOSOrcaNovo::refusesAnEstimateWithoutModel()
{
    open();
    boxes_->title(u"Tarvelo"_s).exclamation(u"Marca/Modelo do Veículo Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(cadastro::focusOf(form_), u"cboMarca"_s);
    QVERIFY(estimates().empty());
}

void TstFrmOSOrcaNovo::nothingIsWrittenOnNo()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    boxes_->title(u"Tarvelo"_s).question(confirm, false);
    click(form_, u"btnIncluir"_s);
    QVERIFY(estimates().empty());
    QVERIFY(items().empty());
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
}

void TstFrmOSOrcaNovo::writesTheEstimate()
{
    program_->customer(u"OUTRO"_s);
    program_->customer(u"MARIA"_s);
    program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s);
    open();
    type(form_, u"txtCodCliente"_s, u"2"_s);
    fill();
    type(form_, u"txtCodPeca"_s, u"1"_s);
    type(form_, u"txtQuantidade"_s, u"2"_s);
    click(form_, u"btnItemAdd"_s);
    add(u"1,5"_s, u"SOLDA"_s, u"1.000,10"_s);
    boxes_->title(u"Tarvelo"_s).question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimates(), (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL 1.0"_s, u"2001/2002"_s, u"2"_s, u"MARIA"_s,
                                 u"5555-0001"_s, u"RETORNA SEXTA"_s, u"1560.15"_s}}));
    QCOMPARE(items(), (Rows{{u"1"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"30"_s, u"P"_s},
                            {u"1"_s, u"0"_s, u"1.5"_s, u"SOLDA"_s, u"1000.1"_s, u"A"_s}}));
    QVERIFY(program_->rows(u"SELECT * FROM OrdemServico"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
}

void TstFrmOSOrcaNovo::anEstimateWithoutCustomerHasNoCode()
{
    open();
    fill();
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, NomeCliente FROM Orcamento"_s), (Rows{{null, u"MARIA"_s}}));
}

void TstFrmOSOrcaNovo::anEstimateWithoutItemsIsWrittenAndNotPrinted()
{
    open();
    type(form_, u"cboMarca"_s, u"GOL"_s);
    boxes_->question(confirm, true)
        .question(u"Imprimir Orçamento Nº 0001"_s, true)
        .exclamation(u"Lista de Peças/Serviços Vazia"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimates(), (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL"_s, null, null, null, null, null, u"0"_s}}));
    QCOMPARE(shown(u"cboMarca"_s), QString());
}

void TstFrmOSOrcaNovo::isReadyForTheNextEstimate()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, false);
    click(form_, u"btnIncluir"_s);
    QVERIFY(form_->isVisible());
    for (const QString &name :
         {u"txtCodCliente"_s, u"txtNome"_s, u"txtFone1"_s, u"cboMarca"_s, u"cboAno"_s, u"txtObs"_s, u"txtCodPeca"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QVERIFY(cadastro::rowsOf(form_).empty());
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(int{core::ModoChamada}, 0);
    QCOMPARE(int{core::CodigoConsulta}, 0);
    QTRY_COMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);

    fill();
    boxes_->question(confirm, true).question(u"Imprimir Orçamento Nº 0002"_s, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimates().size(), 2U);
}

void TstFrmOSOrcaNovo::clearKeepsTheItems()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    click(form_, u"btnCancelar"_s);
    QCOMPARE(shown(u"txtNome"_s), QString());
    QCOMPARE(shown(u"cboMarca"_s), QString());
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaNovo::backClosesAndWritesNothing()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmOSOrcaNovo"_s));
    QVERIFY(estimates().empty());
    QVERIFY(items().empty());
}

// --- paper

void TstFrmOSOrcaNovo::refusesToPrintWithoutModelOrItems()
{
    open();
    boxes_->title(u"Tarvelo"_s).exclamation(u"Marca Inválida"_s);
    click(form_, u"btnPrint"_s);
    QCOMPARE(cadastro::focusOf(form_), u"cboMarca"_s);
    type(form_, u"cboMarca"_s, u"GOL"_s);
    boxes_->exclamation(u"Lista de Peças/Serviços Vazia"_s);
    click(form_, u"btnPrint"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaNovo::printsOnYesAlone()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    boxes_->title(u"Tarvelo"_s).question(printed, true);
    click(form_, u"btnPrint"_s);
    const QStringList first = paper();
    QVERIFY(first.join(u'\n').contains(u"SOLDA"_s));
    add(u"1"_s, u"PINTURA"_s, u"10"_s);
    boxes_->question(printed, false);
    click(form_, u"btnPrint"_s);
    QCOMPARE(paper(), first);
    QVERIFY(estimates().empty());
}

void TstFrmOSOrcaNovo::whatWasNeverWrittenPrintsWithoutNumber_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("text") << u"1"_s;
    QTest::newRow("sheets") << u"2"_s;
    QTest::newRow("full windows") << u"3"_s;
}

void TstFrmOSOrcaNovo::whatWasNeverWrittenPrintsWithoutNumber()
{
    QFETCH(QString, layout);
    program_->config(u"LayoutOS"_s, layout);
    open();
    fill();
    add(u"2"_s, u"SOLDA"_s, u"10"_s);
    boxes_->question(printed, true);
    click(form_, u"btnPrint"_s);
    const QStringList lines = paper();
    QCOMPARE(lines.filter(u"ORÇAMENTO"_s).front().trimmed(), u"ORÇAMENTO"_s);
    QVERIFY(lines.filter(u"ORÇAMENTO Nº"_s).isEmpty());
    QCOMPARE(lines.filter(u"DATA................: 15/05/2024"_s).size(), 1);
    QCOMPARE(lines.filter(u"NOME DO CLIENTE.....: MARIA"_s).size(), 1);
    QCOMPARE(lines.filter(u"SOLDA"_s).size(), 1);
    QCOMPARE(lines.filter(u"OBS: RETORNA SEXTA"_s).size(), 1);
    QCOMPARE(lines.filter(u"À VISTA...........: R$ 20,00"_s).size(), 1);
}

void TstFrmOSOrcaNovo::whatWasWrittenPrintsWithItsNumber()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    boxes_->title(u"Tarvelo"_s).question(confirm, true).question(u"Imprimir Orçamento Nº 0001"_s, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(paper().filter(u"ORÇAMENTO Nº 0001"_s).size(), 1);
    QCOMPARE(estimates().size(), 1U);
    QVERIFY(cadastro::rowsOf(form_).empty());
}

/// The register that adds a customer leaves the mode behind that stands for an estimate just written.
void TstFrmOSOrcaNovo::aCustomerAddedOnTheWayGivesNoNumber()
{
    open();
    fill();
    add(u"1"_s, u"SOLDA"_s, u"10"_s);
    click(form_, u"btnClienteAdd"_s);
    click(ui::Forms::instance().find(u"frmCadaCliente"_s), u"btnVoltar"_s);
    QCOMPARE(int{core::ModoChamada}, 13);
    boxes_->question(printed, true);
    click(form_, u"btnPrint"_s);
    QVERIFY(paper().filter(u"ORÇAMENTO Nº"_s).isEmpty());
    QCOMPARE(paper().filter(u"SOLDA"_s).size(), 1);
}

TARVELO_TEST_MAIN(TstFrmOSOrcaNovo)
#include "tst_frmOSOrcaNovo.moc"
