#include "tests/jet/jettest.h"

#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using jet4::Row;
using jettest::Content;
using jettest::contentOf;
using jettest::namesOf;
using jettest::shown;
using runtime::Null;
using runtime::Value;

namespace
{

QString numbered(int number)
{
    return u"long %1"_s.arg(number);
}

/// A table of numbers and names with a row for each number.
jet4::Table clients(int rows)
{
    jet4::Table table{.name = u"Clientes"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;50"_s), .rows = {}};
    for (qint32 i = 1; i <= rows; ++i) {
        table.rows.push_back({{i, u"CLIENTE %1"_s.arg(i)}});
    }
    return table;
}

QStringList numbersTo(int last)
{
    QStringList numbers;
    for (int i = 1; i <= last; ++i) {
        numbers.append(numbered(i));
    }
    return numbers;
}

} // namespace

/// What is read of files that are whole.
class tst_file : public QObject
{
    Q_OBJECT

private slots:
    void numbersKeepTheirBits_data();
    void numbersKeepTheirBits();
    void aCurrencyIsReadToItsLimits();
    void aBooleanIsNeverNull();
    void nullIsApartFromTheEmptyText();
    void textsKeepEveryCharacter_data();
    void textsKeepEveryCharacter();
    void memosOfEveryLengthAreWhole_data();
    void memosOfEveryLengthAreWhole();
    void memosShareAPage();
    void whatIsNeitherNumberNorTextIsNull();

    void columnsTellTheirTypeAndSize();
    void aTableHasUpTo255Columns();
    void indexesBeforeTheColumnsArePassedOver_data();
    void indexesBeforeTheColumnsArePassedOver();
    void columnsComeInTheOrderOfTheTable();
    void namesKeepTheirAccents();
    void onlyTheTablesOfTheUserAreTold();
    void theEnvironmentChangesNothing();

    void rowsComeInStorageOrder();
    void deletedRowsAreLeftOut();
    void aRowThatOutgrewItsPageComesAtItsPlace();
    void rowsOlderThanAColumnHaveNull();
    void rowsOlderThanTheFirstTextHaveNull();
    void columnsThatAreGoneAreSkipped();
    void bothKindsOfMapAreFollowed_data();
    void bothKindsOfMapAreFollowed();
    void aTableCanBeEmpty();
    void tablesAreReadInAnyOrder();
    void aReadingCanBeLeft();

private:
    jet::File open(const std::vector<jet4::Table> &tables) const
    {
        return jet::File(jettest::write(folder_.filePath(u"DADOS.MDB"_s), jet4::bytes({tables})));
    }
    Content read(const jet4::Table &table) const
    {
        jet::File file = open({table});
        return contentOf(file, 0);
    }
    Content readValue(int type, const std::vector<Value> &values, bool compressed = false) const;

    QTemporaryDir folder_;
};

/// A table of one column of this type, a row a value.
Content tst_file::readValue(int type, const std::vector<Value> &values, bool compressed) const
{
    jet4::Table table{.name = u"T"_s, .columns = {{u"Valor"_s, type, 255}}, .rows = {}, .compressed = compressed};
    for (const Value &value : values) {
        table.rows.push_back({{value}});
    }
    return read(table);
}

void tst_file::numbersKeepTheirBits_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<std::vector<Value>>("values");
    const auto row = [](const char *name, int type, const std::vector<Value> &values) {
        QTest::newRow(name) << type << values;
    };
    using Single = std::numeric_limits<float>;
    using Double = std::numeric_limits<double>;
    row("Byte", jet::Byte, {qint16{0}, qint16{1}, qint16{127}, qint16{128}, qint16{255}, Null{}});
    row("Integer", jet::Integer, {qint16{0}, qint16{-1}, qint16{32767}, qint16{-32768}, Null{}});
    row("Long", jet::Long, {0, -1, 2147483647, -2147483647 - 1, Null{}});
    row("Single", jet::Single,
        {0.0F, -0.0F, 0.1F, -1.1F, 1234567.8F, Single::max(), Single::lowest(), Single::min(), Single::denorm_min(),
         Single::infinity(), std::bit_cast<float>(0x7FC0'0000U), std::bit_cast<float>(0xFFA0'1234U), Null{}});
    row("Double", jet::Double,
        {0.0, -0.0, 0.1, 1e300, Double::max(), Double::lowest(), Double::denorm_min(), -Double::infinity(),
         std::bit_cast<double>(0x7FF4'0000'DEAD'BEEFULL), Null{}});
    row("Date", jet::Date,
        {runtime::Date{0}, runtime::Date{38000.5}, runtime::Date{-0.25}, runtime::Date{-1.25}, runtime::Date{-657434},
         runtime::Date{2958465.999988426}, runtime::Date{1e300}, Null{}});
}

void tst_file::numbersKeepTheirBits()
{
    QFETCH(const int, type);
    QFETCH(const std::vector<Value>, values);
    const Content content = readValue(type, values);
    QStringList expected;
    for (const Value &value : values) {
        expected.append(shown(value));
    }
    QCOMPARE(content.column(0), expected);
}

// The rows are given as bytes: no double has all digits of the limits.
void tst_file::aCurrencyIsReadToItsLimits()
{
    jet4::Table table{.name = u"T"_s, .columns = jet4::columns(u"Valor.Currency"_s), .rows = {}};
    for (const char *row : {"0100 0000000000000000 01", "0100 0100000000000000 01", "0100 ffffffffffffffff 01",
                            "0100 3930000000000000 01", "0100 ffffffffffffff7f 01", "0100 0000000000000080 01",
                            "0100 0000000000000000 00"}) {
        table.rows.push_back({.values = {}, .raw = QByteArray::fromHex(row)});
    }
    QCOMPARE(read(table).column(0),
             QStringList({shown(0.0), shown(0.0001), shown(-0.0001), shown(1.2345), shown(922337203685477.5807),
                          shown(-922337203685477.5808), u"null"_s}));
}

void tst_file::aBooleanIsNeverNull()
{
    const jet4::Table table{.name = u"T"_s,
                            .columns = jet4::columns(u"Codigo.Long,Ativo.Boolean"_s),
                            .rows = {{{1, true}}, {{2, true}}, {{3, false}}},
                            .columnsOfOldRows = 1,
                            .oldRows = 1};
    QCOMPARE(read(table).column(1), QStringList({u"false"_s, u"true"_s, u"false"_s}));
}

void tst_file::nullIsApartFromTheEmptyText()
{
    for (const int type : {jet::Text, jet::Memo}) {
        const QStringList expected{u"null"_s, u"\"\""_s, u"\" \""_s, u"\"A\""_s};
        QCOMPARE(readValue(type, {Null{}, QString(), u" "_s, u"A"_s}).column(0), expected);
        QCOMPARE(readValue(type, {Null{}, QString(), u" "_s, u"A"_s}, true).column(0), expected);
    }
}

void tst_file::textsKeepEveryCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("capitals") << u"JOÃO CONCEIÇÃO ÁÉÍÓÚ ÂÊÔ ÀÈ ÜÖ ÑÇ"_s;
    QTest::newRow("small letters") << u"joão conceição áéíóú âêô ü ñç"_s;
    QTest::newRow("accents that stand alone") << QString(u"JOA\u0303O"_s);
    QTest::newRow("beyond the Latin ones") << QString(u"R$ 10 \u20AC \u201Caspas\u201D \u2026 A"_s);
    QTest::newRow("beyond the first plane") << QString(u"\U0001F600 A \U0001F697"_s);
    QTest::newRow("half a pair") << QString(u"A"_s + QChar(0xD83D) + u"B"_s);
    QTest::newRow("the zero character") << QString(u"A"_s + QChar(0) + u"B"_s);
    QTest::newRow("the mark of byte order within") << QString(u"A\uFEFF"_s);
    QTest::newRow("low byte zero") << QString(u"A\u0100\u2000"_s);
    QTest::newRow("lines") << u"um\r\ndois\ttres"_s;
    QTest::newRow("the longest") << QString(255, u'Ç');
}

void tst_file::textsKeepEveryCharacter()
{
    QFETCH(const QString, text);
    for (const int type : {jet::Text, jet::Memo}) {
        for (const bool compressed : {false, true}) {
            QCOMPARE(readValue(type, {text}, compressed).column(0), QStringList{u'"' + text + u'"'});
        }
    }
}

void tst_file::memosOfEveryLengthAreWhole_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 31, 32, 33, 1024, 2037, 2038, 2039, 4076, 4077, 65535, 1'000'000}) {
        QTest::addRow("%d characters", length) << length;
    }
}

void tst_file::memosOfEveryLengthAreWhole()
{
    QFETCH(const int, length);
    QString text;
    for (int i = 0; i < length; ++i) {
        text.append(QChar(static_cast<char16_t>(u'A' + i % 26)));
    }
    text.back() = u'Ç';
    const Content content = readValue(jet::Memo, {u"ANTES"_s, text, u"DEPOIS"_s});
    QCOMPARE(content.column(0), QStringList({u"\"ANTES\""_s, u'"' + text + u'"', u"\"DEPOIS\""_s}));
    QCOMPARE(readValue(jet::Memo, {text}, true).column(0), QStringList{u'"' + text + u'"'});
}

void tst_file::memosShareAPage()
{
    std::vector<Value> values;
    QStringList expected;
    for (int i = 0; i < 300; ++i) {
        const QString text = u"%1 "_s.arg(i).repeated(40);
        values.emplace_back(text);
        expected.append(u'"' + text + u'"');
    }
    QCOMPARE(readValue(jet::Memo, values).column(0), expected);
}

void tst_file::whatIsNeitherNumberNorTextIsNull()
{
    const jet4::Table table{.name = u"T"_s,
                            .columns = jet4::columns(u"Bytes.Binary;20,Figura.Ole,Nome.Text;20"_s),
                            .rows = {{{u"ABC"_s, QString(3000, u'F'), u"ANA"_s}}}};
    QCOMPARE(read(table).rows, QList<QStringList>({{u"null"_s, u"null"_s, u"\"ANA\""_s}}));
}

void tst_file::columnsTellTheirTypeAndSize()
{
    const jet::File file =
        open({{.name = u"T"_s,
               .columns = jet4::columns(u"Codigo.Counter,Outro.Long,Nome.Text;50,Obs.Memo,Valor.Currency,Ativo.Boolean,"
                                        "Foto.Ole"_s),
               .rows = {}}});
    QStringList told;
    for (const jet::Column &column : file.tables()[0].columns) {
        told.append(u"%1 %2 %3 %4"_s.arg(column.name).arg(column.type).arg(column.size).arg(int{column.counter}));
    }
    QCOMPARE(told, QStringList({u"Codigo 4 4 1"_s, u"Outro 4 4 0"_s, u"Nome 10 50 0"_s, u"Obs 12 0 0"_s,
                                u"Valor 5 8 0"_s, u"Ativo 1 0 0"_s, u"Foto 11 0 0"_s}));
}

// Its definition goes over several pages.
void tst_file::aTableHasUpTo255Columns()
{
    jet4::Table table{.name = u"Larga"_s, .columns = {}, .rows = {}};
    Row row;
    QStringList names;
    QStringList expected;
    for (int i = 0; i < 255; ++i) {
        names.append(u"COLUNA DE NOME COMPRIDO COM ACENTUAÇÃO, NÚMERO %1"_s.arg(i));
        table.columns.push_back({names.back(), i % 2 == 0 ? jet::Long : jet::Text, 20});
        row.values.push_back(i % 2 == 0 ? Value(i) : Value(u"%1"_s.arg(i)));
        expected.append(shown(row.values.back()));
    }
    table.rows = {row, row};
    jet::File file = open({table});
    QStringList told;
    for (const jet::Column &column : file.tables()[0].columns) {
        told.append(column.name);
    }
    QCOMPARE(told, names);
    QCOMPARE(contentOf(file, 0).rows, QList<QStringList>({expected, expected}));
}

void tst_file::indexesBeforeTheColumnsArePassedOver_data()
{
    QTest::addColumn<int>("indexes");
    QTest::addColumn<int>("columns");
    QTest::newRow("one") << 1 << 2;
    QTest::newRow("as many as there can be") << 32 << 2;
    QTest::newRow("as many, before the columns of several pages") << 32 << 255;
}

void tst_file::indexesBeforeTheColumnsArePassedOver()
{
    QFETCH(const int, indexes);
    QFETCH(const int, columns);
    jet4::Table table{
        .name = u"T"_s, .columns = {}, .rows = {{}}, .indexes = static_cast<quint32>(indexes), .bitmaps = false};
    QStringList names;
    QStringList values;
    for (int i = 0; i < columns; ++i) {
        names.append(u"Coluna Nº %1"_s.arg(i));
        values.append(numbered(i));
        table.columns.push_back({names.last(), jet4::Long});
        table.rows[0].values.emplace_back(i);
    }
    jet::File file = open({table});
    QStringList told;
    for (const jet::Column &column : file.tables()[0].columns) {
        told.append(column.name);
    }
    QCOMPARE(told, names);
    QCOMPARE(contentOf(file, 0).rows, QList<QStringList>{values});
}

// A column that was moved in the table keeps its place in the rows and in the definition.
void tst_file::columnsComeInTheOrderOfTheTable()
{
    constexpr int columnsAt = 63;
    constexpr int columnSize = 25;
    constexpr int orderAt = 5;
    auto layout = jet4::layOut({{clients(3)}});
    layout.put16(layout.tables[0].definition, columnsAt + orderAt, 1);
    layout.put16(layout.tables[0].definition, columnsAt + columnSize + orderAt, 0);
    jet::File file(jettest::write(folder_.filePath(u"DADOS.MDB"_s), layout.bytes));
    QCOMPARE(file.tables()[0].columns[0].name, u"Nome"_s);
    QCOMPARE(file.tables()[0].columns[1].name, u"Codigo"_s);
    QVERIFY(file.tables()[0].columns[1].counter);
    QCOMPARE(contentOf(file, 0).rows[2], QStringList({u"\"CLIENTE 3\""_s, numbered(3)}));
}

void tst_file::namesKeepTheirAccents()
{
    const jet::File file =
        open({{.name = u"Peças e Serviços"_s, .columns = jet4::columns(u"Descrição.Text;60"_s), .rows = {}}});
    QCOMPARE(file.tables()[0].name, u"Peças e Serviços"_s);
    QCOMPARE(file.tables()[0].columns[0].name, u"Descrição"_s);
}

void tst_file::onlyTheTablesOfTheUserAreTold()
{
    const auto columns = jet4::columns(u"Codigo.Long"_s);
    const auto table = [&columns](const QString &name, quint32 flags = 0, qint16 type = 1) {
        return jet4::Table{.name = name, .columns = columns, .rows = {}, .flags = flags, .object = type};
    };
    const jet::File file =
        open({table(u"Pecas"_s), table(u"MSysACEs"_s, 0x8000'0000), table(u"MSysAux"_s, 2), table(u"~TMPCLP12345"_s),
              table(u"Oculta"_s, 8), table(u"Consulta"_s, 0, 5), table(u"Vinculada"_s, 0, 6), table(u"Clientes"_s)});
    QCOMPARE(namesOf(file.tables()), QStringList({u"Pecas"_s, u"Oculta"_s, u"Clientes"_s}));
}

void tst_file::theEnvironmentChangesNothing()
{
    qputenv("MDBICONV", "ISO-8859-1");
    qputenv("MDB_JET3_CHARSET", "cp437");
    qputenv("MDBOPTS", "debug_all:no_memo");
    const jet4::Table table{
        .name = u"Peças"_s, .columns = jet4::columns(u"Descrição.Memo"_s), .rows = {{{u"PARAFUSO Ø 5 €"_s}}}};
    jet::File file = open({table});
    QCOMPARE(file.tables()[0].name, u"Peças"_s);
    QCOMPARE(file.tables()[0].columns[0].name, u"Descrição"_s);
    QCOMPARE(contentOf(file, 0).column(0), QStringList{u"\"PARAFUSO Ø 5 €\""_s});
}

void tst_file::rowsComeInStorageOrder()
{
    jet4::Table table = clients(0);
    QStringList expected;
    for (const int i : {7, 3, 900, 1, 2, 0}) {
        table.rows.push_back({{i, u"X"_s}});
        expected.append(numbered(i));
    }
    table.mostRowsOfAPage = 2;
    QCOMPARE(read(table).column(0), expected);
}

void tst_file::deletedRowsAreLeftOut()
{
    jet4::Table table = clients(40);
    QStringList expected;
    for (int i = 1; i <= 40; ++i) {
        table.rows[i - 1].deleted = i % 3 != 0;
        if (i % 3 == 0) {
            expected.append(numbered(i));
        }
    }
    table.mostRowsOfAPage = 8;
    const Content content = read(table);
    QCOMPARE(content.column(0), expected);
    QCOMPARE(content.reading.rows, 13);
    QCOMPARE(content.reading.lost, 0);
}

// Its true place is a page before the one that points to it.
void tst_file::aRowThatOutgrewItsPageComesAtItsPlace()
{
    jet4::Table table = clients(20);
    for (const int number : {1, 7, 8, 20}) {
        table.rows[number - 1].overflow = true;
    }
    table.mostRowsOfAPage = 6;
    jet::File file = open({table});
    const Content content = contentOf(file, 0);
    QCOMPARE(content.column(0), numbersTo(20));
    QCOMPARE(content.column(1).at(6), u"\"CLIENTE 7\""_s);
    QCOMPARE(content.reading.rows, file.tables()[0].promisedRows);
    QCOMPARE(content.reading.lost, 0);
}

void tst_file::rowsOlderThanAColumnHaveNull()
{
    jet4::Table table{.name = u"Pecas"_s,
                      .columns =
                          jet4::columns(u"Codigo.Long,Nome.Text;50,Preco.Single,Obs.Memo,Ativo.Boolean,Data.Date"_s),
                      .rows = {{{1, u"VELHA"_s, 2.5F, u"OBS"_s, true, runtime::Date{1}}},
                               {{2, u"NOVA"_s, 2.5F, u"OBS"_s, true, runtime::Date{1}}}},
                      .oldRows = 1};
    const QStringList recent{u"long 2"_s, u"\"NOVA\""_s, shown(2.5F), u"\"OBS\""_s, u"true"_s, shown(runtime::Date{1})};
    QStringList old = recent;
    old[0] = u"long 1"_s;
    old[1] = u"\"VELHA\""_s;
    for (int known = 5; known > 0; --known) {
        old[known] = known == 4 ? u"false"_s : u"null"_s;
        table.columnsOfOldRows = known;
        QCOMPARE(read(table).rows, QList<QStringList>({old, recent}));
    }
}

// Such a row ends with its mask: it had nothing of variable length.
void tst_file::rowsOlderThanTheFirstTextHaveNull()
{
    jet4::Table table = clients(2);
    table.rows[0].raw = QByteArray::fromHex("0100 2a000000 01");
    QCOMPARE(read(table).rows, QList<QStringList>({{u"long 42"_s, u"null"_s}, {u"long 2"_s, u"\"CLIENTE 2\""_s}}));
}

void tst_file::columnsThatAreGoneAreSkipped()
{
    jet4::Table table{.name = u"Pecas"_s,
                      .columns = jet4::columns(
                          u"Velha.Long,Codigo.Long,Antiga.Text;20,Nome.Text;50,Marca.Boolean,Ativo.Boolean,Data.Date,"
                          "Preco.Single"_s),
                      .rows = {{{-1, 7, u"NADA"_s, u"PORCA"_s, true, true, runtime::Date{7}, 1.5F}},
                               {{-1, 5, u"NADA"_s, u"PARAFUSO"_s, false, true, runtime::Date{7}, 1.5F}},
                               {{-1, 6, Null{}, Null{}, true, false, Null{}, Null{}}}},
                      .columnsOfOldRows = 7,
                      .oldRows = 1};
    for (const int gone : {0, 2, 4, 6}) {
        table.columns[gone].gone = true;
    }
    QCOMPARE(read(table).rows, QList<QStringList>({{u"long 7"_s, u"\"PORCA\""_s, u"true"_s, u"null"_s},
                                                   {u"long 5"_s, u"\"PARAFUSO\""_s, u"true"_s, shown(1.5F)},
                                                   {u"long 6"_s, u"null"_s, u"false"_s, u"null"_s}}));
}

void tst_file::bothKindsOfMapAreFollowed_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("bitmaps");
    QTest::newRow("bits in the row") << 100 << false;
    QTest::newRow("bits in the row, as many as there are") << 512 << false;
    QTest::newRow("a page of bits") << 100 << true;
    QTest::newRow("a page of bits, as there is no room") << 2000 << false;
    QTest::newRow("two pages of bits") << 33000 << true;
}

void tst_file::bothKindsOfMapAreFollowed()
{
    QFETCH(const int, rows);
    QFETCH(const bool, bitmaps);
    jet4::Table table = clients(rows);
    table.mostRowsOfAPage = 1;
    table.bitmaps = bitmaps;
    const Content content = read(table);
    QCOMPARE(content.column(0), numbersTo(rows));
    QCOMPARE(content.reading.lost, 0);
}

void tst_file::aTableCanBeEmpty()
{
    jet::File file = open({clients(0), clients(1)});
    QCOMPARE(file.tables()[0].promisedRows, 0);
    const Content content = contentOf(file, 0);
    QVERIFY(content.rows.isEmpty());
    QCOMPARE(content.reading.lost, 0);
}

void tst_file::tablesAreReadInAnyOrder()
{
    jet4::Table other = clients(3);
    other.name = u"Outros"_s;
    jet::File file = open({clients(30), other});
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(contentOf(file, 1).column(0), numbersTo(3));
        QCOMPARE(contentOf(file, 0).column(0), numbersTo(30));
    }
}

void tst_file::aReadingCanBeLeft()
{
    jet::File file = open({clients(30)});
    int taken = 0;
    const jet::Reading reading = file.read(0, [&taken](const jet::Row &) { return ++taken < 5; });
    QCOMPARE(taken, 5);
    QCOMPARE(reading.rows, 5);
    QVERIFY(reading.ended);
    QCOMPARE(contentOf(file, 0).rows.size(), 30);
}

QTEST_GUILESS_MAIN(tst_file)
#include "tst_file.moc"
