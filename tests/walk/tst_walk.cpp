// Sends users without sense through the program. What they do is told step by step; a program that crashes, hangs or
// breaks a promise is told with the seed and the last steps that led there.
#include <QProcess>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

constexpr int stepsOfOne = 5000;
constexpr int patience = 120'000; // milliseconds for one step
constexpr int stepsTold = 50;

class tst_walk : public QObject
{
    Q_OBJECT

private slots:
    void theProgramHolds_data();
    void theProgramHolds();
};

/// What the walker says, the last lines of it.
class Steps
{
public:
    void add(const QByteArray &output)
    {
        rest_ += output;
        for (qsizetype end = rest_.indexOf('\n'); end >= 0; end = rest_.indexOf('\n')) {
            lines_.append(rest_.first(end));
            rest_.remove(0, end + 1);
        }
        while (lines_.size() > stepsTold) {
            lines_.removeFirst();
        }
    }

    QByteArray told() const { return lines_.join('\n') + '\n' + rest_; }

private:
    QByteArrayList lines_;
    QByteArray rest_;
};

int fromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

void tst_walk::theProgramHolds_data()
{
    QTest::addColumn<int>("seed");
    if (const int seed = fromEnvironment("WALK_SEED", 0); seed > 0) {
        QTest::addRow("seed %d", seed) << seed;
        return;
    }
    for (int seed = 1; seed <= 4; ++seed) {
        QTest::addRow("seed %d", seed) << seed;
    }
}

void tst_walk::theProgramHolds()
{
    QFETCH(int, seed);
    const int steps = fromEnvironment("WALK_STEPS", stepsOfOne);
    QProcess walker;
    walker.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    walker.start(QStringLiteral(WALKER), {QString::number(seed), QString::number(steps)});
    QVERIFY(walker.waitForStarted());

    Steps told;
    while (walker.state() == QProcess::Running && walker.waitForReadyRead(patience)) {
        told.add(walker.readAllStandardOutput());
    }
    const bool hangs = walker.state() == QProcess::Running && !walker.waitForFinished(patience);
    walker.kill();
    walker.waitForFinished();
    told.add(walker.readAllStandardOutput());

    const bool holds = !hangs && walker.exitStatus() == QProcess::NormalExit && walker.exitCode() == EXIT_SUCCESS;
    if (!holds) {
        std::fprintf(stderr, "seed %d of %d steps, the last ones:\n%s\n", seed, steps, told.told().constData());
    }
    QVERIFY2(!hangs, "a step did not come to its end");
    QVERIFY2(holds, "the steps are told above");
}

} // namespace

QTEST_GUILESS_MAIN(tst_walk)
#include "tst_walk.moc"
