#include "workorders/plano.h"

#include "documents/parcelas.h"

#include "platform/runtime/runtime.h"

#include <QTest>

#include <bit>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace
{

constexpr bool interestOnOne = false;
constexpr bool noInterestOnOne = true;

runtime::Date date(const QString &text)
{
    return runtime::CDate(text);
}

std::vector<ParcelaOS> plan(const QString &value, int count, const QString &interest,
                            const QString &today = u"15/05/2024"_s)
{
    return PlanoParcelas(value, count, interest, noInterestOnOne, date(today));
}

QStringList dueDates(const std::vector<ParcelaOS> &plan)
{
    QStringList dates;
    for (const ParcelaOS &row : plan) {
        dates << row.vencimento;
    }
    return dates;
}

} // namespace

class tst_Plano : public QObject
{
    Q_OBJECT

private slots:
    void oneInstalmentFallsDueInAMonth();
    void theFirstOfSeveralFallsDueToday();
    void aMonthIsAddedToTheDateBefore();
    void theRowsAreNumberedInTwoDigits();
    void theInstalment_data();
    void theInstalment();
    void everyRowShowsTheSameAmount();
    void oneInstalmentBearsNoInterestWithAndWithoutItsSetting();
    void interestThatIsNoNumberIsARunTimeError();
    void theHighestDiscountIsASingle_data();
    void theHighestDiscountIsASingle();
};

void tst_Plano::oneInstalmentFallsDueInAMonth()
{
    QCOMPARE(dueDates(plan(u"100,00"_s, 1, u"0"_s)), QStringList{u"15/06/2024"_s});
    QCOMPARE(dueDates(plan(u"100,00"_s, 1, u"0"_s, u"31/01/2024"_s)), QStringList{u"29/02/2024"_s});
}

void tst_Plano::theFirstOfSeveralFallsDueToday()
{
    QCOMPARE(dueDates(plan(u"100,00"_s, 2, u"0"_s)), (QStringList{u"15/05/2024"_s, u"15/06/2024"_s}));
}

void tst_Plano::aMonthIsAddedToTheDateBefore()
{
    // From the last day of a month the plan never comes back to the 31st.
    QCOMPARE(dueDates(plan(u"100,00"_s, 4, u"0"_s, u"31/01/2024"_s)),
             (QStringList{u"31/01/2024"_s, u"29/02/2024"_s, u"29/03/2024"_s, u"29/04/2024"_s}));
    QCOMPARE(dueDates(plan(u"100,00"_s, 2, u"0"_s, u"15/12/2024"_s)).last(), u"15/01/2025"_s);
}

void tst_Plano::theRowsAreNumberedInTwoDigits()
{
    const auto rows = plan(u"100,00"_s, 99, u"0"_s);
    QCOMPARE(rows.size(), 99U);
    QCOMPARE(rows.front().parcela, u"01"_s);
    QCOMPARE(rows.back().parcela, u"99"_s);
    QCOMPARE(rows.back().documento, QString());
}

void tst_Plano::theInstalment_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("interest");
    QTest::addColumn<QString>("instalment");

    QTest::newRow("no interest") << u"100,00"_s << 3 << u"0"_s << u"33,33"_s;
    QTest::newRow("interest never set") << u"100,00"_s << 3 << QString() << u"33,33"_s;
    QTest::newRow("interest of nought point nought nought") << u"100,00"_s << 3 << u"0,00"_s << u"33,33"_s;
    QTest::newRow("interest on the whole value after the first") << u"100,00"_s << 3 << u"0,03"_s << u"35,33"_s;
    QTest::newRow("two instalments bear interest once") << u"100,00"_s << 2 << u"0,03"_s << u"51,50"_s;
    QTest::newRow("thousands") << u"1.234,56"_s << 1 << u"0"_s << u"1.234,56"_s;
    QTest::newRow("a value of nothing") << u"0,00"_s << 2 << u"0,03"_s << u"0,00"_s;
    // Cents that another order of rounding would move.
    QTest::newRow("the sum is rounded to single") << u"3.061,31"_s << 2 << u"0,03"_s << u"1.576,58"_s;
    QTest::newRow("the product is a double") << u"75.413,08"_s << 17 << u"0,07"_s << u"9.404,46"_s;
    QTest::newRow("seven digits are shown") << u"123.456,78"_s << 1 << u"0"_s << u"123.456,80"_s;
}

void tst_Plano::theInstalment()
{
    QFETCH(QString, value);
    QFETCH(int, count);
    QFETCH(QString, interest);
    QTEST(plan(value, count, interest).front().valor, "instalment");
}

void tst_Plano::everyRowShowsTheSameAmount()
{
    // Three times 33,33 are 99,99: no cent is put on the last row.
    for (const ParcelaOS &row : plan(u"100,00"_s, 3, u"0"_s)) {
        QCOMPARE(row.valor, u"33,33"_s);
    }
}

void tst_Plano::oneInstalmentBearsNoInterestWithAndWithoutItsSetting()
{
    for (const bool setting : {interestOnOne, noInterestOnOne}) {
        const auto rows = PlanoParcelas(u"100,00"_s, 1, u"0,03"_s, setting, date(u"15/05/2024"_s));
        QCOMPARE(rows.front().valor, u"100,00"_s);
    }
}

void tst_Plano::interestThatIsNoNumberIsARunTimeError()
{
    constexpr int typeMismatch = 13;
    try {
        plan(u"100,00"_s, 2, u"ABC"_s);
        QFAIL("no error");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.number(), typeMismatch);
    }
}

void tst_Plano::theHighestDiscountIsASingle_data()
{
    QTest::addColumn<QString>("total");
    QTest::addColumn<QString>("share");
    QTest::addColumn<float>("limit");

    QTest::newRow("none allowed") << u"100,00"_s << u"0"_s << 0.0F;
    QTest::newRow("ten per cent") << u"400,00"_s << u"0,10"_s << 40.0F;
    QTest::newRow("a hundred and fifty per cent act as fifteen") << u"100,00"_s << u"0,150"_s << 100.0F * 0.15F;
    QTest::newRow("below the share by its last bit") << u"10,00"_s << u"0,03"_s << 10.0F * 0.03F;
}

void tst_Plano::theHighestDiscountIsASingle()
{
    QFETCH(QString, total);
    QFETCH(QString, share);
    QFETCH(float, limit);
    QCOMPARE(std::bit_cast<quint32>(DescontoMaximo(total, share)), std::bit_cast<quint32>(limit));
}

QTEST_APPLESS_MAIN(tst_Plano)

#include "tst_plano.moc"
