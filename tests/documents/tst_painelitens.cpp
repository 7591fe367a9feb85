#include "documents/usoimediato.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

using Rows = std::vector<QStringList>;

/// A window that writes each item at once: which lists it has, and the tables behind them.
struct Kind {
    QString name;
    FormaListas lists;
    DocumentoGravado tables;
    std::vector<Aba> keys;
};

const Kind estimate{u"frmOrcamentoDeTeste"_s, FormaListas::UmaLista, orcamentoGravado, {abaPecas}};
const Kind order{u"frmOrdemDeTeste"_s, FormaListas::Completa, ordemGravada, {abaPecas, abaServicos, abaTercerizados}};

const QString documentGone = u"Documento não localizado"_s;
const QString itemGone = u"Código do Item Não Localizado."_s;

/// Alters document 1: the panel and how it is used are all that it is made of.
class Altering : public ui::Form
{
public:
    explicit Altering(const Kind &kind) : Form(kind.name), kind_(kind), panel_(new PainelItens(this))
    {
        auto *page = new QVBoxLayout(this);
        page->addWidget(panel_);
        resize(900, 500);
        panel_->liga(*this, UsoDe(*panel_, {.documento = kind.tables,
                                            .numero = [] { return 1; },
                                            .semDocumento = documentGone,
                                            .abasComTeclas = kind.keys}));
    }

    void Form_Load() override
    {
        panel_->monta(kind_.lists);
        panel_->listas().mostra(
            LeItens(u"SELECT * FROM %1 WHERE %2 = 1"_s.arg(kind_.tables.itens, kind_.tables.coluna)));
        panel_->recalcula();
    }

    PainelItens &panel() { return *panel_; }

private:
    Kind kind_;
    PainelItens *panel_;
};

} // namespace

/// The item panel in windows that are not the one that opens an order.
class TstPainelItens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void anEstimateShowsOneListAlone();
    void anEstimateTakesEveryKindInItsList();
    void everyChangeIsWrittenAtOnce_data();
    void everyChangeIsWrittenAtOnce();
    void storedItemsComeBackWithTheirKeys();
    void materialCanBeRemovedWhereTheWindowSaysSo();
    void theKeysActWhereTheWindowSaysSo();
    void aPageOfTheWindowsOwnTakesNoItem();
    void aLockedPanelSaysWhyAndChangesNothing();
    void nothingEmptiesAListWithoutDeleting();
    void noItemIsLeftAloneWhereTheDocumentIsGone_data();
    void noItemIsLeftAloneWhereTheDocumentIsGone();
    void aRowWhoseItemIsGoneLeavesTheList();
    void anItemIsRemovedTwice();
    void theListsOfAWindowAreReachedByItsName();

private:
    void open(const Kind &kind);
    void add(const QString &description, const QString &value) const;
    void edit(const QString &value) const;
    ui::ListView &list(Aba aba) const { return window_->panel().listas().lista(aba); }
    Rows stored(const Kind &kind) const
    {
        return program_->rows(u"SELECT Codigo, %1, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM %2"_s.arg(
            kind.tables.coluna, kind.tables.itens));
    }
    QString total(const Kind &kind) const
    {
        return program_->rows(u"SELECT Valor FROM %1 WHERE Codigo = 1"_s.arg(kind.tables.tabela)).front().front();
    }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    Altering *window_ = nullptr;
};

void TstPainelItens::initTestCase()
{
    for (const Kind &kind : {estimate, order}) {
        ui::Forms::instance().add(kind.name, [kind] { return new Altering(kind); });
    }
}

void TstPainelItens::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(u"INSERT INTO Orcamento (MarcaModelo) VALUES ('GOL')"_s);
    program_->sql(u"INSERT INTO OrdemServico (CodCliente) VALUES (1)"_s);
    boxes_ = std::make_unique<support::Boxes>();
}

void TstPainelItens::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstPainelItens::open(const Kind &kind)
{
    window_ = static_cast<Altering *>(support::show(kind.name));
}

void TstPainelItens::add(const QString &description, const QString &value) const
{
    type(window_, u"txtQuantidade"_s, u"2"_s);
    type(window_, u"txtDescricao"_s, description);
    type(window_, u"txtValor"_s, value);
    click(window_, u"btnItemAdd"_s);
}

void TstPainelItens::edit(const QString &value) const
{
    list(abaPecas).selectRow(0);
    boxes_->inputCancel(u"Código"_s)
        .inputCancel(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s)
        .inputCancel(u"Quantidade"_s)
        .inputCancel(u"Descrição"_s)
        .input(u"Valor Unitário"_s, value);
}

void TstPainelItens::anEstimateShowsOneListAlone()
{
    open(estimate);
    const auto *tabs = control<QTabWidget>(window_, u"tabItems"_s);
    QVERIFY(!tabs->tabBar()->isVisible());
    QVERIFY(control<ui::ListView>(window_, u"Lista"_s)->isVisible());
    QCOMPARE(control<ui::ListView>(window_, u"Lista"_s)->columnCount(), 6);
    QVERIFY(support::controlOf(window_, u"lblTotal"_s)->isVisible());
    for (const QString &hidden : {u"lstServicos"_s, u"lstTercerizados"_s, u"lstMaterial"_s, u"lblTotalP"_s,
                                  u"lblTotalS"_s, u"lblTotalT"_s, u"Rotulos_35"_s, u"Rotulos_36"_s, u"Rotulos_37"_s}) {
        QVERIFY2(!support::controlOf(window_, hidden)->isVisible(), qPrintable(hidden));
    }
}

void TstPainelItens::anEstimateTakesEveryKindInItsList()
{
    program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s);
    program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    open(estimate);
    for (const QString &code : {u"1"_s, u"2"_s}) {
        type(window_, u"txtCodPeca"_s, code);
        type(window_, u"txtQuantidade"_s, u"1"_s);
        click(window_, u"btnItemAdd"_s);
    }
    add(u"SOLDA"_s, u"10"_s);
    const Rows expected{{u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"OLEO"_s, u"30"_s, u"P"_s},
                        {u"2"_s, u"1"_s, u"2"_s, u"1"_s, u"TROCA"_s, u"50"_s, u"S"_s},
                        {u"3"_s, u"1"_s, u"0"_s, u"2"_s, u"SOLDA"_s, u"10"_s, u"A"_s}};
    QCOMPARE(stored(estimate), expected);
    QCOMPARE(total(estimate), u"100"_s);
}

void TstPainelItens::everyChangeIsWrittenAtOnce_data()
{
    QTest::addColumn<bool>("isOrder");
    QTest::newRow("estimate") << false;
    QTest::newRow("order") << true;
}

void TstPainelItens::everyChangeIsWrittenAtOnce()
{
    QFETCH(bool, isOrder);
    const Kind &kind = isOrder ? order : estimate;
    open(kind);
    add(u"SOLDA"_s, u"10"_s);
    add(u"PINTURA"_s, u"100,50"_s);
    QCOMPARE(total(kind), u"221"_s);

    list(abaPecas).selectRow(0);
    boxes_->inputCancel(u"Código"_s)
        .input(u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, u"s"_s)
        .inputCancel(u"Quantidade"_s)
        .input(u"Descrição"_s, u"solda elétrica"_s)
        .input(u"Valor Unitário"_s, u"12,5"_s);
    key(window_, u"Lista"_s, Qt::Key_Insert);
    const QStringList other{u"2"_s, u"1"_s, u"0"_s, u"2"_s, u"PINTURA"_s, u"100.5"_s, u"A"_s};
    QCOMPARE(stored(kind), (Rows{{u"1"_s, u"1"_s, u"0"_s, u"2"_s, u"SOLDA ELÉTRICA"_s, u"12.5"_s, u"S"_s}, other}));
    QCOMPARE(total(kind), u"226"_s);

    list(abaPecas).selectRow(0);
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(stored(kind), (Rows{other}));
    QCOMPARE(total(kind), u"201"_s);
    list(abaPecas).selectRow(0);
    key(window_, u"Lista"_s, Qt::Key_Delete);
    QCOMPARE(stored(kind), Rows());
    QCOMPARE(total(kind), u"0"_s);
    QCOMPARE(list(abaPecas).count(), 0);
}

void TstPainelItens::storedItemsComeBackWithTheirKeys()
{
    auto items = core::DBDados->OpenRecordset(u"OSPecas"_s);
    for (const QString &letter : {u"P"_s, u"A"_s, u"S"_s, u"Z"_s, u"X"_s, u"K"_s}) {
        GravaItem(items, u"CodOS", 1, {u"0000"_s, letter, u"01"_s, u"ITEM "_s + letter, u"10,00"_s, {}});
    }
    items.Close();
    open(order);
    const auto texts = [this](Aba aba) {
        QStringList found;
        for (int row = 0; row < list(aba).count(); ++row) {
            const LinhaItem item = window_->panel().listas().linha({aba, row});
            found << item.tipo + u'|' + item.descricao + u'|' + window_->panel().listas().chave({aba, row});
        }
        return found;
    };
    QCOMPARE(texts(abaPecas), (QStringList{u"P|ITEM P|1"_s, u"A|ITEM A|2"_s}));
    QCOMPARE(texts(abaServicos), (QStringList{u"S|ITEM S|3"_s, u"A|ITEM Z|4"_s}));
    QCOMPARE(texts(abaTercerizados), (QStringList{u"A|ITEM X|5"_s}));
    QCOMPARE(texts(abaMaterial), (QStringList{u"|ITEM K|6"_s}));
    QCOMPARE(support::text(window_, u"lblTotal"_s), u"50,00"_s);

    control<QTabWidget>(window_, u"tabItems"_s)->setCurrentIndex(abaServicos);
    list(abaServicos).selectRow(1);
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(program_->rows(u"SELECT PSA FROM OSPecas"_s), (Rows{{u"P"_s}, {u"A"_s}, {u"S"_s}, {u"X"_s}, {u"K"_s}}));
    QCOMPARE(total(order), u"40"_s);
}

void TstPainelItens::materialCanBeRemovedWhereTheWindowSaysSo()
{
    program_->part(u"GRAXA"_s, u"P"_s, u"30,00"_s);
    open(order);
    control<QTabWidget>(window_, u"tabItems"_s)->setCurrentIndex(abaMaterial);
    type(window_, u"txtCodPeca"_s, u"1"_s);
    type(window_, u"txtQuantidade"_s, u"1"_s);
    click(window_, u"btnItemAdd"_s);
    QCOMPARE(stored(order), (Rows{{u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"GRAXA"_s, u"0"_s, u"K"_s}}));
    list(abaMaterial).selectRow(0);
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(stored(order), Rows());
    QCOMPARE(total(order), u"0"_s);
}

void TstPainelItens::theKeysActWhereTheWindowSaysSo()
{
    open(order);
    control<QTabWidget>(window_, u"tabItems"_s)->setCurrentIndex(abaServicos);
    add(u"SOLDA"_s, u"10"_s);
    list(abaServicos).selectRow(0);
    key(window_, u"lstServicos"_s, Qt::Key_Delete);
    QCOMPARE(stored(order), Rows());

    control<QTabWidget>(window_, u"tabItems"_s)->setCurrentIndex(abaMaterial);
    window_->panel().listas().acrescenta(abaMaterial, {u"0001"_s, {}, u"01"_s, u"GRAXA"_s, {}, {}});
    list(abaMaterial).selectRow(0);
    key(window_, u"lstMaterial"_s, Qt::Key_Delete);
    key(window_, u"lstMaterial"_s, Qt::Key_Insert);
    QCOMPARE(list(abaMaterial).count(), 1);
}

void TstPainelItens::aPageOfTheWindowsOwnTakesNoItem()
{
    open(order);
    add(u"SOLDA"_s, u"10"_s);
    list(abaPecas).selectRow(0);
    QVERIFY(support::controlOf(window_, u"btnItemRemove"_s)->isEnabled());
    auto *tabs = control<QTabWidget>(window_, u"tabItems"_s);
    tabs->setCurrentIndex(tabs->addTab(new QWidget, u"Calculadora"_s));
    QVERIFY(!support::controlOf(window_, u"btnItemRemove"_s)->isEnabled());
    add(u"PINTURA"_s, u"20"_s);
    QCOMPARE(stored(order).size(), 1U);
    QCOMPARE(total(order), u"20"_s);
}

void TstPainelItens::aLockedPanelSaysWhyAndChangesNothing()
{
    open(order);
    add(u"SOLDA"_s, u"10"_s);
    const Rows before = stored(order);
    list(abaPecas).selectRow(0);
    window_->panel().trava(u"A ordem está fechada"_s);
    list(abaPecas).clearSelection();
    list(abaPecas).selectRow(0);
    for (const QString &button : {u"btnItemAdd"_s, u"btnItemRemove"_s}) {
        QVERIFY(!support::controlOf(window_, button)->isEnabled());
        QVERIFY(support::controlOf(window_, button)->toolTip().contains(u"A ordem está fechada"_s));
    }
    key(window_, u"Lista"_s, Qt::Key_Delete);
    key(window_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(stored(order), before);

    window_->panel().trava({});
    QVERIFY(support::controlOf(window_, u"btnItemAdd"_s)->isEnabled());
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(stored(order), Rows());
}

void TstPainelItens::nothingEmptiesAListWithoutDeleting()
{
    open(order);
    QVERIFY(!support::controlOf(window_, u"btnLimpa"_s)->isVisible());
    QVERIFY(!support::controlOf(window_, u"btnAdicionar"_s)->isVisible());
}

void TstPainelItens::noItemIsLeftAloneWhereTheDocumentIsGone_data()
{
    QTest::addColumn<bool>("isOrder");
    QTest::newRow("estimate") << false;
    QTest::newRow("order") << true;
}

void TstPainelItens::noItemIsLeftAloneWhereTheDocumentIsGone()
{
    QFETCH(bool, isOrder);
    const Kind &kind = isOrder ? order : estimate;
    open(kind);
    add(u"SOLDA"_s, u"10"_s);
    add(u"PINTURA"_s, u"30"_s);
    program_->sql(u"DELETE * FROM %1"_s.arg(kind.tables.tabela));

    boxes_->title(u"Tarvelo"_s).exclamation(documentGone);
    add(u"LAVAGEM"_s, u"20"_s);
    QCOMPARE(list(abaPecas).count(), 2);
    QCOMPARE(support::text(window_, u"lblTotal"_s), u"80,00"_s);
    QCOMPARE(stored(kind).size(), 2U);

    edit(u"15"_s);
    boxes_->exclamation(documentGone);
    key(window_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(list(abaPecas).count(), 1);
    QCOMPARE(stored(kind).front().at(5), u"10"_s);

    list(abaPecas).selectRow(0);
    boxes_->exclamation(documentGone);
    click(window_, u"btnItemRemove"_s);
    QCOMPARE(list(abaPecas).count(), 0);
    QCOMPARE(stored(kind), (Rows{{u"1"_s, u"1"_s, u"0"_s, u"2"_s, u"SOLDA"_s, u"10"_s, u"A"_s}}));
}

void TstPainelItens::aRowWhoseItemIsGoneLeavesTheList()
{
    open(order);
    add(u"SOLDA"_s, u"10"_s);
    add(u"PINTURA"_s, u"30"_s);
    program_->sql(u"DELETE * FROM OSPecas WHERE Codigo = 1"_s);
    edit(u"15"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(itemGone);
    key(window_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(list(abaPecas).count(), 1);
    QCOMPARE(support::text(window_, u"lblTotal"_s), u"60,00"_s);
    QCOMPARE(total(order), u"80"_s);
}

void TstPainelItens::anItemIsRemovedTwice()
{
    open(order);
    add(u"SOLDA"_s, u"10"_s);
    add(u"PINTURA"_s, u"30"_s);
    program_->sql(u"DELETE * FROM OSPecas WHERE Codigo = 1"_s);
    list(abaPecas).selectRow(0);
    key(window_, u"Lista"_s, Qt::Key_Delete);
    QCOMPARE(stored(order).size(), 1U);
    QCOMPARE(total(order), u"60"_s);
}

void TstPainelItens::theListsOfAWindowAreReachedByItsName()
{
    open(order);
    QCOMPARE(&ListasDe(order.name), &window_->panel().listas());
    // A window that is not open is opened, as by a hand-back.
    ui::Forms::instance().Unload(order.name);
    const ListasItens &lists = ListasDe(order.name);
    QVERIFY(ui::Forms::instance().find(order.name)->isAncestorOf(&lists));
}

TARVELO_TEST_MAIN(TstPainelItens)
#include "tst_painelitens.moc"
