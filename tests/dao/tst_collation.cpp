// The order of texts in the database.
#include "tests/dao/vectors.h"

#include "platform/dao/collation.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

int sign(int number)
{
    return (number > 0) - (number < 0);
}

QString unquoted(const QString &text)
{
    return text.size() > 1 ? text.sliced(1).chopped(1) : text;
}

class tst_collation : public QObject
{
    Q_OBJECT

private slots:
    void textsStandInTheirOrder_data();
    void textsStandInTheirOrder();
    void accentsFollowTheirRank();
    void punctuationComesBeforeDigitsAndDigitsBeforeLetters();
    void theTwoFormsOfATextAgree();
    void theOrderIsTotal();
};

void tst_collation::textsStandInTheirOrder_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("relation");
    const auto rows = readVectors(u"textsort.tsv"_s);
    QVERIFY(rows.size() > 25);
    for (const QStringList &row : rows) {
        QTest::newRow(qPrintable(row.mid(0, 3).join(u' '))) << unquoted(row[0]) << unquoted(row[1]) << row[2];
    }
    QTest::newRow("trailing blanks") << u"ANA  "_s << u"ana"_s << u"="_s;
    QTest::newRow("blank inside") << u"ANA A"_s << u"ANAA"_s << u"<"_s;
    QTest::newRow("apostrophe") << u"D'AVILA"_s << u"DAVILA"_s << u">"_s;
    QTest::newRow("apostrophe before the next word") << u"D'AVILA"_s << u"DAVILB"_s << u"<"_s;
    QTest::newRow("accent before the rest") << u"JOÃO"_s << u"JOAQUIM"_s << u"<"_s;
    QTest::newRow("first accent decides") << u"éa"_s << u"eá"_s << u">"_s;
    QTest::newRow("two letters in one") << u"straße"_s << u"strasse"_s << u">"_s;
    QTest::newRow("outside of the code page") << u"Łódź"_s << u"Lodz"_s << u">"_s;
    QTest::newRow("beyond the letters") << u"日本"_s << u"z"_s << u">"_s;
}

void tst_collation::textsStandInTheirOrder()
{
    QFETCH(const QString, left);
    QFETCH(const QString, right);
    QFETCH(const QString, relation);
    const int expected = relation == u"<" ? -1 : relation == u">" ? 1 : 0;
    QCOMPARE(sign(dao::compareUtf8(left.toUtf8(), right.toUtf8())), expected);
    QCOMPARE(sign(dao::compareUtf8(right.toUtf8(), left.toUtf8())), -expected);
}

void tst_collation::accentsFollowTheirRank()
{
    const QStringList ranks = {u"a"_s, u"á"_s, u"à"_s, u"â"_s, u"ä"_s, u"ã"_s, u"å"_s, u"b"_s};
    for (qsizetype i = 1; i < ranks.size(); ++i) {
        QVERIFY2(dao::compareText(ranks[i - 1], ranks[i]) < 0, qPrintable(ranks[i]));
        QVERIFY2(dao::compareText(ranks[i - 1].toUpper(), ranks[i]) < 0, qPrintable(ranks[i]));
    }
    QVERIFY(dao::compareText(u"c", u"ç") < 0);
    QVERIFY(dao::compareText(u"ç", u"d") < 0);
}

void tst_collation::punctuationComesBeforeDigitsAndDigitsBeforeLetters()
{
    const QString order = u" !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>0123456789abcdefghijklmnopqrstuvwxyz"_s;
    for (qsizetype i = 2; i < order.size(); ++i) {
        QVERIFY2(dao::compareText(order.mid(i - 1, 1), order.mid(i, 1)) < 0, qPrintable(order.mid(i - 1, 2)));
    }
}

QString randomText(QRandomGenerator &random)
{
    static const QString letters = u"aAáÂbBçC-' _1 zß\u0301"_s;
    QString text;
    for (int i = random.bounded(7); i > 0; --i) {
        text += letters[random.bounded(static_cast<int>(letters.size()))];
    }
    return text;
}

void tst_collation::theTwoFormsOfATextAgree()
{
    QRandomGenerator random(11);
    for (int i = 0; i < 20'000; ++i) {
        const QString left = randomText(random);
        const QString right = randomText(random);
        QCOMPARE(sign(dao::compareUtf8(left.toUtf8(), right.toUtf8())), sign(dao::compareText(left, right)));
    }
}

void tst_collation::theOrderIsTotal()
{
    QRandomGenerator random(12);
    for (int i = 0; i < 20'000; ++i) {
        const QString a = randomText(random);
        const QString b = randomText(random);
        const QString c = randomText(random);
        QCOMPARE(sign(dao::compareText(a, b)), -sign(dao::compareText(b, a)));
        if (dao::compareText(a, b) <= 0 && dao::compareText(b, c) <= 0) {
            QVERIFY(dao::compareText(a, c) <= 0);
        }
    }
}

} // namespace

QTEST_GUILESS_MAIN(tst_collation)

#include "tst_collation.moc"
