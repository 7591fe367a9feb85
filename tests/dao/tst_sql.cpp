// Runs the text-driven cases of sql/*.test, each on a fresh copy of the golden database:
//
//   # a remark
//   query                  or  execute  or  error <number>
//   the statement, over as many lines as it takes
//   ----
//   the expected rows, fields joined by " | "; for `execute` the number of rows touched; for `error`
//   the text, or nothing where the number says it all
//   (a blank line ends the case)
//
// Cases of one file run one after the other on the same database, so a query may look at what an execute did.
#include "tests/dao/golden.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

struct Case {
    int line = 0;
    QString kind;
    QString statement;
    QStringList expected;
};

std::vector<Case> readCases(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    std::vector<Case> cases;
    Case current;
    bool inRows = false;
    int number = 0;
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.append(QString());
    for (const QString &line : lines) {
        ++number;
        if (line.isEmpty()) {
            if (!current.kind.isEmpty()) {
                cases.push_back(std::exchange(current, {}));
            }
            inRows = false;
        } else if (inRows) {
            current.expected.append(line);
        } else if (current.kind.isEmpty()) {
            if (!line.startsWith(u'#')) {
                current.kind = line.trimmed();
                current.line = number;
            }
        } else if (line == u"----") {
            inRows = true;
        } else {
            current.statement += (current.statement.isEmpty() ? QString() : u"\n"_s) + line;
        }
    }
    return cases;
}

/// What the statement gives: its rows, the number of rows touched, or the number of its error.
QStringList outcome(dao::Database &database, const Case &test)
{
    static const QRegularExpression selectInto(u"^select\\b.*\\binto\\b"_s, QRegularExpression::CaseInsensitiveOption);
    try {
        if (test.kind == u"execute") {
            return {QString::number(database.Execute(test.statement))};
        }
        const bool rows = test.statement.trimmed().startsWith(u"select"_s, Qt::CaseInsensitive);
        if (rows && !selectInto.match(test.statement).hasMatch()) {
            return golden::rows(database, test.statement);
        }
        database.Execute(test.statement);
        return {u"no error"_s};
    } catch (const runtime::RuntimeError &error) {
        return {u"error %1"_s.arg(error.number()), error.description()};
    }
}

class tst_sql : public QObject
{
    Q_OBJECT

private slots:
    void theStatementsGiveTheirRows_data();
    void theStatementsGiveTheirRows();
};

void tst_sql::theStatementsGiveTheirRows_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(TARVELO_TESTS_DIR "/dao/sql"));
    const QStringList names = folder.entryList({u"*.test"_s}, QDir::Files, QDir::Name);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }
}

void tst_sql::theStatementsGiveTheirRows()
{
    QFETCH(const QString, path);
    golden::Golden file;
    const std::vector<Case> cases = readCases(path);
    QVERIFY(!cases.empty());
    for (const Case &test : cases) {
        const QStringList found = outcome(file.database(), test);
        const bool raised = test.kind.startsWith(u"error "_s);
        const QStringList wanted = raised ? QStringList(test.kind) + test.expected : test.expected;
        const bool good = found.mid(0, raised ? wanted.size() : found.size()) == wanted;
        const QString report = u"\nline %1: %2\nexpected:\n%3\nfound:\n%4"_s.arg(
            QString::number(test.line), test.statement, wanted.join(u'\n'), found.join(u'\n'));
        QVERIFY2(good, qPrintable(report));
    }
}

} // namespace

QTEST_GUILESS_MAIN(tst_sql)

#include "tst_sql.moc"
