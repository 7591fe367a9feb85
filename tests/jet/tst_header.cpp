#include "platform/jet/header.h"
#include "tests/jet/jettest.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using jet::Kind;

/// What a file is by its header.
class tst_header : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsToldByItsHeader_data();
    void aFileIsToldByItsHeader();
    void whatIsNoFileIsUnreadable();

private:
    QTemporaryDir folder_;
};

void tst_header::aFileIsToldByItsHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Kind>("kind");
    const jet4::Table table{.name = u"Pecas"_s, .columns = jet4::columns(u"Codigo.Long"_s), .rows = {{{1}}}};
    const auto made = [&table](jet4::File file) {
        file.tables = {table};
        return jet4::bytes(file);
    };
    const QByteArray whole = made({});

    QTest::newRow("Jet 4") << whole << Kind::Jet4;
    QTest::newRow("nothing") << QByteArray() << Kind::None;
    QTest::newRow("a text") << QByteArray("Codigo;Nome\r\n").repeated(1000) << Kind::None;
    QTest::newRow("zeros") << QByteArray(3 * 4096, '\0') << Kind::None;
    QTest::newRow("this program's own") << QByteArray("SQLite format 3\0", 16).leftJustified(3 * 4096, '\0')
                                        << Kind::None;
    QTest::newRow("another name") << made({.tables = {}, .name = "Standard Jex DB"}) << Kind::None;
    QTest::newRow("up to its name") << whole.first(20) << Kind::None;
    QTest::newRow("Jet 3") << made({.tables = {}, .version = 0}) << Kind::Jet3;
    QTest::newRow("Jet 3 in its pages") << made({.tables = {}, .version = 0}).first(7 * 2048) << Kind::Jet3;
    for (const int version : {2, 3, 4, 5, 6, 255}) {
        QTest::addRow("version %d", version)
            << made({.tables = {}, .version = static_cast<char>(version)}) << Kind::Later;
        QTest::addRow("version %d of the later name", version)
            << made({.tables = {}, .version = static_cast<char>(version), .name = "Standard ACE DB"}) << Kind::Later;
    }
    QTest::newRow("the later name alone") << made({.tables = {}, .name = "Standard ACE DB"}) << Kind::Later;
    QTest::newRow("a password") << made({.tables = {}, .password = u"segredo"_s}) << Kind::Password;
    QTest::newRow("the longest password") << made({.tables = {}, .password = QString(20, u'ç')}) << Kind::Password;
    QTest::newRow("encrypted") << made({.tables = {}, .pageKey = 0x12345678}) << Kind::Encrypted;
    QTest::newRow("encrypted by a small key") << made({.tables = {}, .pageKey = 1}) << Kind::Encrypted;
    QTest::newRow("encrypted by a large key") << made({.tables = {}, .pageKey = 0x80000000}) << Kind::Encrypted;
    QTest::newRow("half a page") << whole.first(2048) << Kind::Truncated;
    QTest::newRow("the header's first bytes") << whole.first(21) << Kind::Truncated;
    QTest::newRow("a byte short") << whole.chopped(1) << Kind::Truncated;
    QTest::newRow("a byte too long") << whole + '\0' << Kind::Truncated;
    QTest::newRow("no page of the catalogue") << whole.first(2 * 4096) << Kind::Truncated;
    QTest::newRow("with a password and short")
        << made({.tables = {}, .password = u"segredo"_s}).chopped(1) << Kind::Password;
}

void tst_header::aFileIsToldByItsHeader()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const Kind, kind);
    QCOMPARE(jet::examine(jettest::write(folder_.filePath(u"Dados Ção.mdb"_s), bytes)), kind);
}

void tst_header::whatIsNoFileIsUnreadable()
{
    QCOMPARE(jet::examine(folder_.filePath(u"nada.mdb"_s)), Kind::Unreadable);
    QCOMPARE(jet::examine(folder_.path()), Kind::Unreadable);
    QCOMPARE(jet::examine(QString()), Kind::Unreadable);
}

QTEST_GUILESS_MAIN(tst_header)
#include "tst_header.moc"
