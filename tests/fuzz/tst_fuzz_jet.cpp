// Ten thousand damaged Jet files: none brings the reader down or holds it, and the import of one ends with its sentence
// and nothing half done.
#include "platform/dao/database.h"
#include "support/diskfiles.h"
#include "tests/fuzz/danos.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace
{

constexpr int files = 10'000;
constexpr int sampledEvery = 200; ///< the whole import reads these
constexpr int mostSilence = 20'000;

struct Outcomes {
    std::map<QString, int> counts;
    std::map<int, QString> failed; ///< by the number of the file
    std::map<int, QStringList> told;
};

/// The reader of the import and the one that is the import's where there is no libmdb.
const QStringList readers = QStringLiteral(READERS).split(u',');

/// The files from `first` on until one brings the reader down or holds it: the number behind it.
int readFrom(int first, const QString &program, const QString &folder, Outcomes &outcomes)
{
    QProcess reader;
    reader.start(program, {folder, QString::number(first), QString::number(files)});
    int last = first;
    bool busy = true;
    QString failure;
    while (reader.canReadLine() || reader.waitForReadyRead(mostSilence)) {
        while (reader.canReadLine()) {
            const QStringList words = QString::fromUtf8(reader.readLine()).trimmed().split(u' ');
            last = words[0].toInt();
            busy = words.size() == 1;
            if (!busy) {
                ++outcomes.counts[words[1]];
                outcomes.told[last] = words.mid(1);
            }
            if (words.value(1) == u"nonsense") {
                outcomes.failed[last] = u"more rows than it can hold, or other columns"_s;
            }
        }
    }
    if (reader.state() != QProcess::NotRunning) {
        failure = u"silent for too long"_s;
        reader.kill();
    }
    reader.waitForFinished();
    if (!busy && last == files - 1) {
        return files;
    }
    if (failure.isEmpty()) {
        constexpr int mostWords = 4000; // the report of a crash stands at the end
        failure = u"ended by itself: "_s + QString::fromUtf8(reader.readAllStandardError().right(mostWords));
    }
    outcomes.failed[last] = failure;
    return last + 1;
}

/// What the whole import does wrong with a file; nothing where all is well. Counts how it ends.
QString faultOfImport(int number, std::array<int, 3> &endings)
{
    const QTemporaryDir folder;
    const QDir place(folder.path());
    const QByteArray bytes = fuzz::jetDamage(number).bytes;
    QFile source(place.filePath(u"velho.mdb"_s));
    if (!source.open(QIODevice::WriteOnly) || source.write(bytes) != bytes.size()) {
        return u"the source can't be written"_s;
    }
    source.close();

    QProcess tool;
    tool.start(QStringLiteral(TOOL), {source.fileName(), place.filePath(u"DADOS.MDB"_s)});
    if (!tool.waitForFinished(60'000)) {
        return u"the import does not end"_s;
    }
    const QString errors = QString::fromUtf8(tool.readAllStandardError());
    if (tool.exitStatus() != QProcess::NormalExit || tool.exitCode() > 2) {
        return u"the import crashed: "_s + errors;
    }
    ++endings.at(static_cast<std::size_t>(tool.exitCode()));
    if (support::contentsOf(source.fileName()) != bytes) {
        return u"the source was changed"_s;
    }
    const QStringList left = support::filesOf(folder.path());
    if (tool.exitCode() == 2) {
        const bool told = errors.startsWith(u"tarvelo-importa: "_s) &&
                          errors.endsWith(u"\n\nNada foi importado, e o destino continua como estava.\n"_s);
        return told && left == QStringList{u"velho.mdb"_s} ? QString() : left.join(u' ') + u": "_s + errors;
    }
    if (left != QStringList{u"DADOS-importacao.txt"_s, u"DADOS.MDB"_s, u"velho.mdb"_s}) {
        return u"left behind: "_s + left.join(u' ');
    }
    return dao::DBEngine::OpenDatabase(place.filePath(u"DADOS.MDB"_s))->TableDefs().empty() ? u"an empty target"_s
                                                                                            : QString();
}

} // namespace

class TestFuzzJet : public QObject
{
    Q_OBJECT

private slots:
    void damagedFilesAreReadOrRefused_data();
    void damagedFilesAreReadOrRefused();
    void allReadersReadTheSame();
    void importsOfDamagedFilesAreWholeOrNothing();

private:
    std::map<QString, Outcomes> outcomes_; ///< by the reader
};

void TestFuzzJet::damagedFilesAreReadOrRefused_data()
{
    QTest::addColumn<QString>("reader");
    for (const QString &reader : readers) {
        QTest::newRow(qPrintable(reader.section(u'/', -1))) << reader;
    }
}

void TestFuzzJet::damagedFilesAreReadOrRefused()
{
    QFETCH(const QString, reader);
    const QTemporaryDir folder;
    Outcomes &outcomes = outcomes_[reader];
    for (int next = 0; next < files;) {
        next = readFrom(next, reader, folder.path(), outcomes);
        QVERIFY2(outcomes.failed.size() < 50, "too many files bring the reader down");
    }
    QStringList failures;
    for (const auto &[number, failure] : outcomes.failed) {
        failures << u"%1 (%2): %3"_s.arg(number).arg(fuzz::jetDamage(number).story, failure);
    }
    QVERIFY2(failures.isEmpty(), qPrintable(failures.join(u'\n')));
    // The damage is neither so light that nobody notices nor so heavy that nothing is read any more.
    for (const QString &outcome : {u"whole"_s, u"damaged"_s, u"refused"_s}) {
        qInfo("%s: %d", qPrintable(outcome), outcomes.counts[outcome]);
        QVERIFY2(outcomes.counts[outcome] > files / 100, qPrintable(outcome));
    }
}

// What they take for whole is the same to the last byte. One may find damage where the other does not come by.
void TestFuzzJet::allReadersReadTheSame()
{
    QStringList differences;
    int compared = 0;
    const auto &first = outcomes_.at(readers.first()).told;
    for (const QString &reader : readers.mid(1)) {
        for (const auto &[number, told] : outcomes_.at(reader).told) {
            const auto other = first.find(number);
            if (other == first.end() || told[0] != u"whole" || other->second[0] != u"whole") {
                continue;
            }
            ++compared;
            if (told != other->second) {
                differences << u"%1 (%2)"_s.arg(number).arg(fuzz::jetDamage(number).story);
            }
        }
    }
    QVERIFY(readers.size() == 1 || compared > files / 4);
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(u'\n')));
}

void TestFuzzJet::importsOfDamagedFilesAreWholeOrNothing()
{
    std::map<int, QString> faults;
    std::array<int, 3> endings{};
    const auto import = [&faults, &endings](int number) {
        const QString fault = faultOfImport(number, endings);
        if (!fault.isEmpty()) {
            faults[number] = fault;
        }
    };
    for (int number = 0; number < files; number += sampledEvery) {
        import(number);
    }
    for (const auto &[number, failure] : outcomes_.at(readers.first()).failed) {
        import(number);
    }
    for (const auto &[number, fault] : faults) {
        qWarning("%d (%s): %s", number, qPrintable(fuzz::jetDamage(number).story), qPrintable(fault));
    }
    QVERIFY(faults.empty());
    qInfo("all came over: %d, not all: %d, nothing: %d", endings[0], endings[1], endings[2]);
    QVERIFY(endings[0] + endings[1] > 0 && endings[2] > 0);
}

QTEST_GUILESS_MAIN(TestFuzzJet)
#include "tst_fuzz_jet.moc"
