#include "tests/registers/veiculos.h"

#include <QAbstractButton>
#include <QComboBox>

#include <algorithm>

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::focusOf;
using support::click;
using support::type;

/// The register's face: how it opens, what its list shows, and the three ways to a record.
class TstFrmCadaVeiculos : public VehicleCase
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { end(); }

    void theModeGivesTheCaption_data();
    void theModeGivesTheCaption();
    void thePickerBeginsInTheSearchText();
    void theAddBeginsInTheCustomerCode();
    void buttonsCarryTheirCaptions_data();
    void buttonsCarryTheirCaptions();
    void fieldsCarryTheirLabels();
    void theSearchFieldsAreTold();
    void theListHasItsColumns();
    void theListStartsEmpty();
    void theSettingFillsTheListAtLoad();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void backClosesAndLeavesTheMode();

    void listsAllByModelAndCustomer();
    void listingLeavesTheFieldsAlone();
    void aClickOnTheHeaderSorts();

    void searches_data();
    void searches();
    void anEmptySearchMatchesAllWithAValue();
    void anEmptySearchByChassisFindsOnlyThoseThatHaveOne();
    void anApostropheIsASearchError();
    void aSearchErrorKeepsTheList();
    void noResultKeepsTheList();
    void aVehicleOfADeletedCustomerIsLostFromTheWindow();

    void aRowClickedShowsAllFields();
    void nullsShowAsEmpty();
    void aRowDeletedMeanwhileLeavesTheFields();

    void locatesByModel();
    void locatingKeepsTheChassis();
    void locatingByNameFindsNothing();
    void locatingWithoutAMatchLoadsTheSelectedRow();
    void locatingWithoutATextMovesTheFocus();
    void locatingInAnEmptyListDoesNothing();

private:
    /// Without an order of the statement's own, rows come as they will.
    QStringList codesFound() const
    {
        QStringList codes = columnOf(form_);
        codes.sort();
        return codes;
    }
};

// --- opening

void TstFrmCadaVeiculos::theModeGivesTheCaption_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::newRow("plain") << 0 << u"Tarvelo - [Cadastro de Veículos]"_s;
    QTest::newRow("picker of an order") << 3 << u"Tarvelo - [Consulta Código de Veículos]"_s;
    QTest::newRow("add for an order") << 4 << u"Tarvelo - [Incluir Veículo]"_s;
    QTest::newRow("a mode of other windows") << 2 << u"Tarvelo - [Cadastro de Veículos]"_s;
}

void TstFrmCadaVeiculos::theModeGivesTheCaption()
{
    QFETCH(int, mode);
    open(mode);
    QTEST(form_->windowTitle(), "caption");
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaVeiculos::thePickerBeginsInTheSearchText()
{
    open(3);
    QCOMPARE(focusOf(form_), u"txtTexto"_s);
}

void TstFrmCadaVeiculos::theAddBeginsInTheCustomerCode()
{
    open(4);
    QCOMPARE(focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmCadaVeiculos::buttonsCarryTheirCaptions_data()
{
    cadastro::addButtons(u"Clique aqui para Localizar um Registro na Lista Acima Somente por NOME"_s);
}

void TstFrmCadaVeiculos::buttonsCarryTheirCaptions()
{
    open();
    cadastro::compareButton(form_);
}

void TstFrmCadaVeiculos::fieldsCarryTheirLabels()
{
    open();
    QStringList labels;
    for (const auto *label : form_->findChildren<QLabel *>()) {
        if (label->objectName().startsWith(u"Rotulos_"_s)) {
            labels << label->text().remove(u'&');
        }
    }
    for (const QString &wanted :
         {u"Código Veículo:"_s, u"Código Cliente:"_s, u"Nome:"_s, u"Marca/Modelo:"_s, u"Ano/Modelo:"_s, u"Cor:"_s,
          u"Placas:"_s, u"Combustível:"_s, u"Observações:"_s, u"Chassi:"_s, u"Pesquisar em:"_s}) {
        QVERIFY2(labels.contains(wanted), qPrintable(wanted));
    }
}

void TstFrmCadaVeiculos::theSearchFieldsAreTold()
{
    open();
    QCOMPARE(cadastro::entriesOf(form_, u"cboPesquisa"_s),
             (QStringList{u"Nome do Cliente"_s, u"Marca/Modelo"_s, u"Placa"_s, u"Ano"_s, u"Cor"_s, u"Chassi"_s}));
    QCOMPARE(shown(u"cboPesquisa"_s), u"Nome do Cliente"_s);
}

void TstFrmCadaVeiculos::theListHasItsColumns()
{
    open();
    cadastro::compareColumns(form_, {{u"Código"_s, 1000},
                                     {u"Nome Cliente"_s, 3700},
                                     {u"Marca/Modelo"_s, 2500},
                                     {u"Ano"_s, 1500},
                                     {u"Cor"_s, 1500},
                                     {u"Placas"_s, 1500},
                                     {u"Combustível"_s, 2000},
                                     {u"Observações"_s, 3500}});
}

void TstFrmCadaVeiculos::theListStartsEmpty()
{
    program_->config(u"PreencheCadastroAutomatico"_s, u"N"_s);
    open();
    QCOMPARE(columnOf(form_), QStringList());
}

void TstFrmCadaVeiculos::theSettingFillsTheListAtLoad()
{
    program_->config(u"PreencheCadastroAutomatico"_s, u"S"_s);
    open();
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s}));
}

void TstFrmCadaVeiculos::fitsTheMainWindow()
{
    open();
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmCadaVeiculos::tabGoesFieldByField()
{
    open();
    const QStringList fields{u"txtCodCliente"_s, u"cboMarca"_s,       u"txtAno"_s,         u"txtCor"_s,
                             u"txtPlaca"_s,      u"txtCombustivel"_s, u"txtObservacoes"_s, u"txtChassi"_s};
    QCOMPARE(cadastro::tabOrder(form_, fields.first(), fields.size()), fields);
}

void TstFrmCadaVeiculos::backClosesAndLeavesTheMode()
{
    open(4);
    type(form_, u"cboMarca"_s, u"FOX"_s);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(window));
    QCOMPARE(core::ModoChamada, qint16{4});
    QCOMPARE(vehicles().size(), 3U);
}

// --- the list

void TstFrmCadaVeiculos::listsAllByModelAndCustomer()
{
    program_->vehicle(1, u"BRA0001"_s, u"BRASILIA"_s); // first by its model, last by its customer
    open();
    click(form_, u"btnTodos"_s);
    const Rows all{
        {u"0004"_s, u"MARIA"_s, u"BRASILIA"_s, QString(), QString(), u"BRA0001"_s, QString(), QString()},
        {u"0002"_s, u"ANTONIO"_s, u"CELTA"_s, u"2010/2011"_s, u"PRETO"_s, u"XYZ1234"_s, u"GASOLINA"_s, QString()},
        {u"0003"_s, u"ANTONIO"_s, u"GOL 1.0"_s, u"2015/2015"_s, QString(), u"KLM9999"_s, QString(), QString()},
        golRow};
    QCOMPARE(cadastro::rowsOf(form_), all);
}

void TstFrmCadaVeiculos::listingLeavesTheFieldsAlone()
{
    openFull();
    cadastro::clickRow(form_, 2);
    click(form_, u"btnTodos"_s);
    QCOMPARE(cadastro::shown(form_, gol), gol);
    QCOMPARE(cadastro::list(form_)->count(), 3);
}

void TstFrmCadaVeiculos::aClickOnTheHeaderSorts()
{
    openFull();
    cadastro::clickHeader(form_, 5);
    QCOMPARE(columnOf(form_, 5), (QStringList{u"ABC1D23"_s, u"KLM9999"_s, u"XYZ1234"_s}));
    cadastro::clickHeader(form_, 5);
    QCOMPARE(columnOf(form_, 5), (QStringList{u"XYZ1234"_s, u"KLM9999"_s, u"ABC1D23"_s}));
    cadastro::clickHeader(form_, 0);
    QCOMPARE(columnOf(form_), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
}

// --- searching

void TstFrmCadaVeiculos::searches_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("codes");
    QTest::newRow("customer's name, inside") << 0 << u"ari"_s << QStringList{u"0001"_s};
    QTest::newRow("customer of two vehicles") << 0 << u"ANTONIO"_s << QStringList{u"0002"_s, u"0003"_s};
    QTest::newRow("make") << 1 << u"ol"_s << QStringList{u"0001"_s, u"0003"_s};
    QTest::newRow("make, a pattern of the user's own") << 1 << u"g*.0"_s << QStringList{u"0001"_s, u"0003"_s};
    QTest::newRow("plate") << 2 << u"1234"_s << QStringList{u"0002"_s};
    QTest::newRow("plate, any digit") << 2 << u"D##"_s << QStringList{u"0001"_s};
    QTest::newRow("year") << 3 << u"2015"_s << QStringList{u"0003"_s};
    QTest::newRow("colour") << 4 << u"prat"_s << QStringList{u"0001"_s};
    QTest::newRow("chassis") << 5 << u"g1179"_s << QStringList{u"0003"_s};
}

void TstFrmCadaVeiculos::searches()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    open();
    search(index, text);
    QTEST(codesFound(), "codes");

    const Rows rows = cadastro::rowsOf(form_);
    const auto first = std::find_if(rows.begin(), rows.end(), [](const auto &row) { return row.first() == u"0001"_s; });
    if (first != rows.end()) {
        QCOMPARE(*first, golRow);
    }
}

void TstFrmCadaVeiculos::anEmptySearchMatchesAllWithAValue()
{
    open();
    search(0, QString());
    QCOMPARE(codesFound(), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    search(4, QString());
    QCOMPARE(codesFound(), (QStringList{u"0001"_s, u"0002"_s}));
}

void TstFrmCadaVeiculos::anEmptySearchByChassisFindsOnlyThoseThatHaveOne()
{
    open();
    search(5, QString());
    QCOMPARE(codesFound(), (QStringList{u"0001"_s, u"0003"_s}));
}

void TstFrmCadaVeiculos::anApostropheIsASearchError()
{
    open();
    boxes_->exclamation(u"Erro de Pesquisa"_s);
    search(0, u"JOANA D'ARC"_s);
    boxes_->finish();
    QCOMPARE(focusOf(form_), u"txtTexto"_s);
    QVERIFY(!ui::Application::ended());
}

void TstFrmCadaVeiculos::aSearchErrorKeepsTheList()
{
    openFull();
    boxes_->exclamation(u"Erro de Pesquisa"_s);
    search(2, u"'"_s);
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s}));
}

void TstFrmCadaVeiculos::noResultKeepsTheList()
{
    openFull();
    boxes_->exclamation(u"Pesquisa sem Resultado!"_s);
    search(2, u"ZZZ"_s);
    boxes_->finish();
    QCOMPARE(focusOf(form_), u"txtTexto"_s);
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s}));
}

void TstFrmCadaVeiculos::aVehicleOfADeletedCustomerIsLostFromTheWindow()
{
    openFull();
    const Rows before = vehicles();
    program_->sql(u"DELETE * FROM Clientes WHERE Codigo = 2"_s);
    cadastro::clickRow(form_, 0);
    QCOMPARE(shown(u"lblCodigo"_s), QString());

    click(form_, u"btnTodos"_s);
    QCOMPARE(cadastro::rowsOf(form_), Rows{golRow});
    boxes_->exclamation(u"Pesquisa sem Resultado!"_s);
    search(2, u"XYZ1234"_s);
    QCOMPARE(vehicles(), before);
}

// --- a row chosen

void TstFrmCadaVeiculos::aRowClickedShowsAllFields()
{
    openFull();
    cadastro::clickRow(form_, 2);
    QCOMPARE(cadastro::shown(form_, gol), gol);
}

void TstFrmCadaVeiculos::nullsShowAsEmpty()
{
    openFull();
    cadastro::clickRow(form_, 2);
    cadastro::clickRow(form_, 1);
    const Fields third{{u"lblCodigo"_s, u"0003"_s},         {u"txtCodCliente"_s, u"0002"_s},
                       {u"lblNomeCliente"_s, u"ANTONIO"_s}, {u"cboMarca"_s, u"GOL 1.0"_s},
                       {u"txtAno"_s, u"2015/2015"_s},       {u"txtCor"_s, QString()},
                       {u"txtPlaca"_s, u"KLM9999"_s},       {u"txtCombustivel"_s, QString()},
                       {u"txtObservacoes"_s, QString()},    {u"txtChassi"_s, u"9BGRD08X04G117974"_s}};
    QCOMPARE(cadastro::shown(form_, third), third);

    cadastro::clickRow(form_, 0);
    QCOMPARE(shown(u"txtChassi"_s), QString());
}

void TstFrmCadaVeiculos::aRowDeletedMeanwhileLeavesTheFields()
{
    openFull();
    cadastro::clickRow(form_, 2);
    program_->sql(u"DELETE * FROM Veiculos WHERE Codigo = 2"_s);
    cadastro::clickRow(form_, 0);
    QCOMPARE(cadastro::shown(form_, gol), gol);
}

// --- finding in the list

void TstFrmCadaVeiculos::locatesByModel()
{
    openFull();
    locate(u"gol"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 1);
    QCOMPARE(shown(u"lblCodigo"_s), u"0003"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
    QCOMPARE(shown(u"lblNomeCliente"_s), u"ANTONIO"_s);
    QCOMPARE(shown(u"cboMarca"_s), u"GOL 1.0"_s);
    QCOMPARE(shown(u"txtAno"_s), u"2015/2015"_s);
    QCOMPARE(shown(u"txtPlaca"_s), u"KLM9999"_s);
}

void TstFrmCadaVeiculos::locatingKeepsTheChassis()
{
    openFull();
    cadastro::clickRow(form_, 2);
    locate(u"CEL"_s);
    QCOMPARE(shown(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(shown(u"txtObservacoes"_s), QString());
    QCOMPARE(shown(u"txtChassi"_s), u"9BWZZZ377VT004251"_s);
}

void TstFrmCadaVeiculos::locatingByNameFindsNothing()
{
    openFull();
    locate(u"MARIA"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), -1);
    QCOMPARE(shown(u"lblCodigo"_s), QString());
}

void TstFrmCadaVeiculos::locatingWithoutAMatchLoadsTheSelectedRow()
{
    openFull();
    compareSelectedRowLocated(2, u"txtObservacoes"_s, u"MARIA"_s, gol);
}

void TstFrmCadaVeiculos::locatingWithoutATextMovesTheFocus()
{
    openFull();
    compareOnlyFocusMoved(2, u"txtObservacoes"_s);
}

void TstFrmCadaVeiculos::locatingInAnEmptyListDoesNothing()
{
    program_->config(u"PreencheCadastroAutomatico"_s, u"N"_s);
    open();
    locate(u"GOL"_s);
    QCOMPARE(shown(u"lblCodigo"_s), QString());
    QCOMPARE(shown(u"cboMarca"_s), QString());
}

TARVELO_TEST_MAIN(TstFrmCadaVeiculos)
#include "tst_frmCadaVeiculos.moc"
