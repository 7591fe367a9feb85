#include "platform/runtime/text.h"
#include "support/errors.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace runtime;

class tst_text : public QObject
{
    Q_OBJECT

private slots:
    void piecesStopAtTheEnd();
    void negativeLengthsAreRefused();
    void capitalsLetterByLetter();
    void comparesByteByByte_data();
    void comparesByteByByte();
    void everyByteSurvives();
    void marksOfTheCodePage();
    void foreignCharactersBecomeMarks();
};

void tst_text::piecesStopAtTheEnd()
{
    QCOMPARE(Left(u"abc"_s, 2), u"ab"_s);
    QCOMPARE(Left(u"abc"_s, 9), u"abc"_s);
    QCOMPARE(Left(u"abc"_s, 0), u""_s);
    QCOMPARE(Right(u"abc"_s, 2), u"bc"_s);
    QCOMPARE(Right(u"abc"_s, 9), u"abc"_s);
    QCOMPARE(Mid(u"abc"_s, 2), u"bc"_s);
    QCOMPARE(Mid(u"abc"_s, 2, 1), u"b"_s);
    QCOMPARE(Mid(u"abc"_s, 2, 9), u"bc"_s);
    QCOMPARE(Mid(u"abc"_s, 4), u""_s);
    QCOMPARE(Mid(u"abc"_s, 40, 2), u""_s);
}

void tst_text::negativeLengthsAreRefused()
{
    QCOMPARE(support::errorOf([] { Left(u"abc"_s, -1); }), 5);
    QCOMPARE(support::errorOf([] { Right(u"abc"_s, -1); }), 5);
    QCOMPARE(support::errorOf([] { Mid(u"abc"_s, 0); }), 5);
    QCOMPARE(support::errorOf([] { Mid(u"abc"_s, 1, -2); }), 5);
}

void tst_text::capitalsLetterByLetter()
{
    QCOMPARE(UCase(u"josé da conceição 12"_s), u"JOSÉ DA CONCEIÇÃO 12"_s);
    QCOMPARE(UCase(u"straße"_s), u"STRAßE"_s);
    QCOMPARE(UCase(u"šœžÿ"_s), u"ŠŒŽŸ"_s);
    QCOMPARE(UCase(u"µ÷ªº"_s), u"µ÷ªº"_s);
}

void tst_text::comparesByteByByte_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("order");

    QTest::newRow("capitals first") << u"Z"_s << u"a"_s << -1;
    QTest::newRow("letters in order") << u"A"_s << u"Z"_s << -1;
    QTest::newRow("accents last") << u"z"_s << u"á"_s << -1;
    QTest::newRow("capital accents before small ones") << u"É"_s << u"á"_s << -1;
    QTest::newRow("digits as texts") << u"10"_s << u"9"_s << -1;
    QTest::newRow("shorter first") << u"ab"_s << u"abc"_s << -1;
    QTest::newRow("empty first") << u""_s << u"a"_s << -1;
    QTest::newRow("equal") << u"ação"_s << u"ação"_s << 0;
    QTest::newRow("by byte, not by number") << u"€"_s << u"á"_s << -1;
    QTest::newRow("block of marks behind the letters") << u"€"_s << u"z"_s << 1;
}

void tst_text::comparesByteByByte()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, order);
    QCOMPARE(compareBinary(left, right), order <=> 0);
    QCOMPARE(compareBinary(right, left), 0 <=> order);
}

void tst_text::everyByteSurvives()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(static_cast<char>(byte));
    }
    const auto text = fromWestern(bytes);
    QCOMPARE(text.size(), 256);
    QCOMPARE(toWestern(text), bytes);
}

void tst_text::marksOfTheCodePage()
{
    QCOMPARE(fromWestern(QByteArray("\x80\x93\x99\xE7\xE3")), u"€“™çã"_s);
    QCOMPARE(toWestern(u"€“™çã"), QByteArray("\x80\x93\x99\xE7\xE3"));
    QCOMPARE(fromWestern(QByteArray("\x81\x8D\x8F\x90\x9D")), u"\u0081\u008D\u008F\u0090\u009D"_s);
}

void tst_text::foreignCharactersBecomeMarks()
{
    QCOMPARE(toWestern(u"a\u03B1b\u0100"), QByteArray("a?b?"));
    QCOMPARE(toWestern(u"\u0080"), QByteArray("?"));
}

QTEST_APPLESS_MAIN(tst_text)

#include "tst_text.moc"
