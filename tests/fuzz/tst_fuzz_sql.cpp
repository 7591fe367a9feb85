// Statements, those of the program broken at random and others made of every kind, must end in rows or in an error of
// the platform, and leave the file whole.
#include "platform/dao/unit.h"
#include "support/cputime.h"
#include "tests/dao/golden.h"
#include "tests/fuzz/instrucoes.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr int inputs = 100'000;
constexpr int mostRows = 20;
constexpr int files = 20;
constexpr int statementsOfAFile = 500;

/// The first lines of the statements in the text-driven cases.
QStringList readStatements()
{
    QStringList statements;
    const QDir folder(QStringLiteral(TARVELO_TESTS_DIR "/dao/sql"));
    for (const QString &name : folder.entryList({u"*.test"_s}, QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        for (qsizetype i = 1; i < lines.size(); ++i) {
            const QString &kind = lines[i - 1];
            if (kind == u"query" || kind == u"execute" || kind.startsWith(u"error "_s)) {
                statements.append(lines[i]);
            }
        }
    }
    return statements;
}

constexpr std::array pieces = {u"SELECT ",
                               u" FROM ",
                               u" WHERE ",
                               u" ORDER BY ",
                               u" GROUP BY ",
                               u" HAVING ",
                               u" AND ",
                               u" OR ",
                               u"NOT ",
                               u" LIKE ",
                               u" BETWEEN ",
                               u" IN (",
                               u" IS NULL",
                               u" INNER JOIN ",
                               u" LEFT JOIN ",
                               u" ON ",
                               u" AS ",
                               u"TOP 2 ",
                               u"DISTINCT ",
                               u"DELETE ",
                               u"UPDATE ",
                               u" UNION ",
                               u" UNION ALL ",
                               u" INTO ",
                               u" RIGHT JOIN ",
                               u" EXISTS (",
                               u"SELECT TOP 10 PERCENT ",
                               u"CREATE INDEX ",
                               u"DROP INDEX ",
                               u"switch(",
                               u"string(3,",
                               u"datepart('ww',",
                               u" MEMO",
                               u" CURRENCY",
                               u" BYTE",
                               u" COUNTER",
                               u"INSERT INTO ",
                               u"SET ",
                               u"VALUES (",
                               u"alter table ",
                               u"drop table ",
                               u"CREATE TABLE ",
                               u"*",
                               u"(",
                               u")",
                               u",",
                               u";",
                               u"'",
                               u"\"",
                               u"#",
                               u"[",
                               u"]",
                               u".",
                               u"=",
                               u"<>",
                               u"<=",
                               u"-",
                               u"+",
                               u"/",
                               u"\\",
                               u"^",
                               u"&",
                               u" MOD ",
                               u"1",
                               u"-1",
                               u"0",
                               u"1e308",
                               u"99999999999",
                               u"0.5",
                               u"'A'",
                               u"'5'",
                               u"''",
                               u"Null",
                               u"True",
                               u"False",
                               u"#05/13/2024#",
                               u"#13/13/2024#",
                               u"Codigo",
                               u"Caixa",
                               u"Clientes",
                               u"Nome",
                               u"Saldo",
                               u"Data",
                               u"month(",
                               u"last(",
                               u"sum(",
                               u"count(*)",
                               u"iif(",
                               u"left(",
                               u"format(",
                               u"dateadd('m',",
                               u"~",
                               u"--",
                               u"/*",
                               u"\u0301",
                               u"\U0001F600",
                               u"\t",
                               u"?1",
                               u":a",
                               u"@x",
                               u"$",
                               u"`",
                               u"_rowid_",
                               u"sqlite_schema",
                               u"PRAGMA "};

class Mutator
{
public:
    explicit Mutator(quint32 seed) : random_(seed), statements_(readStatements()) {}

    QString next()
    {
        QString text = pick(statements_);
        for (int steps = 1 + random_.bounded(4); steps > 0; --steps) {
            mutate(text);
        }
        return text;
    }

    bool empty() const { return statements_.isEmpty(); }

private:
    const QString &pick(const QStringList &list) { return list[random_.bounded(list.size())]; }

    qsizetype place(const QString &text) { return random_.bounded(static_cast<int>(text.size()) + 1); }

    QString piece()
    {
        return QStringView(pieces[static_cast<size_t>(random_.bounded(static_cast<int>(pieces.size())))]).toString();
    }

    void mutate(QString &text)
    {
        const qsizetype at = place(text);
        const qsizetype length = random_.bounded(12);
        switch (random_.bounded(7)) {
        case 0:
            text.remove(at, length);
            break;
        case 1:
            text.insert(at, piece());
            break;
        case 2:
            text.replace(at, length, piece());
            break;
        case 3:
            text.insert(at, text.mid(place(text), length * 3));
            break;
        case 4:
            text = text.left(at) + pick(statements_).mid(at);
            break;
        case 5:
            text.insert(at, QChar(static_cast<char16_t>(random_.bounded(0x10000))));
            break;
        default:
            text.insert(at, piece().repeated(random_.bounded(60)));
            break;
        }
    }

    QRandomGenerator random_;
    QStringList statements_;
};

void readSome(dao::Database &database, const QString &statement)
{
    auto set = database.OpenRecordset(statement);
    for (int row = 0; row < mostRows && !set.Eof(); ++row) {
        for (int place = 0; place < set.fieldCount(); ++place) {
            set.value(place);
        }
        set.MoveNext();
    }
    if (!set.Bof()) {
        set.MoveLast();
    }
}

class tst_fuzz_sql : public QObject
{
    Q_OBJECT

private slots:
    void brokenStatementsEndInAnErrorOfThePlatform();
    void statementsOfEveryKindLeaveTheFileWhole();
};

void tst_fuzz_sql::brokenStatementsEndInAnErrorOfThePlatform()
{
    golden::Golden golden;
    // Nothing is ever written through this connection, so every input meets the same rows.
    auto database = dao::DBEngine::OpenDatabase(golden.path(), true);
    Mutator mutator(20240515);
    QVERIFY(!mutator.empty());
    int refused = 0;
    for (int i = 0; i < inputs; ++i) {
        const QString statement = mutator.next();
        const support::CpuTime clock;
        try {
            golden::errorOf([&] { readSome(*database, statement); });
            const int number = golden::errorOf([&] { database->Execute(statement); });
            refused += number != 0 ? 1 : 0;
        } catch (...) {
            QFAIL(qPrintable(u"a stray exception: "_s + statement));
        }
        QVERIFY2(clock.milliseconds() < 10'000, qPrintable(statement));
    }
    QVERIFY(refused > inputs / 2);
    QCOMPARE(golden::rows(golden.database(), u"SELECT count(*) FROM Caixa"_s), QStringList{u"5"_s});
}

/// What is wrong with how a statement ended; empty where it gave rows, was done, or was refused in plain words. An
/// empty expression in the words is the engine's own refusal: the rewriter has made what the engine can't read.
QString fault(dao::Database &database, const QString &statement, int &accepted)
{
    try {
        if (statement.startsWith(u"SELECT") && !statement.contains(u" INTO ")) {
            readSome(database, statement);
        } else {
            database.Execute(statement);
        }
        ++accepted;
    } catch (const runtime::RuntimeError &error) {
        const bool plain = !error.description().isEmpty() && !error.description().endsWith(u" ''."_s);
        return plain ? QString() : u"error %1: %2"_s.arg(error.number()).arg(error.description());
    } catch (...) {
        return u"a stray exception"_s;
    }
    return {};
}

/// Every file begins with the same rows, and is examined when its statements have run. An open set walks along.
void tst_fuzz_sql::statementsOfEveryKindLeaveTheFileWhole()
{
    fuzz::Instrucoes made(20260512);
    int done = 0;
    int accepted = 0;
    for (int file = 0; file < files; ++file) {
        golden::Golden golden;
        dao::Database &database = golden.database();
        const dao::Unit unit;
        auto walked = database.OpenRecordset(u"SELECT * FROM Clientes ORDER BY Nome"_s);
        for (int i = 0; i < statementsOfAFile; ++i) {
            const QString statement = made.next();
            const support::CpuTime clock;
            const QString wrong = fault(database, statement, accepted);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong + u"\nat %1: "_s.arg(done) + statement));
            QVERIFY2(clock.milliseconds() < 10'000, qPrintable(statement));
            ++done;
            if (i % 20 == 0 && !walked.Eof()) {
                walked.MoveNext();
            }
        }
        walked.Close();
        QCOMPARE(database.CheckIntegrity(), u"ok"_s);
    }
    QVERIFY(accepted > done / 4);
}

} // namespace

QTEST_GUILESS_MAIN(tst_fuzz_sql)

#include "tst_fuzz_sql.moc"
