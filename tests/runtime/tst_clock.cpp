#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"

#include <QTest>

using namespace runtime;

class tst_clock : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setClock(std::nullopt); }
    void runsWithTheMachine();
    void standsWhereItIsStopped();
    void dayHasNoTime();
};

void tst_clock::runsWithTheMachine()
{
    const auto before = QDateTime::currentDateTime().addSecs(-1);
    const auto now = toDateTime(Now());
    QVERIFY(now >= before);
    QVERIFY(now <= QDateTime::currentDateTime());
    QCOMPARE(now.time().msec(), 0);
}

void tst_clock::standsWhereItIsStopped()
{
    setClock(Date{45443.5});
    QCOMPARE(Now(), Date{45443.5});
    setClock(std::nullopt);
    QVERIFY(Now() > Date{45443.5});
}

void tst_clock::dayHasNoTime()
{
    setClock(Date{45443.999});
    QCOMPARE(Today(), Date{45443});
}

QTEST_APPLESS_MAIN(tst_clock)

#include "tst_clock.moc"
