// Lists whose rows a source has: what is read of them, and when.
#include "platform/runtime/error.h"
#include "platform/ui/listmodel.h"
#include "platform/ui/listview.h"
#include "platform/ui/rowsource.h"
#include "platform/ui/textorder.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using ui::ListView;

namespace
{

/// What was asked of a source.
struct Asked {
    QList<int> rows;
    QList<int> columns;
    bool fails = false;
};

/// Rows of three columns: a code, a name of the given ones, a value. Row `gone` is gone; `marked` has a picture and a
/// tag.
class Names : public ui::RowSource
{
public:
    Names(QStringList names, Asked &asked) : names_(std::move(names)), asked_(asked) {}

    int count() const override { return int(names_.size()); }
    bool hasIcons() const override { return marked >= 0; }

    std::optional<ui::SourceRow> row(int row) override
    {
        asked_.rows.append(row);
        if (asked_.fails) {
            runtime::raise(13);
        }
        if (row == gone) {
            return std::nullopt;
        }
        const bool has = row == marked;
        return ui::SourceRow{
            {textOf(row, 0), textOf(row, 1), textOf(row, 2)}, has ? u"0012"_s : QString(), has ? 1 : 0};
    }

    /// From the last row to the first one: the order is the source's own.
    void column(int column, const TakeText &take) override
    {
        asked_.columns.append(column);
        if (asked_.fails) {
            runtime::raise(13);
        }
        for (int row = count() - 1; row >= 0; --row) {
            if (row != gone) {
                take(row, textOf(row, column));
            }
        }
    }

    int gone = -1;
    int marked = -1;

private:
    QString textOf(int row, int column) const
    {
        switch (column) {
        case 0:
            return u"%1"_s.arg(row + 1, 4, 10, QChar(u'0'));
        case 1:
            return names_[row];
        default:
            return u"%1,00"_s.arg(row % 10);
        }
    }

    QStringList names_;
    Asked &asked_;
};

void addColumns(ListView &list)
{
    list.addColumn(u"Código"_s, 1000);
    list.addColumn(u"Nome"_s, 3700);
    list.addColumn(u"Valor"_s, 1500, Qt::AlignRight);
}

QStringList columnOf(const ListView &list, int column = 1)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) {
        texts.append(list.item(row).subItem(column));
    }
    return texts;
}

QStringList manyNames(int rows)
{
    QStringList names;
    for (int row = 0; row < rows; ++row) {
        names.append(u"NOME %1"_s.arg(row * 7919 % rows));
    }
    return names;
}

} // namespace

class tst_listrows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { list_.reset(); }

    void onlyRowsThatAreSeenAreRead();
    void aRowIsReadOnceForAllItsColumns();
    void jumpingReadsThePageThere();
    void rowsAddedByHandStandBehind();
    void newRowsTakeThePlaceOfTheOld();
    void modelFollowsTheRules();
    void whatIsSetLaterBelongsToTheList();
    void picturesAndTagsComeWithTheRow();
    void aListWithPicturesKeepsTheirPlaceFree();
    void checksAndKeysBelongToTheRow();
    void removedRowsStayAway();
    void rowsTakenAwayStandAsTheyStood();
    void rowsTakenAwayReadNothing();

    void sortReadsTheColumnOnce();
    void equalTextsKeepTheirOrder();
    void sortMovesRowsByHandAlong();
    void sortGoesByWhatIsShown();
    void textsSortAlikeWhereverTheyDiffer();
    void rowsAreFoundByOneColumn();

    void aRowThatIsGoneShowsIt();
    void aRowThatIsGoneCannotBeChosen();
    void aRowThatIsGoneSortsByWhatItShows();
    void whatFailsWhilePaintingIsRaisedBehindIt();
    void whatFailsForTheProgramIsItsOwn();
    void whatFailsInASortLeavesTheOrder();

private:
    Names &show(const QStringList &names)
    {
        auto rows = std::make_unique<Names>(names, asked_);
        auto &made = *rows;
        list_->setRows(std::move(rows));
        return made;
    }

    Asked asked_;
    std::unique_ptr<ListView> list_;
};

void tst_listrows::init()
{
    asked_ = {};
    list_ = std::make_unique<ListView>();
    addColumns(*list_);
    list_->resize(800, 300);
    list_->show();
    list_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(list_.get()));
}

void tst_listrows::onlyRowsThatAreSeenAreRead()
{
    constexpr int rows = 100000;
    show(manyNames(rows));
    QCOMPARE(list_->count(), rows);
    QCOMPARE(list_->model()->rowCount(), rows);
    list_->grab();
    QVERIFY(!asked_.rows.isEmpty());
    QVERIFY2(asked_.rows.size() < 50, qPrintable(QString::number(asked_.rows.size())));
    QVERIFY(asked_.columns.isEmpty());
    QCOMPARE(*std::max_element(asked_.rows.begin(), asked_.rows.end()), asked_.rows.size() - 1);
}

void tst_listrows::aRowIsReadOnceForAllItsColumns()
{
    show(manyNames(1000));
    list_->grab();
    const QSet<int> different(asked_.rows.begin(), asked_.rows.end());
    QCOMPARE(asked_.rows.size(), different.size());
    const auto before = asked_.rows.size();
    list_->grab();
    QCOMPARE(list_->item(0).subItem(2), u"0,00"_s);
    QCOMPARE(asked_.rows.size(), before);
}

void tst_listrows::jumpingReadsThePageThere()
{
    constexpr int middle = 50000;
    show(manyNames(2 * middle));
    list_->grab();
    asked_.rows.clear();
    list_->ensureVisible(middle);
    list_->grab();
    QVERIFY(asked_.rows.contains(middle));
    QVERIFY2(asked_.rows.size() < 50, qPrintable(QString::number(asked_.rows.size())));
}

void tst_listrows::rowsAddedByHandStandBehind()
{
    show({u"ANA"_s, u"BIA"_s});
    const auto total = list_->addItem(QString(), {u"Total:"_s, u"1,00"_s});
    QCOMPARE(total.row(), 2);
    QCOMPARE(columnOf(*list_), (QStringList{u"ANA"_s, u"BIA"_s, u"Total:"_s}));
    QCOMPARE(columnOf(*list_, 2), (QStringList{u"0,00"_s, u"1,00"_s, u"1,00"_s}));
    list_->item(2).setSubItem(4, u"x"_s);
    QCOMPARE(list_->item(2).subItem(4), u"x"_s);
    QCOMPARE(list_->item(0).subItem(4), QString());
    QTRY_COMPARE(list_->model()->rowCount(), 3);
}

void tst_listrows::newRowsTakeThePlaceOfTheOld()
{
    show({u"ANA"_s, u"BIA"_s});
    list_->addItem(u"x"_s);
    list_->item(0).setSubItem(1, u"OUTRA"_s);
    list_->item(0).setTag(u"1"_s);
    list_->sortBy(1, Qt::DescendingOrder);
    show({u"CAIO"_s});
    QCOMPARE(columnOf(*list_), QStringList{u"CAIO"_s});
    QCOMPARE(list_->item(0).tag(), QString());
    list_->clear();
    QCOMPARE(list_->count(), 0);
    list_->addItem(u"1"_s, {u"À MÃO"_s});
    QCOMPARE(columnOf(*list_), QStringList{u"À MÃO"_s});
}

void tst_listrows::modelFollowsTheRules()
{
    const QAbstractItemModelTester tester(list_->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    list_->setCheckBoxes(true);
    show({u"C"_s, u"A"_s, u"B"_s}).gone = 1;
    list_->addItem(QString(), {u"TOTAL"_s});
    list_->selectRow(2);
    list_->sortBy(1, Qt::AscendingOrder);
    list_->item(0).setSubItem(1, u"Z"_s);
    list_->item(3).setChecked(true);
    list_->removeRow(1);
    list_->sortBy(1, Qt::DescendingOrder);
    list_->grab();
    show({u"G"_s});
    list_->clearColumns();
    list_->addColumn(u"Outra"_s, 1000);
    list_->addItem(u"1"_s);
    list_->grab();
    QCOMPARE(list_->count(), 1);
}

void tst_listrows::whatIsSetLaterBelongsToTheList()
{
    show({u"B"_s, u"A"_s}).marked = 0;
    list_->grab();
    QSignalSpy changed(list_->model(), &QAbstractItemModel::dataChanged);
    auto item = list_->item(0);
    item.setSubItem(1, u"C"_s);
    item.setTag(QString());
    item.setSmallIcon(0);
    QCOMPARE(changed.count(), 2);
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(columnOf(*list_), (QStringList{u"A"_s, u"C"_s}));
    QCOMPARE(list_->item(1).tag(), QString());
    QCOMPARE(list_->item(1).smallIcon(), 0);
    QCOMPARE(list_->item(1).text(), u"0001"_s);
}

void tst_listrows::picturesAndTagsComeWithTheRow()
{
    show({u"B"_s, u"A"_s, u"C"_s}).marked = 2;
    QCOMPARE(list_->item(2).smallIcon(), 1);
    QCOMPARE(list_->item(2).tag(), u"0012"_s);
    QCOMPARE(list_->item(0).smallIcon(), 0);
    QCOMPARE(list_->item(0).tag(), QString());
    list_->item(0).setTag(u"x"_s);
    list_->item(1).setSmallIcon(1);
    QCOMPARE(list_->item(2).tag(), u"0012"_s);
    QCOMPARE(list_->item(2).smallIcon(), 1);
    list_->sortBy(1, Qt::DescendingOrder);
    QCOMPARE(list_->item(0).tag(), u"0012"_s);
    QCOMPARE(list_->item(1).tag(), u"x"_s);
    QCOMPARE(list_->item(2).smallIcon(), 1);
}

void tst_listrows::aListWithPicturesKeepsTheirPlaceFree()
{
    const auto decoration = [this](int row) { return list_->model()->index(row, 0).data(Qt::DecorationRole); };
    show({u"A"_s, u"B"_s});
    QVERIFY(!decoration(0).isValid());
    show({u"A"_s, u"B"_s}).marked = 1;
    QCOMPARE(decoration(0).value<QColor>(), QColor(Qt::transparent));
    QVERIFY(!decoration(1).value<QIcon>().isNull());
}

void tst_listrows::checksAndKeysBelongToTheRow()
{
    list_->setCheckBoxes(true);
    show({u"B"_s, u"A"_s});
    list_->item(0).setChecked(true);
    list_->item(0).setKey(u"K1"_s);
    list_->sortBy(1, Qt::AscendingOrder);
    QVERIFY(list_->item(1).checked());
    QCOMPARE(list_->item(1).key(), u"K1"_s);
    QVERIFY(!list_->item(0).checked());
}

void tst_listrows::removedRowsStayAway()
{
    show({u"A"_s, u"B"_s, u"C"_s});
    list_->removeRow(1);
    list_->addItem(u"9"_s, {u"D"_s});
    QCOMPARE(columnOf(*list_), (QStringList{u"A"_s, u"C"_s, u"D"_s}));
    list_->sortBy(1, Qt::DescendingOrder);
    QCOMPARE(columnOf(*list_), (QStringList{u"D"_s, u"C"_s, u"A"_s}));
}

void tst_listrows::rowsTakenAwayStandAsTheyStood()
{
    show({u"ANA"_s, u"BIA"_s, u"CAIO"_s}).gone = 2;
    list_->addItem(u"x"_s, {u"TOTAL"_s, u"3,00"_s});
    list_->item(0).setSubItem(1, u"AMELIA"_s);
    list_->sortBy(1, Qt::DescendingOrder);
    const ui::ListRows taken = list_->rows();
    const auto stood = columnOf(*list_);
    QCOMPARE(stood, (QStringList{u"TOTAL"_s, u"BIA"_s, u"AMELIA"_s, u"#Excluído"_s}));

    const auto columnTaken = [&](int column) {
        QStringList texts;
        for (int row = 0; row < taken.count(); ++row) {
            texts.append(taken.text(row, column));
        }
        return texts;
    };
    list_->item(0).setSubItem(1, u"OUTRO TOTAL"_s);
    list_->item(1).setSubItem(1, u"BEATRIZ"_s);
    list_->sortBy(1, Qt::AscendingOrder);
    list_->removeRow(0);
    list_->addItem(u"y"_s, {u"MAIS UM"_s});
    QCOMPARE(columnTaken(1), stood);
    show({u"ZECA"_s});
    QCOMPARE(columnTaken(1), stood);
    list_.reset();
    QCOMPARE(columnTaken(1), stood);
    QCOMPARE(columnTaken(0), (QStringList{u"x"_s, u"0002"_s, u"0001"_s, u"#Excluído"_s}));
}

void tst_listrows::rowsTakenAwayReadNothing()
{
    constexpr int rows = 100000;
    show(manyNames(rows));
    const ui::ListRows taken = list_->rows();
    QCOMPARE(taken.count(), rows);
    QCOMPARE(asked_.rows, QList<int>());
    QCOMPARE(asked_.columns, QList<int>());
    QCOMPARE(taken.text(rows - 1, 0), u"100000"_s);
    QCOMPARE(asked_.rows, QList<int>{rows - 1});
}

void tst_listrows::sortReadsTheColumnOnce()
{
    show(manyNames(1000));
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(asked_.columns, QList<int>{1});
    QVERIFY(asked_.rows.isEmpty());
    auto sorted = manyNames(1000);
    std::stable_sort(sorted.begin(), sorted.end(), ui::lessAsText);
    QCOMPARE(columnOf(*list_), sorted);
    list_->sortBy(1, Qt::DescendingOrder);
    std::reverse(sorted.begin(), sorted.end());
    QCOMPARE(columnOf(*list_), sorted);
}

void tst_listrows::equalTextsKeepTheirOrder()
{
    show({u"b"_s, u"A"_s, u"B"_s, u"a"_s});
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(columnOf(*list_, 0), (QStringList{u"0002"_s, u"0004"_s, u"0001"_s, u"0003"_s}));
    list_->sortBy(1, Qt::DescendingOrder);
    QCOMPARE(columnOf(*list_, 0), (QStringList{u"0001"_s, u"0003"_s, u"0002"_s, u"0004"_s}));
}

void tst_listrows::sortMovesRowsByHandAlong()
{
    show({u"ZECA"_s, u"ANA"_s});
    list_->addItem(QString(), {u"Total:"_s});
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(columnOf(*list_), (QStringList{u"ANA"_s, u"Total:"_s, u"ZECA"_s}));
}

void tst_listrows::sortGoesByWhatIsShown()
{
    show({u"C"_s, u"A"_s, u"B"_s});
    list_->item(1).setSubItem(1, u"Z"_s);
    list_->item(1).setSubItem(2, u"A"_s);
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(columnOf(*list_), (QStringList{u"B"_s, u"C"_s, u"Z"_s}));
}

/// Texts that differ in their beginning, behind it, in nothing but case, in letters from outside the code page.
void tst_listrows::textsSortAlikeWhereverTheyDiffer()
{
    const QStringList pieces{u"RUA DAS FLORES"_s,
                             u"rua das floras"_s,
                             u"RUA DAS"_s,
                             u"ÁGUA"_s,
                             u"agua"_s,
                             u""_s,
                             u"Ω"_s,
                             u"Ωmega"_s,
                             u"Ж"_s,
                             u"ÿ"_s,
                             u"12345678"_s,
                             u"123456789"_s,
                             u"1234567Ω"_s,
                             u"1234567Ж"_s};
    QStringList names;
    for (const auto &first : pieces) {
        for (const auto &second : pieces) {
            names.append(first + second);
        }
    }
    show(names);
    list_->sortBy(1, Qt::AscendingOrder);
    std::stable_sort(names.begin(), names.end(), ui::lessAsText);
    QCOMPARE(columnOf(*list_), names);
}

void tst_listrows::rowsAreFoundByOneColumn()
{
    show({u"ANA"_s, u"BIA"_s, u"ANITA"_s, u"CAIO"_s}).gone = 3;
    list_->addItem(QString(), {u"ANTES"_s});
    const auto beginsWith = [](const QString &text) { return text.startsWith(u"AN"); };
    QCOMPARE(list_->rowsWhere(1, beginsWith), (std::vector<int>{0, 2, 4}));
    QCOMPARE(asked_.columns, QList<int>{1});
    QVERIFY(asked_.rows.isEmpty());
    list_->sortBy(1, Qt::DescendingOrder);
    for (const int row : list_->rowsWhere(1, beginsWith)) {
        QVERIFY(list_->item(row).subItem(1).startsWith(u"AN"));
    }
    QCOMPARE(list_->rowsWhere(1, beginsWith).size(), 3U);
    list_->item(0).setSubItem(1, u"ANUAL"_s);
    QCOMPARE(list_->rowsWhere(1, beginsWith).front(), 0);
}

void tst_listrows::aRowThatIsGoneShowsIt()
{
    show({u"ANA"_s, u"BIA"_s, u"CAIO"_s}).gone = 1;
    QCOMPARE(columnOf(*list_), (QStringList{u"ANA"_s, u"#Excluído"_s, u"CAIO"_s}));
    QCOMPARE(list_->model()->index(1, 0).data().toString(), u"#Excluído"_s);
    QCOMPARE(list_->item(1).tag(), QString());
    QCOMPARE(list_->item(1).smallIcon(), 0);
}

void tst_listrows::aRowThatIsGoneCannotBeChosen()
{
    show({u"ANA"_s, u"BIA"_s, u"CAIO"_s}).gone = 1;
    list_->grab();
    QSignalSpy clicked(list_.get(), &ListView::itemClick);
    QSignalSpy doubled(list_.get(), &ListView::itemDoubleClick);
    const auto place = list_->visualRect(list_->model()->index(1, 1)).center();
    const auto inWindow = list_->viewport()->mapTo(list_.get(), place);
    QTest::mouseClick(list_->windowHandle(), Qt::LeftButton, {}, inWindow);
    QTest::mouseDClick(list_->windowHandle(), Qt::LeftButton, {}, inWindow);
    QCOMPARE(list_->selectedRow(), -1);
    list_->selectRow(1);
    QCOMPARE(list_->selectedRow(), -1);
    QTest::keyClick(list_->windowHandle(), Qt::Key_Return);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(doubled.count(), 0);
    // The keys pass it by.
    list_->selectRow(0);
    QTest::keyClick(list_->windowHandle(), Qt::Key_Down);
    QCOMPARE(list_->selectedRow(), 2);
}

void tst_listrows::aRowThatIsGoneSortsByWhatItShows()
{
    show({u"ANA"_s, u"BIA"_s, u"!"_s}).gone = 1;
    list_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(columnOf(*list_), (QStringList{u"!"_s, u"#Excluído"_s, u"ANA"_s}));
}

void tst_listrows::whatFailsWhilePaintingIsRaisedBehindIt()
{
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '13':\n\nTipos incompatíveis"_s);
    asked_.fails = true;
    show({u"ANA"_s, u"BIA"_s});
    list_->grab();
    QVERIFY(!ui::Application::ended());
    QTRY_VERIFY(ui::Application::ended());
    boxes.finish();
    asked_.fails = false;
    ui::Application::resetEnd();
}

void tst_listrows::whatFailsForTheProgramIsItsOwn()
{
    show({u"ANA"_s});
    asked_.fails = true;
    QVERIFY_EXCEPTION_THROWN(list_->item(0).text(), runtime::RuntimeError);
    QVERIFY_EXCEPTION_THROWN(list_->sortBy(1, Qt::AscendingOrder), runtime::RuntimeError);
}

void tst_listrows::whatFailsInASortLeavesTheOrder()
{
    show({u"ZECA"_s, u"ANA"_s});
    list_->grab();
    asked_.fails = true;
    QVERIFY_EXCEPTION_THROWN(list_->sortBy(1, Qt::AscendingOrder), runtime::RuntimeError);
    asked_.fails = false;
    QCOMPARE(columnOf(*list_), (QStringList{u"ZECA"_s, u"ANA"_s}));
}

int main(int argc, char **argv)
{
    return support::runTest<tst_listrows>(argc, argv);
}

#include "tst_listrows.moc"
