#include "platform/jet/stream.h"
#include "tests/jet/jettest.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using jettest::Content;
using jettest::contentOf;
using runtime::Null;

namespace
{

constexpr int rowCountAt = 16;
constexpr int columnCountAt = 45;
constexpr int mapAt = 55;
constexpr int columnsAt = 63;
constexpr int slotsAt = 14;

// The last piece of the chain, which is the first one in the file, is the rest of two full ones.
constexpr int lastLinkAt = 4096 - 4 - (10'000 - 2 * 4076);

constexpr quint32 nowhere = 0x00FF'FF00;

QString name(int number)
{
    return u"CLIENTE %1"_s.arg(number);
}

/// Ten rows, three a page. Row 4 outgrew the second page: it lies alone on one before them.
jet4::Table clients()
{
    jet4::Table table{.name = u"Clientes"_s,
                      .columns = jet4::columns(u"Codigo.Long,Nome.Text;50"_s),
                      .rows = {},
                      .compressed = false,
                      .mostRowsOfAPage = 3};
    for (qint32 i = 1; i <= 10; ++i) {
        table.rows.push_back({{i, name(i)}});
    }
    table.rows[3].overflow = true;
    return table;
}

/// A memo of each kind: in the row, on one page, in a chain of three.
jet4::Table notes()
{
    jet4::Table table{.name = u"Notas"_s,
                      .columns = jet4::columns(u"Codigo.Long,Obs.Memo,Nome.Text;50"_s),
                      .rows = {},
                      .compressed = false};
    table.rows = {{{1, u"CURTA"_s, u"A"_s}}, {{2, QString(500, u'M'), u"B"_s}}, {{3, QString(5000, u'L'), u"C"_s}}};
    return table;
}

QString longText(int length, QChar c)
{
    return u'"' + QString(length, c) + u'"';
}

} // namespace

/// Files with one thing wrong: what is told of it, and that all the rest is read.
class tst_damage : public QObject
{
    Q_OBJECT

private slots:
    void aTableCanPromiseOtherRows();
    void rowsThatCannotBeFoundAreCounted_data();
    void rowsThatCannotBeFoundAreCounted();
    void pagesOfOthersAreNotTakenForRows();
    void aTableWithoutItsMapHasNoRows_data();
    void aTableWithoutItsMapHasNoRows();
    void aDamagedDefinitionMakesItsTableUnreadable_data();
    void aDamagedDefinitionMakesItsTableUnreadable();
    void aDamagedLongValueIsNamed_data();
    void aDamagedLongValueIsNamed();
    void longValuesTogetherAreNoLongerThanTheFile();
    void aDamagedTextIsNamed();
    void aCatalogueThatIsNotWholeIsDamaged_data();
    void aCatalogueThatIsNotWholeIsDamaged();
    void aFileCutAtAPageIsNeverTakenForWhole();

private:
    using Change = void (*)(jet4::Layout &);

    jet::Reader reader(const jet4::Layout &file) const
    {
        const QString path = jettest::write(folder_.filePath(u"dados.mdb"_s), file.bytes);
        return {path, {QStringLiteral(SERVER), {}}, std::chrono::seconds(20)};
    }
    Content read(const jet4::Layout &file) const
    {
        jet::Reader reader = this->reader(file);
        return contentOf(reader, 0);
    }
    static QTestData &row(const char *what, Change change) { return QTest::newRow(what) << change; }

    QTemporaryDir folder_;
};

Q_DECLARE_METATYPE(void (*)(jet4::Layout &))

void tst_damage::aTableCanPromiseOtherRows()
{
    for (const quint32 promised : {0, 9, 11, 2'000'000}) {
        auto table = clients();
        table.promised = promised;
        jet::Reader reader = this->reader(jet4::layOut({{table}}));
        QCOMPARE(reader.tables()[0].promisedRows, promised);
        QCOMPARE(contentOf(reader, 0).reading.rows, 10);
    }
}

void tst_damage::rowsThatCannotBeFoundAreCounted_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("lost");
    row("a row that begins behind the page",
        [](jet4::Layout &file) { file.put16(file.tables[0].rows[1], slotsAt + 2, 0x1FFF); })
        << 9 << 1;
    row("a row that begins in the slots",
        [](jet4::Layout &file) { file.put16(file.tables[0].rows[1], slotsAt + 4, 15); })
        << 9 << 1;
    row("a row that knows no columns", [](jet4::Layout &file) { file.put16(file.tables[0].rows[1], 4096 - 31, 0); })
        << 9 << 1;
    row("more slots than a page has", [](jet4::Layout &file) { file.put16(file.tables[0].rows[1], 12, 0xFFFF); })
        << 7 << 1;
    row("a moved row on no page", [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, nowhere); })
        << 9 << 1;
    row("a moved row in a page of long values",
        [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, file.tables[1].longValues[0] << 8); })
        << 9 << 1;
    row("a moved row in another table",
        [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, file.tables[1].rows[0] << 8); })
        << 9 << 1;
    row("a moved row in a slot that there is not",
        [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, file.tables[0].rows.back() << 8 | 200); })
        << 9 << 1;
    row("a moved row that did not move",
        [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, file.tables[0].rows[1] << 8); })
        << 9 << 1;
    row("a moved row that moved on to itself",
        [](jet4::Layout &file) { file.put32(file.tables[0].rows[2], 4096 - 4, file.tables[0].rows[2] << 8); })
        << 9 << 1;
    row("a page that is not in the file",
        [](jet4::Layout &file) { file.put(file.tables[0].maps, 4096 - 69 + 5 + 63, "\x80"); })
        << 10 << 1;
}

void tst_damage::rowsThatCannotBeFoundAreCounted()
{
    QFETCH(const Change, change);
    QFETCH(const int, rows);
    QFETCH(const int, lost);
    auto file = jet4::layOut({{clients(), notes()}});
    change(file);
    const Content content = read(file);
    QCOMPARE(content.reading.rows, rows);
    QCOMPARE(content.reading.lost, lost);
    QCOMPARE(content.rows.size(), rows);
    for (const QStringList &values : content.rows) {
        QCOMPARE(values[1], u'"' + name(values[0].mid(5).toInt()) + u'"');
    }
}

void tst_damage::pagesOfOthersAreNotTakenForRows()
{
    auto file = jet4::layOut({{clients(), notes()}});
    const auto &pages = file.tables[0].rows;
    file.put32(pages[3], 4, file.tables[1].definition);
    jet::Reader reader = this->reader(file);
    QCOMPARE(contentOf(reader, 0).reading.rows, 7);
    QCOMPARE(contentOf(reader, 0).reading.lost, 0);
    QCOMPARE(reader.tables()[0].promisedRows, 10);
    QCOMPARE(contentOf(reader, 1).reading.rows, 3);
}

void tst_damage::aTableWithoutItsMapHasNoRows_data()
{
    QTest::addColumn<Change>("change");
    row("on no page", [](jet4::Layout &file) { file.put32(file.tables[0].definition, mapAt, nowhere); });
    row("in a slot that there is not",
        [](jet4::Layout &file) { file.put32(file.tables[0].definition, mapAt, file.tables[0].maps << 8 | 99); });
    row("of no kind", [](jet4::Layout &file) { file.put(file.tables[0].maps, 4096 - 69, "\7"); });
    row("of pages of bits that are none",
        [](jet4::Layout &file) { file.put(file.tables[0].maps, 4096 - 69, QByteArray("\1\xFF\xFF\xFF\x7F", 5)); });
}

void tst_damage::aTableWithoutItsMapHasNoRows()
{
    QFETCH(const Change, change);
    auto file = jet4::layOut({{clients(), notes()}});
    change(file);
    jet::Reader reader = this->reader(file);
    QVERIFY(!reader.tables()[0].readable || contentOf(reader, 0).reading.rows < reader.tables()[0].promisedRows);
    QCOMPARE(contentOf(reader, 1).reading.rows, 3);
}

void tst_damage::aDamagedDefinitionMakesItsTableUnreadable_data()
{
    QTest::addColumn<Change>("change");
    row("a page of another kind", [](jet4::Layout &file) { file.put(file.tables[0].definition, 0, "\1"); });
    row("a next page of another kind",
        [](jet4::Layout &file) { file.put32(file.tables[0].definition, 4, file.tables[0].rows[0]); });
    row("a next page that there is not",
        [](jet4::Layout &file) { file.put32(file.tables[0].definition, 4, 0xFFFF'FFFF); });
    row("a circle of pages",
        [](jet4::Layout &file) { file.put32(file.tables[0].definition, 4, file.tables[0].definition); });
    row("no columns", [](jet4::Layout &file) { file.put16(file.tables[0].definition, columnCountAt, 0); });
    row("too many columns", [](jet4::Layout &file) { file.put16(file.tables[0].definition, columnCountAt, 256); });
    row("columns without end",
        [](jet4::Layout &file) { file.put16(file.tables[0].definition, columnCountAt, 0xFFFF); });
    row("a Long of eight bytes", [](jet4::Layout &file) { file.put16(file.tables[0].definition, columnsAt + 23, 8); });
    row("a Long of varying length",
        [](jet4::Layout &file) { file.put(file.tables[0].definition, columnsAt + 15, "\2"); });
    row("a column without a name",
        [](jet4::Layout &file) { file.put(file.tables[0].definition, columnsAt + 2 * 25, QByteArray(2 + 12, '\0')); });
}

void tst_damage::aDamagedDefinitionMakesItsTableUnreadable()
{
    QFETCH(const Change, change);
    auto file = jet4::layOut({{clients(), notes()}});
    change(file);
    jet::Reader reader = this->reader(file);
    QCOMPARE(jettest::namesOf(reader.tables()), QStringList({u"Clientes"_s, u"Notas"_s}));
    QVERIFY(!reader.tables()[0].readable);
    QVERIFY(reader.tables()[0].columns.empty());
    const Content content = contentOf(reader, 0);
    QCOMPARE(content.reading.rows, 0);
    QCOMPARE(content.reading.lost, 1);
    QCOMPARE(contentOf(reader, 1).reading.rows, 3);
}

void tst_damage::aDamagedLongValueIsNamed_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QStringList>("texts");
    const QString shortOne = u"\"CURTA\""_s;
    const QString middle = longText(500, u'M');
    const QString longOne = longText(5000, u'L');
    const QString damaged = u"null?"_s;
    const QStringList noMiddle{shortOne, damaged, longOne};
    const QStringList noLong{shortOne, middle, damaged};
    // Row 2 begins 68 bytes before the end of its page, row 3 97 bytes; the value six bytes behind that.
    row("whole", [](jet4::Layout &) {}) << QStringList{shortOne, middle, longOne};
    row("a page of something else", [](jet4::Layout &file) { file.put16(file.tables[0].longValues[0], 4, 0); })
        << noMiddle;
    row("a page of something else in a chain", [](jet4::Layout &file) {
        file.put16(file.tables[0].longValues[2], 4, 0);
    }) << noLong;
    row("a length that its page has not", [](jet4::Layout &file) {
        file.put32(file.tables[0].rows[0], 4096 - 68 + 6, 1002 | 0x4000'0000);
    }) << noMiddle;
    row("a length that ends before its chain", [](jet4::Layout &file) {
        file.put32(file.tables[0].rows[0], 4096 - 97 + 6, 9998);
    }) << noLong;
    row("a length that its chain does not reach", [](jet4::Layout &file) {
        file.put32(file.tables[0].rows[0], 4096 - 97 + 6, 10002);
    }) << noLong;
    row("a length beyond the file", [](jet4::Layout &file) {
        file.put32(file.tables[0].rows[0], 4096 - 97 + 6, 0x3FFF'FFFF);
    }) << noLong;
    row("a length beyond the row", [](jet4::Layout &file) {
        file.put32(file.tables[0].rows[0], 4096 - 68 + 6, 2 | 0x8000'0000);
    }) << noMiddle;
    row("no pages at all", [](jet4::Layout &file) {
        for (const quint32 page : file.tables[0].longValues) {
            file.put(page, 0, "\2");
        }
    }) << QStringList{shortOne, damaged, damaged};
    row("a circle", [](jet4::Layout &file) {
        const quint32 last = file.tables[0].longValues[1];
        file.put32(last, lastLinkAt, last << 8);
    }) << noLong;
    row("a link to nowhere", [](jet4::Layout &file) { file.put32(file.tables[0].longValues[1], lastLinkAt, nowhere); })
        << noLong;
    row("a value that is gone", [](jet4::Layout &file) {
        file.put16(file.tables[0].longValues[0], slotsAt, 0xC000 | (4096 - 1000));
    }) << noMiddle;
}

void tst_damage::aDamagedLongValueIsNamed()
{
    QFETCH(const Change, change);
    QFETCH(const QStringList, texts);
    auto file = jet4::layOut({{notes()}});
    change(file);
    const Content content = read(file);
    QCOMPARE(content.column(1), texts);
    QCOMPARE(content.column(0), QStringList({u"long 1"_s, u"long 2"_s, u"long 3"_s}));
    QCOMPARE(content.column(2), QStringList({u"\"A\""_s, u"\"B\""_s, u"\"C\""_s}));
    QCOMPARE(content.reading.lost, 0);
}

// Every row points to the one long text that there is; read each time, it would be two thousand times the file.
void tst_damage::longValuesTogetherAreNoLongerThanTheFile()
{
    jet4::Table table{.name = u"T"_s, .columns = jet4::columns(u"Obs.Memo"_s), .rows = {{{QString(100'000, u'L')}}}};
    const auto first = jet4::layOut({{table}});
    const QByteArray row = first.bytes.mid(qsizetype{first.tables[0].rows[0]} * 4096 + 4096 - 21, 21);
    for (int i = 0; i < 2000; ++i) {
        table.rows.push_back({.values = {}, .raw = row});
    }
    const auto file = jet4::layOut({{table}});
    const Content content = read(file);
    QCOMPARE(content.reading.rows, 2001);
    const auto readable = content.column(0).count(longText(100'000, u'L'));
    QVERIFY(readable >= 1);
    QVERIFY(readable * 200'000 <= file.bytes.size());
    QCOMPARE(content.column(0).count(u"null?"_s), 2001 - readable);
}

void tst_damage::aDamagedTextIsNamed()
{
    auto table = clients();
    table.rows[1].raw = QByteArray::fromHex("0200 02000000 414243 0900 0600 0100 03");
    table.rows[2].raw = QByteArray::fromHex("0200 03000000 414243 ff00 0600 0100 03");
    const Content content = read(jet4::layOut({{table}}));
    QCOMPARE(content.rows[0], QStringList({u"long 1"_s, u"\"CLIENTE 1\""_s}));
    QCOMPARE(content.rows[1], QStringList({u"long 2"_s, u"null?"_s}));
    QCOMPARE(content.rows[2], QStringList({u"long 3"_s, u"null?"_s}));
    QCOMPARE(content.rows[3], QStringList({u"long 4"_s, u"\"CLIENTE 4\""_s}));
    QCOMPARE(content.reading.rows, 10);
}

void tst_damage::aCatalogueThatIsNotWholeIsDamaged_data()
{
    QTest::addColumn<Change>("change");
    row("no definition", [](jet4::Layout &file) { file.put(file.catalogue.definition, 0, "\1"); });
    row("a circle", [](jet4::Layout &file) { file.put32(file.catalogue.definition, 4, file.catalogue.definition); });
    row("one row more promised", [](jet4::Layout &file) { file.put32(file.catalogue.definition, rowCountAt, 10); });
    row("one row fewer promised", [](jet4::Layout &file) { file.put32(file.catalogue.definition, rowCountAt, 8); });
    row("a row that is lost", [](jet4::Layout &file) { file.put16(file.catalogue.rows[0], slotsAt, 0); });
    row("no rows", [](jet4::Layout &file) { file.put32(file.catalogue.rows[0], 4, 77); });
    row("no map", [](jet4::Layout &file) { file.put32(file.catalogue.definition, mapAt, nowhere); });
    row("no column of that name",
        [](jet4::Layout &file) { file.put(file.catalogue.definition, columnsAt + 17 * 25 + 2, "X"); });
}

void tst_damage::aCatalogueThatIsNotWholeIsDamaged()
{
    QFETCH(const Change, change);
    auto file = jet4::layOut({{clients(), notes()}});
    change(file);
    try {
        reader(file);
        QFAIL("read all the same");
    } catch (const jet::Damaged &damaged) {
        QCOMPARE(damaged.damage(), jet::Damage::Catalogue);
    }
}

void tst_damage::aFileCutAtAPageIsNeverTakenForWhole()
{
    const auto whole = jet4::layOut({{clients(), notes()}});
    for (qsizetype size = whole.bytes.size() - 4096; size >= 0; size -= 4096) {
        auto file = whole;
        file.bytes.truncate(size);
        bool isWhole = true;
        try {
            jet::Reader reader = this->reader(file);
            for (std::size_t i = 0; i < reader.tables().size(); ++i) {
                const jet::Table &table = reader.tables()[i];
                const Content content = contentOf(reader, i);
                isWhole = isWhole && table.readable && content.reading.rows == table.promisedRows &&
                          content.reading.lost == 0;
            }
        } catch (const jet::Damaged &) {
            isWhole = false;
        }
        QVERIFY2(!isWhole, qPrintable(u"%1 pages"_s.arg(size / 4096)));
    }
}

QTEST_GUILESS_MAIN(tst_damage)
#include "tst_damage.moc"
