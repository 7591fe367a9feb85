// The patterns of LIKE.
#include "tests/dao/golden.h"
#include "tests/dao/vectors.h"

#include "platform/dao/like.h"
#include "support/cputime.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

class tst_like : public QObject
{
    Q_OBJECT

private slots:
    void patternsMatch_data();
    void patternsMatch();
    void manyStarsTakeNoTime();
    void numbersBecomeTextFirst();
    void nullMatchesNothing();
    void accentsCountAndCaseDoesNot();
};

void tst_like::patternsMatch_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("expected");
    const auto rows = readVectors(u"like.tsv"_s);
    QVERIFY(rows.size() > 40);
    for (const QStringList &row : rows) {
        QTest::newRow(qPrintable(row[0] + u" like "_s + row[1])) << row[0] << row[1] << (row[2] == u"True");
    }
    QTest::newRow("percent is plain") << u"100%"_s << u"*%"_s << true;
    QTest::newRow("percent matches itself only") << u"1000"_s << u"100%"_s << false;
    QTest::newRow("accents count") << u"JOÃO"_s << u"JOAO"_s << false;
    QTest::newRow("accented capitals") << u"joão"_s << u"*ÃO*"_s << true;
    QTest::newRow("empty group") << u"ab"_s << u"a[]b"_s << true;
    QTest::newRow("exclamation in a group") << u"!"_s << u"[!]"_s << true;
    QTest::newRow("star at both ends of nothing") << u""_s << u"**"_s << true;
    QTest::newRow("several stars") << u"CHEQUE CÓD 0001/3-00"_s << u"CHEQUE CÓD */3-*"_s << true;
    QTest::newRow("several stars, no match") << u"CHEQUE CÓD 0001/13-00"_s << u"CHEQUE CÓD */3-*"_s << false;
}

void tst_like::patternsMatch()
{
    QFETCH(const QString, text);
    QFETCH(const QString, pattern);
    QFETCH(const bool, expected);
    QCOMPARE(dao::LikePattern(pattern).matches(text), expected);
}

void tst_like::manyStarsTakeNoTime()
{
    const support::CpuTime clock;
    QVERIFY(!dao::LikePattern(QString(u"a*"_s.repeated(100) + u'b')).matches(QString(2000, u'a')));
    QVERIFY(clock.milliseconds() < 2000);
}

void tst_like::numbersBecomeTextFirst()
{
    golden::Golden golden;
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE Codigo LIKE 3"_s),
             QStringList{u"3"_s});
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Caixa WHERE Saldo LIKE '*,75'"_s),
             QStringList{u"3"_s});
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Caixa WHERE Data LIKE '#?/05/2024' AND Codigo > 4"_s),
             QStringList{u"5"_s});
}

void tst_like::nullMatchesNothing()
{
    golden::Golden golden;
    const QStringList expected = {u"3"_s, u"4"_s};
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE RG LIKE '*' AND Codigo < 3"_s),
             (QStringList{u"1"_s, u"2"_s}));
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE NOT RG LIKE '*'"_s), QStringList());
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE RG IS NULL"_s), expected);
}

void tst_like::accentsCountAndCaseDoesNot()
{
    golden::Golden golden;
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE Nome LIKE '*joão*'"_s),
             QStringList{u"1"_s});
    QCOMPARE(golden::rows(golden.database(), u"SELECT Codigo FROM Clientes WHERE Nome LIKE '*JOAO*'"_s),
             QStringList{u"3"_s});
}

} // namespace

QTEST_GUILESS_MAIN(tst_like)

#include "tst_like.moc"
