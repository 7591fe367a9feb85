#include "support/boxes.h"
#include "tests/estimates/consultaorcamento.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::control;
using support::text;
using support::type;

namespace
{

const QString notSearchable = u"Digite o texto a pesquisar"_s;

} // namespace

/// Listing, searching and showing estimates.
class tst_frmOSOrcaConsulta : public EstimateQueryTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { prepare(); }
    void cleanup() { finish(); }

    void atLoadAllEstimatesAreListed();
    void theColumnsAreNamed();
    void noneIsShownAtLoad();
    void theSearches();
    void theSearchByField_data();
    void theSearchByField();
    void whatCanBeNoCodeFindsNothing_data();
    void whatCanBeNoCodeFindsNothing();
    void anApostropheEndsInTheRunTimeErrorOfTheStatement();
    void anEmptyTextSearchesNothing();
    void theSearchWaitsForItsText();
    void aSearchLeavesTheEstimateShown();
    void listingAllEmptiesTheEstimateShown();
    void aColumnSorts();

    void aClickShowsTheEstimate();
    void theItemsStandAsTheyWereWritten();
    void whatBelongsToADeletedPartStaysAsItWasWritten();
    void anotherEstimateReplacesTheOneShown();
    void whatWasNeverWrittenIsEmpty();
    void anEstimateThatWasDeletedIsShownNoMore();
    void escUnloads();
    void voltarUnloads();

private:
    void search(const QString &field, const QString &typed) const;
};

void tst_frmOSOrcaConsulta::search(const QString &field, const QString &typed) const
{
    control<QComboBox>(window_, u"cboPesquisa"_s)->setCurrentText(field);
    type(window_, u"txtTexto"_s, typed);
    click(window_, u"btnPesquisar"_s);
}

void tst_frmOSOrcaConsulta::atLoadAllEstimatesAreListed()
{
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Consulta Orçamento]"_s);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0001"_s, u"15/05/2024"_s, u"MARIA DA SILVA"_s, u"GOL 1.0"_s},
                                     {u"0002"_s, u"15/05/2024"_s, u"JOSÉ"_s, u"FUSCA 1300"_s},
                                     {u"0003"_s, u"15/05/2024"_s, QString(), u"GOL 1.6"_s}}));
}

void tst_frmOSOrcaConsulta::theColumnsAreNamed()
{
    open();
    const auto titles = [this](const QString &name) {
        const auto *view = control<ui::ListView>(window_, name);
        QStringList all;
        for (int column = 0; column < view->columnCount(); ++column) {
            all << view->model()->headerData(column, Qt::Horizontal).toString();
        }
        return all;
    };
    QCOMPARE(titles(u"Lista"_s), (QStringList{u"Código"_s, u"Data"_s, u"Nome Cliente"_s, u"Marca/Modelo"_s}));
    QCOMPARE(titles(u"lstPecas"_s),
             (QStringList{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V. Unit."_s, u"V. Total"_s}));
}

void tst_frmOSOrcaConsulta::noneIsShownAtLoad()
{
    open();
    for (const QString &label : {u"lblCodigo"_s, u"lblData"_s, u"lblNome"_s, u"lblCodCliente"_s, u"lblFone"_s,
                                 u"lblMarca"_s, u"lblAno"_s, u"lblObs"_s, u"lblValor"_s}) {
        QCOMPARE(text(window_, label), QString());
    }
    QVERIFY(rows(u"lstPecas"_s).empty());
    QCOMPARE(window_->focusWidget(), control<QWidget>(window_, u"txtTexto"_s));
}

// --- searching

void tst_frmOSOrcaConsulta::theSearches()
{
    open();
    const auto *fields = control<QComboBox>(window_, u"cboPesquisa"_s);
    QStringList entries;
    for (int entry = 0; entry < fields->count(); ++entry) {
        entries << fields->itemText(entry);
    }
    QCOMPARE(entries, (QStringList{u"Código Orçamento"_s, u"Nome do Cliente"_s, u"Marca/Modelo"_s, u"Fone"_s}));
    QCOMPARE(fields->currentIndex(), 0);
}

void tst_frmOSOrcaConsulta::theSearchByField_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("code") << u"Código Orçamento"_s << u"2"_s << QStringList{u"0002"_s};
    QTest::newRow("a code with its zeros") << u"Código Orçamento"_s << u"0003"_s << QStringList{u"0003"_s};
    QTest::newRow("a code that nobody has") << u"Código Orçamento"_s << u"99"_s << QStringList();
    QTest::newRow("name, from its middle") << u"Nome do Cliente"_s << u"silva"_s << QStringList{u"0001"_s};
    QTest::newRow("name, an accent counts") << u"Nome do Cliente"_s << u"jose"_s << QStringList();
    QTest::newRow("make, any letter case") << u"Marca/Modelo"_s << u"gol"_s << QStringList{u"0001"_s, u"0003"_s};
    QTest::newRow("phone") << u"Fone"_s << u"3232"_s << QStringList{u"0002"_s};
    QTest::newRow("a pattern of the user's own") << u"Marca/Modelo"_s << u"g*6"_s << QStringList{u"0003"_s};
    QTest::newRow("what was never written is not found")
        << u"Nome do Cliente"_s << u"*"_s << QStringList{u"0001"_s, u"0002"_s};
}

void tst_frmOSOrcaConsulta::theSearchByField()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    const Boxes boxes;
    open();
    search(field, typed);
    QTEST(codes(), "expected");
}

void tst_frmOSOrcaConsulta::whatCanBeNoCodeFindsNothing_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"ABC", "1,5", "1e3", "1 OR 1=1", "9999999999", "'", "-"}) {
        QTest::newRow(typed) << QString::fromUtf8(typed);
    }
}

void tst_frmOSOrcaConsulta::whatCanBeNoCodeFindsNothing()
{
    QFETCH(QString, typed);
    const Boxes boxes;
    open();
    search(u"Código Orçamento"_s, typed);
    QVERIFY(codes().isEmpty());
    search(u"Código Orçamento"_s, u"1"_s);
    QCOMPARE(codes(), QStringList{u"0001"_s});
}

void tst_frmOSOrcaConsulta::anApostropheEndsInTheRunTimeErrorOfTheStatement()
{
    QString told;
    try {
        core::DBDados->OpenRecordset(u"SELECT * FROM Orcamento WHERE NomeCliente Like '*D'AVILA*'"_s);
    } catch (const runtime::RuntimeError &error) {
        told = u"Erro em tempo de execução '%1':\n\n%2"_s.arg(error.number()).arg(error.description());
    }
    QVERIFY2(told.contains(u"3075"), qPrintable(told));

    Boxes boxes;
    boxes.critical(told);
    open();
    search(u"Nome do Cliente"_s, u"d'avila"_s);
    QVERIFY(ui::Application::ended());
}

void tst_frmOSOrcaConsulta::anEmptyTextSearchesNothing()
{
    open();
    search(u"Fone"_s, QString());
    QCOMPARE(codes().size(), 3);
    support::key(window_, u"btnTodos"_s, Qt::Key_Return);
    QCOMPARE(codes().size(), 3);
}

void tst_frmOSOrcaConsulta::theSearchWaitsForItsText()
{
    open();
    auto *button = control<QWidget>(window_, u"btnPesquisar"_s);
    QVERIFY(!button->isEnabled());
    QVERIFY(button->toolTip().endsWith(notSearchable));
    type(window_, u"txtTexto"_s, u"1"_s, false);
    QVERIFY(button->isEnabled());
    QVERIFY(!button->toolTip().contains(notSearchable));
}

void tst_frmOSOrcaConsulta::aSearchLeavesTheEstimateShown()
{
    open();
    show(u"0001"_s);
    search(u"Código Orçamento"_s, u"2"_s);
    QCOMPARE(text(window_, u"lblCodigo"_s), u"0001"_s);
}

void tst_frmOSOrcaConsulta::listingAllEmptiesTheEstimateShown()
{
    open();
    search(u"Código Orçamento"_s, u"1"_s);
    show(u"0001"_s);
    click(window_, u"btnTodos"_s);
    QCOMPARE(codes(), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    QCOMPARE(text(window_, u"lblCodigo"_s), QString());
    QCOMPARE(text(window_, u"lblValor"_s), QString());
    QVERIFY(rows(u"lstPecas"_s).empty());
}

void tst_frmOSOrcaConsulta::aColumnSorts()
{
    open();
    auto *titles = list()->header();
    const auto clickTitle = [&](int column) {
        const QPoint place(titles->sectionViewportPosition(column) + 20, titles->height() / 2);
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, titles->viewport()->mapTo(window_, place));
    };
    clickTitle(3);
    QCOMPARE(codes(), (QStringList{u"0002"_s, u"0001"_s, u"0003"_s}));
    clickTitle(3);
    QCOMPARE(codes(), (QStringList{u"0003"_s, u"0001"_s, u"0002"_s}));
}

// --- the estimate shown

void tst_frmOSOrcaConsulta::aClickShowsTheEstimate()
{
    open();
    show(u"0001"_s);
    const std::vector<std::pair<QString, QString>> expected{
        {u"lblCodigo"_s, u"0001"_s},     {u"lblData"_s, u"15/05/2024"_s},     {u"lblNome"_s, u"MARIA DA SILVA"_s},
        {u"lblCodCliente"_s, u"0007"_s}, {u"lblFone"_s, u"(11) 5555-0001"_s}, {u"lblMarca"_s, u"GOL 1.0"_s},
        {u"lblAno"_s, u"2001/2002"_s},   {u"lblObs"_s, u"RETORNA SEXTA"_s},   {u"lblValor"_s, u"1.180,85"_s},
    };
    for (const auto &[label, shown] : expected) {
        QCOMPARE(text(window_, label), shown);
    }
}

/// The quantity follows the unit of the part; the window's layout has nothing to do with it.
void tst_frmOSOrcaConsulta::theItemsStandAsTheyWereWritten()
{
    for (const QString &layout : {u"1"_s, u"3"_s}) {
        open(0, layout);
        show(u"0001"_s);
        QCOMPARE(rows(u"lstPecas"_s), (Rows{{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,25"_s, u"60,50"_s},
                                            {u"0002"_s, u"S"_s, u"1,500"_s, u"REVISÃO"_s, u"700,00"_s, u"1.050,00"_s},
                                            {u"0000"_s, u"A"_s, u"01"_s, u"GRAXA"_s, u"0,35"_s, u"0,35"_s},
                                            {u"0003"_s, u"P"_s, u"3,500"_s, u"OLEO"_s, u"20,00"_s, u"70,00"_s}}));
        window_->Unload();
    }
}

/// Only the unit of its quantity is gone, which then counts in pieces.
void tst_frmOSOrcaConsulta::whatBelongsToADeletedPartStaysAsItWasWritten()
{
    program_->sql(u"UPDATE OrcaPecas SET Quantidade = 4 WHERE Descricao = 'OLEO'"_s);
    open();
    show(u"0001"_s);
    QCOMPARE(rows(u"lstPecas"_s).back(),
             (QStringList{u"0003"_s, u"P"_s, u"4,000"_s, u"OLEO"_s, u"20,00"_s, u"80,00"_s}));
    program_->sql(u"DELETE * FROM Pecas"_s);
    show(u"0001"_s);
    QCOMPARE(rows(u"lstPecas"_s).back(), (QStringList{u"0003"_s, u"P"_s, u"04"_s, u"OLEO"_s, u"20,00"_s, u"80,00"_s}));
}

void tst_frmOSOrcaConsulta::anotherEstimateReplacesTheOneShown()
{
    open();
    show(u"0001"_s);
    show(u"0002"_s);
    QCOMPARE(text(window_, u"lblAno"_s), QString());
    QCOMPARE(rows(u"lstPecas"_s), (Rows{{u"0001"_s, u"P"_s, u"01"_s, u"FILTRO"_s, u"10,00"_s, u"10,00"_s}}));
}

void tst_frmOSOrcaConsulta::whatWasNeverWrittenIsEmpty()
{
    program_->sql(u"UPDATE Orcamento SET Data = Null, Valor = Null, MarcaModelo = Null WHERE Codigo = 3"_s);
    open();
    QCOMPARE(rows(u"Lista"_s).back(), (QStringList{u"0003"_s, QString(), QString(), QString()}));
    show(u"0003"_s);
    for (const QString &label : {u"lblData"_s, u"lblNome"_s, u"lblCodCliente"_s, u"lblFone"_s, u"lblMarca"_s,
                                 u"lblAno"_s, u"lblObs"_s, u"lblValor"_s}) {
        QCOMPARE(text(window_, label), QString());
    }
}

/// The list keeps what stood there when it was filled; a click looks the estimate up again.
void tst_frmOSOrcaConsulta::anEstimateThatWasDeletedIsShownNoMore()
{
    const Boxes boxes;
    open();
    show(u"0001"_s);
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    QCOMPARE(codes(), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    const QPoint place = list()->visualRect(list()->model()->index(1, 1)).center();
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, list()->viewport()->mapTo(window_, place));
    QCOMPARE(text(window_, u"lblCodigo"_s), QString());
    QCOMPARE(text(window_, u"lblNome"_s), QString());
    QVERIFY(rows(u"lstPecas"_s).empty()); // its items, left behind, are nobody's
}

void tst_frmOSOrcaConsulta::escUnloads()
{
    open();
    support::key(window_, u"txtTexto"_s, Qt::Key_Escape);
    QVERIFY(found(query) == nullptr);
}

void tst_frmOSOrcaConsulta::voltarUnloads()
{
    open();
    click(window_, u"btnVoltar"_s);
    QVERIFY(found(query) == nullptr);
}

TARVELO_TEST_MAIN(tst_frmOSOrcaConsulta)
#include "tst_frmOSOrcaConsulta.moc"
