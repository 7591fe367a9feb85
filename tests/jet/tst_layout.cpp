#include "platform/jet/page.h"
#include "platform/jet/record.h"
#include "platform/jet/text.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

jet::Bytes bytesOf(const QByteArray &bytes)
{
    return {reinterpret_cast<const uchar *>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

/// A page of rows with these entries of slots.
jet::Page pageOf(const std::vector<quint16> &entries)
{
    jet::Page page{1, 1};
    qToLittleEndian(static_cast<quint16>(entries.size()), page.data() + 12);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        qToLittleEndian(entries[i], page.data() + 14 + 2 * i);
    }
    return page;
}

QStringList shown(const jet::Page &page)
{
    static const QStringList names{u"row"_s, u"elsewhere"_s, u"moved"_s, u"deleted"_s, u"damaged"_s};
    const auto slots_ = jet::slotsOf(page);
    if (!slots_) {
        return {u"none"_s};
    }
    QStringList result;
    for (const jet::Slot &slot : *slots_) {
        result.append(u"%1 %2-%3"_s.arg(names[static_cast<int>(slot.kind)]).arg(slot.start).arg(slot.end));
    }
    return result;
}

/// The bytes of a field, in hexadecimal digits; "damaged" where they are not inside the row.
QString shown(const std::optional<jet::Bytes> &field)
{
    if (!field) {
        return u"damaged"_s;
    }
    const auto *data = reinterpret_cast<const char *>(field->data());
    return QString::fromLatin1(QByteArray(data, static_cast<qsizetype>(field->size())).toHex());
}

jet::ColumnPlace fixed(int number, int offset, int size)
{
    return {number, true, offset, size, 0};
}

jet::ColumnPlace variable(int number, int index)
{
    return {number, false, 0, 0, index};
}

// Three columns: a Long, two texts "AB" and "" (compressed), all of them set.
const char *const threeColumns = "0300 2a000000 fffe4142 0a00 0a00 0600 0200 07";

} // namespace

/// The bytes of pages, rows and texts as they lie in the file.
class tst_layout : public QObject
{
    Q_OBJECT

private slots:
    void rowsLieFromTheEndOfThePageDownwards();
    void slotsSayWhatBecameOfTheirRows();
    void whatADeletedRowLeftBehindMayBeGone();
    void slotsThatOverlapAreDamaged_data();
    void slotsThatOverlapAreDamaged();
    void aPageWithMoreSlotsThanAPointerTellsHasNone();
    void aPointerIsAPageAndASlot();

    void fieldsAreFoundInTheRow();
    void anOlderRowKnowsFewerColumns();
    void aRowWithoutVariableColumnsEndsWithItsMask();
    void aBooleanIsABitOfTheMask();
    void bytesThatAreNoRowAreRefused_data();
    void bytesThatAreNoRowAreRefused();
    void fieldsOutsideTheRowAreDamaged_data();
    void fieldsOutsideTheRowAreDamaged();

    void textsAreRead_data();
    void textsAreRead();
    void everyCharacterHasTwoForms();
    void bytesThatAreNoTextAreRefused_data();
    void bytesThatAreNoTextAreRefused();
};

void tst_layout::rowsLieFromTheEndOfThePageDownwards()
{
    QCOMPARE(shown(pageOf({4000, 3900, 3899})),
             QStringList({u"row 4000-4096"_s, u"row 3900-4000"_s, u"row 3899-3900"_s}));
    QCOMPARE(shown(pageOf({})), QStringList{});
}

void tst_layout::slotsSayWhatBecameOfTheirRows()
{
    QCOMPARE(shown(pageOf({4000, 0x4000 | 3990, 0x8000 | 3900, 0xC000 | 3800})),
             QStringList({u"row 4000-4096"_s, u"elsewhere 3990-4000"_s, u"moved 3900-3990"_s, u"deleted 3800-3900"_s}));
}

void tst_layout::whatADeletedRowLeftBehindMayBeGone()
{
    QCOMPARE(shown(pageOf({0xC000 | 0x1000, 4000, 0xC000 | 4000, 3900, 0xC000 | 0x1000, 3800})),
             QStringList({u"deleted 4096-4096"_s, u"row 4000-4096"_s, u"deleted 4000-4000"_s, u"row 3900-4000"_s,
                          u"deleted 3900-3900"_s, u"row 3800-3900"_s}));
}

void tst_layout::slotsThatOverlapAreDamaged_data()
{
    QTest::addColumn<int>("start");
    QTest::newRow("behind the page") << 4097;
    QTest::newRow("at its end") << 4096;
    QTest::newRow("in the row before") << 4050;
    QTest::newRow("an empty row") << 4000;
    QTest::newRow("in the slots") << 19;
    QTest::newRow("in the head") << 0;
}

void tst_layout::slotsThatOverlapAreDamaged()
{
    QFETCH(const int, start);
    const auto page = pageOf({4000, static_cast<quint16>(start), 3900});
    QCOMPARE(shown(page), QStringList({u"row 4000-4096"_s, u"damaged 4000-4000"_s, u"row 3900-4000"_s}));
    QVERIFY(!jet::rowIn(page, 1, jet::SlotKind::Row));
}

void tst_layout::aPageWithMoreSlotsThanAPointerTellsHasNone()
{
    auto page = pageOf({4000});
    qToLittleEndian(quint16{256}, page.data() + 12);
    QCOMPARE(shown(page).size(), 256);
    for (const quint16 count : {quint16{257}, quint16{2041}, quint16{0xFFFF}}) {
        qToLittleEndian(count, page.data() + 12);
        QCOMPARE(shown(page), QStringList{u"none"_s});
        QVERIFY(!jet::rowIn(page, 0, jet::SlotKind::Row));
    }
}

void tst_layout::aPointerIsAPageAndASlot()
{
    const auto pointer = jet::pointerAt(bytesOf(hex("00 ff563412")), 1);
    QCOMPARE(pointer.page, 0x123456);
    QCOMPARE(pointer.slot, 255);
    const auto page = pageOf({4000, 0x8000 | 3900});
    QVERIFY(jet::rowIn(page, 0, jet::SlotKind::Row));
    QVERIFY(!jet::rowIn(page, 0, jet::SlotKind::Moved));
    QCOMPARE(jet::rowIn(page, 1, jet::SlotKind::Moved)->size(), 100);
    QVERIFY(!jet::rowIn(page, 2, jet::SlotKind::Row));
}

void tst_layout::fieldsAreFoundInTheRow()
{
    const QByteArray row = hex(threeColumns);
    const auto record = jet::Record::of(bytesOf(row));
    QVERIFY(record);
    QCOMPARE(shown(record->field(fixed(0, 0, 4))), u"2a000000"_s);
    QCOMPARE(shown(record->field(variable(1, 0))), u"fffe4142"_s);
    QCOMPARE(shown(record->field(variable(2, 1))), u""_s);
    QVERIFY(record->bit(0) && record->bit(1) && record->bit(2));
}

void tst_layout::anOlderRowKnowsFewerColumns()
{
    const QByteArray row = hex(threeColumns);
    const auto record = jet::Record::of(bytesOf(row));
    for (const int newer : {3, 4, 7, 8, 254}) {
        QVERIFY(!record->bit(newer));
    }
}

void tst_layout::aRowWithoutVariableColumnsEndsWithItsMask()
{
    const QByteArray row = hex("0200 2a000000 0500 03");
    const auto record = jet::Record::of(bytesOf(row));
    QVERIFY(record);
    QCOMPARE(shown(record->field(fixed(0, 0, 4))), u"2a000000"_s);
    QCOMPARE(shown(record->field(fixed(1, 4, 2))), u"0500"_s);
}

void tst_layout::aBooleanIsABitOfTheMask()
{
    const QByteArray row = hex("0a00 0102");
    const auto record = jet::Record::of(bytesOf(row));
    for (int column = 0; column < 10; ++column) {
        QCOMPARE(record->bit(column), column == 0 || column == 9);
    }
}

void tst_layout::bytesThatAreNoRowAreRefused_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::newRow("nothing") << hex("");
    QTest::newRow("one byte") << hex("01");
    QTest::newRow("no columns") << hex("0000 07");
    QTest::newRow("no room for the mask") << hex("1100 0000");
    QTest::newRow("columns without end") << hex("ffff 0000000000000000");
}

void tst_layout::bytesThatAreNoRowAreRefused()
{
    QFETCH(const QByteArray, row);
    QVERIFY(!jet::Record::of(bytesOf(row)));
}

void tst_layout::fieldsOutsideTheRowAreDamaged_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("whole") << hex(threeColumns) << u"fffe4142"_s << u""_s;
    QTest::newRow("starts before the row")
        << hex("0300 2a000000 fffe4142 0a00 0a00 0100 0200 07") << u"damaged"_s << u""_s;
    QTest::newRow("ends before it starts")
        << hex("0300 2a000000 fffe4142 0a00 0700 0800 0200 07") << u"damaged"_s << u"fe4142"_s;
    QTest::newRow("ends behind its room")
        << hex("0300 2a000000 fffe4142 0b00 0a00 0600 0200 07") << u"fffe4142"_s << u"damaged"_s;
    QTest::newRow("ends behind the row") << hex("0300 2a000000 fffe4142 ff0f ff00 0600 0200 07") << u"damaged"_s
                                         << u"damaged"_s;
    QTest::newRow("has fewer than its mask says")
        << hex("0300 2a000000 fffe4142 0000 0a00 0600 0100 07") << u"fffe4142"_s << u"damaged"_s;
    QTest::newRow("has more than there is room for")
        << hex("0300 2a000000 fffe4142 0a00 0a00 0600 ff00 07") << u"damaged"_s << u"damaged"_s;
    QTest::newRow("has no room to say how many") << hex("0300 07") << u"damaged"_s << u"damaged"_s;
}

void tst_layout::fieldsOutsideTheRowAreDamaged()
{
    QFETCH(const QByteArray, row);
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    const auto record = jet::Record::of(bytesOf(row));
    QVERIFY(record);
    QCOMPARE(shown(record->field(variable(1, 0))), first);
    QCOMPARE(shown(record->field(variable(2, 1))), second);
    QCOMPARE(shown(record->field(fixed(0, static_cast<int>(row.size()), 4))), u"damaged"_s);
    QCOMPARE(shown(record->field(fixed(0, -1, 4))), u"damaged"_s);
}

void tst_layout::textsAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << hex("") << QString();
    QTest::newRow("two bytes each") << hex("4100 c700 c300 4f00") << u"AÇÃO"_s;
    QTest::newRow("one byte each") << hex("fffe 41 c7 c3 4f") << u"AÇÃO"_s;
    QTest::newRow("nothing, compressed") << hex("fffe") << QString();
    QTest::newRow("both in one") << hex("fffe 52 24 00 ac20 1420 00 31") << QString(u"R$\u20AC\u20141"_s);
    QTest::newRow("two bytes up to the end") << hex("fffe 41 00 ac20") << QString(u"A\u20AC"_s);
    QTest::newRow("a pair of surrogates") << hex("3dd8 00de") << QString(u"\U0001F600"_s);
    QTest::newRow("half a pair") << hex("4100 3dd8") << QString(u"A"_s + QChar(0xD83D));
    QTest::newRow("a zero character") << hex("4100 0000 4200") << QString(u"A"_s + QChar(0) + u"B"_s);
    QTest::newRow("a mark of byte order") << hex("fffe 00 fffe 00 41") << QString(QChar(0xFEFF) + u"A"_s);
}

void tst_layout::textsAreRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    const auto read = jet::decodeText(bytesOf(bytes));
    QVERIFY(read);
    QCOMPARE(*read, text);
}

void tst_layout::everyCharacterHasTwoForms()
{
    for (ushort code = 1; code < 0x100; ++code) {
        const QByteArray wide = QByteArray(1, static_cast<char>(code)) + '\0';
        const QByteArray narrow = hex("fffe") + static_cast<char>(code);
        QCOMPARE(jet::decodeText(bytesOf(wide)), QString(QChar(code)));
        QCOMPARE(jet::decodeText(bytesOf(narrow)), QString(QChar(code)));
    }
}

void tst_layout::bytesThatAreNoTextAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("half a character") << hex("4100 42");
    QTest::newRow("half a mark") << hex("ff");
    QTest::newRow("half a character of two bytes") << hex("fffe 41 00 ac");
}

void tst_layout::bytesThatAreNoTextAreRefused()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(!jet::decodeText(bytesOf(bytes)));
}

QTEST_GUILESS_MAIN(tst_layout)
#include "tst_layout.moc"
