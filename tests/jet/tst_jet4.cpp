#include "platform/jet/header.h"
#include "support/jet4/jet4.h"

// libmdb 1.0.0 includes glib as C, which glib does not stand: it has to be there before.
#include <glib.h>

#include <mdbtools.h>

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Null;

namespace
{

/// All rows of a table by libmdb alone, in its own words and its own order.
QList<QStringList> rowsOf(const QString &path, const QByteArray &name)
{
    constexpr std::size_t longest = 100'000;
    QList<QStringList> rows;
    MdbHandle *mdb = mdb_open(path.toUtf8().constData(), MDB_NOFLAGS);
    if (mdb == nullptr) {
        return {{u"not opened"_s}};
    }
    mdb_set_bind_size(mdb, longest);
    QByteArray writableName = name;
    MdbTableDef *table = mdb_read_table_by_name(mdb, writableName.data(), MDB_TABLE);
    if (table != nullptr && mdb_read_columns(table) != nullptr) {
        std::vector<std::vector<char>> buffers(table->num_cols, std::vector<char>(longest));
        for (std::size_t i = 0; i < buffers.size(); ++i) {
            mdb_bind_column(table, static_cast<int>(i) + 1, buffers[i].data(), nullptr);
        }
        mdb_rewind_table(table);
        while (mdb_fetch_row(table) != 0) {
            QStringList &row = rows.emplace_back();
            for (const auto &buffer : buffers) {
                row.append(QString::fromUtf8(buffer.data()));
            }
        }
    }
    if (table != nullptr) {
        mdb_free_tabledef(table);
    }
    mdb_close(mdb);
    return rows;
}

} // namespace

/// The files that the tests write are read by libmdb with not a line of this project's: neither the writer nor the
/// reader is right merely by the word of the other.
class tst_jet4 : public QObject
{
    Q_OBJECT

private slots:
    void theCatalogueNamesTheTables();
    void everyTypeIsRead();
    void textsAreReadInBothForms();
    void memosAreReadWhereverTheyLie();
    void deletedMovedAndOlderRows();
    void aDefinitionGoesOverSeveralPages();
    void indexesStandBeforeTheColumns();
    void rowsFillManyPages();
    void passwordsAreNotAskedFor();

private:
    QString write(const jet4::File &file) const
    {
        const QString path = folder_.filePath(QString::fromLatin1(QTest::currentTestFunction()) + u".mdb"_s);
        return jet4::write(path, file) ? path : QString();
    }

    QTemporaryDir folder_;
};

void tst_jet4::theCatalogueNamesTheTables()
{
    const QString path =
        write({.tables = {{.name = u"CLIENTES"_s, .columns = jet4::columns(u"Codigo.Counter"_s), .rows = {}},
                          {.name = u"PEÇAS"_s, .columns = jet4::columns(u"Codigo.Counter"_s), .rows = {}}}});
    QCOMPARE(jet::examine(path), jet::Kind::Jet4);
    QStringList tables;
    for (const QStringList &object : rowsOf(path, "MSysObjects")) {
        if (object[3] == u"1"_s && object[7] == u"0"_s) {
            tables.append(object[2]);
        }
    }
    QCOMPARE(tables, QStringList({u"CLIENTES"_s, u"PEÇAS"_s}));
    QCOMPARE(rowsOf(path, "CLIENTES"), QList<QStringList>());
}

void tst_jet4::everyTypeIsRead()
{
    const QString path =
        write({.tables = {{.name = u"TIPOS"_s,
                           .columns = jet4::columns(u"Codigo.Counter,L.Boolean,B.Byte,I.Integer,C.Currency,S.Single,"
                                                    "D.Double,T.Date,N.Text;50,M.Memo"_s),
                           .rows = {{.values = {qint32{1}, true, qint16{255}, qint16{-32768}, -1234.5678, 0.5F, 0.1,
                                                runtime::Date{36526.25}, u"JOÃO"_s, u"Olá"_s}},
                                    {.values = {qint32{-7}, false, Null(), Null(), Null(), Null(), Null(), Null(),
                                                u""_s, Null()}}}}}});
    const auto rows = rowsOf(path, "TIPOS");
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0].first(5), QStringList({u"1"_s, u"1"_s, u"255"_s, u"-32768"_s, u"-1234.5678"_s}));
    QCOMPARE(rows[0][5].toDouble(), 0.5);
    QCOMPARE(rows[0][6].toDouble(), 0.1);
    QVERIFY2(rows[0][7].startsWith(u"01/01/00 06:00:00"), qPrintable(rows[0][7]));
    QCOMPARE(rows[0].mid(8), QStringList({u"JOÃO"_s, u"Olá"_s}));
    QCOMPARE(rows[1], QStringList({u"-7"_s, u"0"_s}) + QStringList(8, u""_s));
}

void tst_jet4::textsAreReadInBothForms()
{
    for (const bool compressed : {true, false}) {
        jet4::Table table{.name = u"TEXTOS"_s, .columns = jet4::columns(u"Texto.Text;40"_s), .rows = {}};
        table.compressed = compressed;
        QList<QStringList> expected;
        for (const QString &text : {u"AÇÃO"_s, u"3 €"_s, u"€uro € and more"_s, u"Ā (low byte 0)"_s}) {
            table.rows.push_back({.values = {text}});
            expected.append({text});
        }
        const jet4::File file{.tables = {table}};
        QCOMPARE(jet4::bytes(file).contains("\xFF\xFE"
                                            "A\xC7\xC3O"),
                 compressed);
        QCOMPARE(jet4::bytes(file).contains(QByteArray("A\0\xC7\0\xC3\0O\0", 8)), !compressed);
        QCOMPARE(rowsOf(write(file), "TEXTOS"), expected);
    }
}

void tst_jet4::memosAreReadWhereverTheyLie()
{
    jet4::Table table{.name = u"MEMOS"_s, .columns = jet4::columns(u"Obs.Memo,Outra.Memo"_s), .rows = {}};
    QList<QStringList> expected;
    for (const int length : {1, 31, 32, 62, 63, 1024, 1025, 2038, 2039, 4076, 20'000}) {
        const QString memo = u"Ç%1"_s.arg(length).leftJustified(length, u'x', true);
        table.rows.push_back({.values = {memo, memo.toLower()}});
        expected.append({memo, memo.toLower()});
    }
    QCOMPARE(rowsOf(write({.tables = {table}}), "MEMOS"), expected);
}

// libmdb reads a row that moved where it lies, which is out of order.
void tst_jet4::deletedMovedAndOlderRows()
{
    jet4::Table table{.name = u"LINHAS"_s,
                      .columns = jet4::columns(u"Codigo.Counter,Nome.Text;30,Obs.Memo"_s),
                      .rows = {{.values = {qint32{1}}},
                               {.values = {qint32{2}, u"B"_s, u"apagada"_s}, .deleted = true},
                               {.values = {qint32{3}, u"C"_s, u"mudada"_s}, .overflow = true},
                               {.values = {qint32{4}, u"D"_s, Null()}}}};
    table.columnsOfOldRows = 1;
    table.oldRows = 1;
    auto rows = rowsOf(write({.tables = {table}}), "LINHAS");
    std::sort(rows.begin(), rows.end());
    QCOMPARE(rows,
             QList<QStringList>({{u"1"_s, u""_s, u""_s}, {u"3"_s, u"C"_s, u"mudada"_s}, {u"4"_s, u"D"_s, u""_s}}));
}

void tst_jet4::aDefinitionGoesOverSeveralPages()
{
    QStringList columns;
    QStringList expected;
    jet4::Row row;
    for (int i = 0; i < 255; ++i) {
        columns.append(u"Uma coluna com um nome bem comprido, n° %1.Text;20"_s.arg(i).replace(u", "_s, u" "_s));
        expected.append(u"v%1"_s.arg(i));
        row.values.emplace_back(expected.last());
    }
    const jet4::Table table{.name = u"LARGA"_s, .columns = jet4::columns(columns.join(u',')), .rows = {row}};
    QCOMPARE(rowsOf(write({.tables = {table}}), "LARGA"), QList<QStringList>({expected}));
}

// More pages than a small map has bits.
void tst_jet4::indexesStandBeforeTheColumns()
{
    for (const quint32 indexes : {1, 32}) {
        const QString path = write({.tables = {{.name = u"T"_s,
                                                .columns = jet4::columns(u"Codigo.Counter,Nome.Text;50"_s),
                                                .rows = {{.values = {qint32{7}, u"JOÃO"_s}}},
                                                .indexes = indexes}}});
        QCOMPARE(rowsOf(path, "T"), QList<QStringList>{QStringList({u"7"_s, u"JOÃO"_s})});
    }
}

void tst_jet4::rowsFillManyPages()
{
    constexpr int count = 30'000;
    jet4::Table table{.name = u"MUITAS"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;80"_s), .rows = {}};
    for (qint32 i = 1; i <= count; ++i) {
        table.rows.push_back(
            {.values = {i, u"NOME DO CLIENTE DE NÚMERO %1, COM UM TEXTO BEM COMPRIDO ATRÁS"_s.arg(i)}});
    }
    const QString path = write({.tables = {table}});
    QVERIFY(QFileInfo(path).size() > 512 * 4096);
    const auto rows = rowsOf(path, "MUITAS");
    QCOMPARE(rows.size(), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(rows[i][0].toInt(), i + 1);
        QVERIFY(rows[i][1].contains(u" %1, COM"_s.arg(i + 1)));
    }
}

// libmdb asks for no password. Pages that the header calls encrypted are left plain here: nobody reads them.
void tst_jet4::passwordsAreNotAskedFor()
{
    jet4::File file{
        .tables = {
            {.name = u"CLIENTES"_s, .columns = jet4::columns(u"Codigo.Counter"_s), .rows = {{.values = {qint32{7}}}}}}};
    file.password = u"segredo"_s;
    QCOMPARE(jet::examine(write(file)), jet::Kind::Password);
    QCOMPARE(rowsOf(write(file), "CLIENTES"), QList<QStringList>({{u"7"_s}}));
    file.pageKey = 0x1234'5678;
    QCOMPARE(jet::examine(write(file)), jet::Kind::Encrypted);
}

QTEST_GUILESS_MAIN(tst_jet4)
#include "tst_jet4.moc"
