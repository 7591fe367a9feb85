#include "support/boxes.h"
#include "tests/estimates/consultaorcamento.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace estimates;
using support::Boxes;
using support::click;
using support::control;
using support::text;
using support::type;

namespace
{

const QString order = u"frmOSAbre"_s;
const QString compact = u"1"_s;
const QString full = u"3"_s;

/// The tables that an order, an estimate or money could touch.
const QStringList tables{u"OrdemServico"_s, u"OSPecas"_s, u"Orcamento"_s,  u"OrcaPecas"_s, u"Estoque"_s,
                         u"Caixa"_s,        u"Banco1"_s,  u"Banco2"_s,     u"Cheques"_s,   u"ContasReceber"_s,
                         u"ContasPagar"_s,  u"Fiados"_s,  u"ContaFiado"_s, u"Pecas"_s,     u"Clientes"_s,
                         u"Veiculos"_s,     u"Combos"_s};

} // namespace

/// An estimate that becomes a work order: between the two real windows.
class tst_conversao : public EstimateQueryTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init();
    void cleanup() { finish(); }

    void theItemsGoToTheFirstListAsTheyStand_data() { bothLayouts(); }
    void theItemsGoToTheFirstListAsTheyStand();
    void theUserGoesOnWithTheVehicle();
    void nothingIsWrittenBeforeTheConfirmation_data() { bothLayouts(); }
    void nothingIsWrittenBeforeTheConfirmation();
    void aRefusedConfirmationWritesNothing();
    void theConfirmedOrderHoldsTheItems_data() { bothLayouts(); }
    void theConfirmedOrderHoldsTheItems();
    void theNextChangeAddsTheTotalsUp_data();
    void theNextChangeAddsTheTotalsUp();
    void anEstimateWithoutItemsBecomesAnEmptyOrder();
    void twoHundredItems();
    void anOpenWindowKeepsItsOwnRowsInFront();
    void anEstimateIsConvertedAsOftenAsWanted();
    void oneThatWasDeletedMeanwhileIsConvertedAsItStands();

private:
    static void bothLayouts();
    void convert(const QString &code, const QString &layout = compact);
    void confirm() const;
    void add(const QString &description, const QString &value) const;
    QStringList totals() const;
    std::vector<Rows> everything() const;
    Rows stored() const
    {
        return program_->rows(u"SELECT CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OSPecas"_s);
    }

    ui::Form *opened_ = nullptr;
    const Rows first_{{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,25"_s, u"60,50"_s},
                      {u"0002"_s, u"S"_s, u"1,500"_s, u"REVISÃO"_s, u"700,00"_s, u"1.050,00"_s},
                      {u"0000"_s, u"A"_s, u"01"_s, u"GRAXA"_s, u"0,35"_s, u"0,35"_s},
                      {u"0003"_s, u"P"_s, u"3,500"_s, u"OLEO"_s, u"20,00"_s, u"70,00"_s}};
    const Rows second_{{u"0001"_s, u"P"_s, u"01"_s, u"FILTRO"_s, u"10,00"_s, u"10,00"_s}};
};

void tst_conversao::init()
{
    prepare();
    program_->vehicle(program_->customer(u"JOÃO"_s), u"ABC1D23"_s);
}

void tst_conversao::bothLayouts()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("compact") << compact;
    QTest::newRow("full") << full;
}

void tst_conversao::convert(const QString &code, const QString &layout)
{
    open(14, layout);
    show(code);
    click(window_, u"btnOSNovo"_s);
    opened_ = found(order);
    QVERIFY(opened_ != nullptr);
    QVERIFY(found(query) == nullptr);
}

void tst_conversao::confirm() const
{
    Boxes boxes;
    boxes.title(u"Tarvelo"_s).question(u"Confirma Inclusão"_s, true);
    type(opened_, u"txtCodVeiculo"_s, u"1"_s);
    click(opened_, u"btnIncluir"_s);
}

void tst_conversao::add(const QString &description, const QString &value) const
{
    type(opened_, u"txtQuantidade"_s, u"1"_s);
    type(opened_, u"txtDescricao"_s, description);
    type(opened_, u"txtValor"_s, value);
    click(opened_, u"btnItemAdd"_s);
}

/// Total, parts, services, outsourced.
QStringList tst_conversao::totals() const
{
    return {text(opened_, u"lblTotal"_s), text(opened_, u"lblTotalP"_s), text(opened_, u"lblTotalS"_s),
            text(opened_, u"lblTotalT"_s)};
}

std::vector<EstimateQueryTest::Rows> tst_conversao::everything() const
{
    std::vector<Rows> all;
    for (const QString &table : tables) {
        all.push_back(program_->rows(u"SELECT * FROM "_s + table));
    }
    return all;
}

/// Services and one-off items too, whatever lists the window has.
void tst_conversao::theItemsGoToTheFirstListAsTheyStand()
{
    QFETCH(QString, layout);
    convert(u"0001"_s, layout);
    QCOMPARE(control<QTabWidget>(opened_, u"tabItems"_s)->isTabVisible(1), layout == full);
    QCOMPARE(rowsOf(opened_, u"Lista"_s), first_);
    for (const QString &other : {u"lstServicos"_s, u"lstTercerizados"_s, u"lstMaterial"_s}) {
        QCOMPARE(support::control<ui::ListView>(opened_, other)->count(), 0);
    }
    QCOMPARE(totals(), (QStringList{u"1.180,85"_s, u"0,00"_s, u"0,00"_s, u"0,00"_s}));
}

/// An estimate names no vehicle of the register.
void tst_conversao::theUserGoesOnWithTheVehicle()
{
    convert(u"0001"_s);
    QCOMPARE(opened_->windowTitle(), u"Tarvelo - [Abrir Ordem de Serviço]"_s);
    QCOMPARE(core::ModoChamada, qint16(0));
    QVERIFY(opened_->isVisible());
    QTRY_VERIFY(opened_->isActiveWindow());
    QCOMPARE(opened_->focusWidget(), control<QWidget>(opened_, u"txtCodVeiculo"_s));
    for (const QString &field : {u"txtCodVeiculo"_s, u"lblMarca"_s, u"lblNome"_s, u"lblCodCliente"_s, u"txtObs"_s}) {
        QCOMPARE(text(opened_, field), QString());
    }
}

void tst_conversao::nothingIsWrittenBeforeTheConfirmation()
{
    QFETCH(QString, layout);
    const Boxes boxes;
    const auto before = everything();
    convert(u"0001"_s, layout);
    QCOMPARE(everything(), before);
    click(opened_, u"btnVoltar"_s);
    QVERIFY(found(order) == nullptr);
    QCOMPARE(everything(), before);
}

void tst_conversao::aRefusedConfirmationWritesNothing()
{
    const auto before = everything();
    convert(u"0001"_s);
    Boxes boxes;
    boxes.exclamation(u"Código de Veículo Inválido"_s).question(u"Confirma Inclusão"_s, false);
    click(opened_, u"btnIncluir"_s);
    type(opened_, u"txtCodVeiculo"_s, u"1"_s);
    click(opened_, u"btnIncluir"_s);
    boxes.finish();
    QCOMPARE(everything(), before);
    QCOMPARE(rowsOf(opened_, u"Lista"_s), first_);
}

/// In both layouts the letters are those of the estimate: all rows stand in the first list.
void tst_conversao::theConfirmedOrderHoldsTheItems()
{
    QFETCH(QString, layout);
    const Rows estimates = program_->rows(u"SELECT * FROM Orcamento"_s);
    const Rows items = program_->rows(u"SELECT * FROM OrcaPecas"_s);
    convert(u"0001"_s, layout);
    confirm();
    QCOMPARE(program_->rows(u"SELECT Codigo, CodCliente, CodVeiculo, DataIn, DataOut, KM, Observacao, Valor, EmAberto, "
                            "Pago, DataPagto, FormaPagto, Descricao, Mecanico FROM OrdemServico"_s),
             (Rows{{u"1"_s, u"1"_s, u"1"_s, u"15/05/2024 10:30:00"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s,
                    u"1180.85"_s, u"True"_s, u"False"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s}}));
    QCOMPARE(stored(), (Rows{{u"1"_s, u"1"_s, u"2"_s, u"FILTRO"_s, u"30.25"_s, u"P"_s},
                             {u"1"_s, u"2"_s, u"1.5"_s, u"REVISÃO"_s, u"700"_s, u"S"_s},
                             {u"1"_s, u"0"_s, u"1"_s, u"GRAXA"_s, u"0.35"_s, u"A"_s},
                             {u"1"_s, u"3"_s, u"3.5"_s, u"OLEO"_s, u"20"_s, u"P"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s), estimates);
    QCOMPARE(program_->rows(u"SELECT * FROM OrcaPecas"_s), items);
    QVERIFY(program_->rows(u"SELECT * FROM Estoque"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
    // Ready for the next order.
    QVERIFY(rowsOf(opened_, u"Lista"_s).empty());
    QCOMPARE(text(opened_, u"lblTotal"_s), u"0,00"_s);
}

void tst_conversao::theNextChangeAddsTheTotalsUp_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("compact, by the type of the row")
        << compact << QStringList{u"1.200,85"_s, u"130,50"_s, u"1.050,00"_s, u"20,35"_s};
    QTest::newRow("full, by the list") << full << QStringList{u"1.200,85"_s, u"1.200,85"_s, u"0,00"_s, u"0,00"_s};
}

void tst_conversao::theNextChangeAddsTheTotalsUp()
{
    QFETCH(QString, layout);
    convert(u"0001"_s, layout);
    add(u"LAVAGEM"_s, u"20,00"_s);
    QCOMPARE(rowsOf(opened_, u"Lista"_s).size(), 5U);
    QTEST(totals(), "expected");
}

void tst_conversao::anEstimateWithoutItemsBecomesAnEmptyOrder()
{
    convert(u"0003"_s);
    QVERIFY(rowsOf(opened_, u"Lista"_s).empty());
    QCOMPARE(text(opened_, u"lblTotal"_s), u"0,00"_s);
    confirm();
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM OrdemServico"_s), (Rows{{u"1"_s, u"0"_s}}));
    QVERIFY(stored().empty());
}

void tst_conversao::twoHundredItems()
{
    constexpr int many = 200;
    Orcamento estimate{.marca = u"GOL"_s, .valor = u"20.100,00"_s};
    for (int price = 1; price <= many; ++price) {
        estimate.itens.push_back({u"0000"_s, u"A"_s, u"01"_s, u"ITEM %1"_s.arg(price), u"%1,00"_s.arg(price), {}});
    }
    const QString code = u"%1"_s.arg(IncluiOrcamento(estimate), 4, 10, QChar(u'0'));
    convert(code);
    const Rows shown = rowsOf(opened_, u"Lista"_s);
    QCOMPARE(shown.size(), std::size_t(many));
    QCOMPARE(shown.front(), (QStringList{u"0000"_s, u"A"_s, u"01"_s, u"ITEM 1"_s, u"1,00"_s, u"1,00"_s}));
    QCOMPARE(shown.back(), (QStringList{u"0000"_s, u"A"_s, u"01"_s, u"ITEM 200"_s, u"200,00"_s, u"200,00"_s}));
    confirm();
    Rows expected;
    for (int price = 1; price <= many; ++price) {
        const QString number = QString::number(price);
        expected.push_back({u"1"_s, u"0"_s, u"1"_s, u"ITEM "_s + number, number, u"A"_s});
    }
    QCOMPARE(stored(), expected);
    QCOMPARE(program_->rows(u"SELECT Valor FROM OrdemServico"_s), (Rows{{u"20100"_s}}));
}

/// The window comes to the front as it is. The total is that of the estimate alone until the next change.
void tst_conversao::anOpenWindowKeepsItsOwnRowsInFront()
{
    program_->config(u"LayoutOS"_s, compact);
    opened_ = support::show(order);
    type(opened_, u"txtKm"_s, u"45200"_s);
    add(u"LAVAGEM"_s, u"20,00"_s);
    const auto *before = opened_;
    convert(u"0002"_s);
    QCOMPARE(opened_, before);
    QCOMPARE(text(opened_, u"txtKm"_s), u"45200"_s);
    Rows expected{{u"0000"_s, u"A"_s, u"01"_s, u"LAVAGEM"_s, u"20,00"_s, u"20,00"_s}};
    expected.insert(expected.end(), second_.begin(), second_.end());
    QCOMPARE(rowsOf(opened_, u"Lista"_s), expected);
    QCOMPARE(totals(), (QStringList{u"10,00"_s, u"0,00"_s, u"0,00"_s, u"20,00"_s}));
    add(u"CERA"_s, u"5,00"_s);
    QCOMPARE(totals(), (QStringList{u"35,00"_s, u"10,00"_s, u"0,00"_s, u"25,00"_s}));
}

/// Nothing marks an estimate as converted.
void tst_conversao::anEstimateIsConvertedAsOftenAsWanted()
{
    convert(u"0002"_s);
    confirm();
    convert(u"0002"_s);
    confirm();
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM OrdemServico"_s), (Rows{{u"1"_s, u"10"_s}, {u"2"_s, u"10"_s}}));
    QCOMPARE(stored(), (Rows{{u"1"_s, u"1"_s, u"1"_s, u"FILTRO"_s, u"10"_s, u"P"_s},
                             {u"2"_s, u"1"_s, u"1"_s, u"FILTRO"_s, u"10"_s, u"P"_s}}));
    // Without a confirmation between them the rows of both stand in the order.
    convert(u"0002"_s);
    convert(u"0002"_s);
    QCOMPARE(rowsOf(opened_, u"Lista"_s), (Rows{second_.front(), second_.front()}));
    QCOMPARE(text(opened_, u"lblTotal"_s), u"10,00"_s);
}

void tst_conversao::oneThatWasDeletedMeanwhileIsConvertedAsItStands()
{
    open();
    show(u"0002"_s);
    program_->sql(u"DELETE * FROM Orcamento"_s);
    program_->sql(u"DELETE * FROM OrcaPecas"_s);
    click(window_, u"btnOSNovo"_s);
    QCOMPARE(rowsOf(found(order), u"Lista"_s), second_);
    QVERIFY(program_->rows(u"SELECT * FROM OrdemServico"_s).empty());
}

TARVELO_TEST_MAIN(tst_conversao)
#include "tst_conversao.moc"
